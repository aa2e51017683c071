// Any bytes as a source: an update ends in a refusal or in a source that can be updated again.

#include "base/Windows1252.h"
#include "codegen/JavaUpdate.h"
#include "fuzz/Fuzz.h"

using namespace pirol;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ProjectModel model = [] {
        ProjectModel design;
        for (const KindRow& row : KindRows())
            design.PlaceComponent(row.kind, {10, 20, 80, 30});
        design.EditMenus().Append("Datei", "hatMenueDatei").AddEntry("Neu", cMenu::Entry);
        return design;
    }();
    const std::string source = FromWindows1252(fuzz::TextOf(data, size));
    UpdateOptions options;
    options.marks = {(size & 1U) != 0, (size & 2U) != 0};
    try {
        UpdateJava(UpdateJava(source, model, options).source, model, options);
    } catch (const UpdateRefusal& refusal) {
        fuzz::Require(refusal.Line() > 0, "a refusal names a line");
    }
    return 0;
}
