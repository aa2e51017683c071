// Any bytes as Java source: reading all of it ends in a design whose names are distinct, that can be written, and whose
// generated source gives no fewer components when it is read again.

#include "base/Windows1252.h"
#include "codegen/ImportComparison.h"
#include "codegen/JavaGenerator.h"
#include "codegen/JavaImport.h"
#include "codegen/JavaReader.h"
#include "fuzz/Fuzz.h"

#include <unordered_set>

using namespace pirol;

namespace {

std::size_t CountComponents(const ProjectModel& model) {
    std::size_t count = 0;
    model.ForEachVisible([&count](const Control&) { ++count; });
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    JavaReading reading;
    fuzz::Require(fuzz::Succeeds([&] { reading = ReadJava(fuzz::TextOf(data, size)); }), "reading never fails");
    fuzz::Require(reading.remarks.size() <= mostRemarks, "the report is bounded");
    std::unordered_set<std::string_view> names;
    reading.model.ForEachVisible(
        [&](const Control& control) { fuzz::Require(names.insert(control.ObjectName).second, "names are distinct"); });
    fuzz::Read(GeneratePRLCode(reading.model));

    std::string source;
    if (!fuzz::Succeeds([&] { source = GenerateCode(reading.model, {.menu = true, .database = true}); }))
        return 0;
    const JavaReading again = ReadJava(source);
    fuzz::Require(CountComponents(again.model) == CountComponents(reading.model), "no component is lost");

    ProjectModel simple;
    if (fuzz::Succeeds([&] { AnalyseCode(FromWindows1252(fuzz::TextOf(data, size)), simple); }))
        QuestionForAll(simple, reading.model);
    return 0;
}
