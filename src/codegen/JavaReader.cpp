#include "codegen/JavaReader.h"

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "codegen/JavaCalls.h"
#include "codegen/JavaObjects.h"
#include "codegen/JavaOutline.h"

#include <algorithm>

namespace pirol {
namespace {

constexpr std::string_view readLabel = "Main.File.Import.Analyse";

void RemarkUnread(const JavaOutline& outline, RemarkList& remarks) {
    for (const JavaOutline::ClassLine& window : outline.OtherWindows())
        remarks.Add(window.line, Concatenate("Die Klasse »", Excerpt(window.name),
                                             "« ist ein weiteres Fenster und wird nicht gelesen."));
    if (outline.Unread().openComment != 0)
        remarks.Add(outline.Unread().openComment, "Der Kommentar hat kein Ende; alles danach fehlt.");
    if (outline.Unread().tooLong != 0)
        remarks.Add(outline.Unread().tooLong, "Der Quelltext ist zu lang; ab hier fehlt alles.");
}

void RemarkNotInJava(const ProjectModel& model, RemarkList& remarks) {
    remarks.Add(0, "Der Autor des Projekts steht nicht in Java.");
    for (const NotInJava& row : notInJava)
        if (!row.remark.empty() && model.ElementCount(row.kind) > 1)
            remarks.Add(0, std::string(row.remark));
}

JavaReading ReadSource(std::string_view source) {
    JavaReading reading;
    RemarkList remarks;
    const JavaOutline outline(source);
    RemarkUnread(outline, remarks);
    JavaObjects objects(outline, reading.model, remarks);
    ForEachStatement(source, [&](const JavaStatement& statement, const JavaHead&, const JavaPlace& place) {
        objects.Make(statement, place);
    });
    objects.Name();
    JavaCalls calls(outline, objects, reading.model, remarks);
    ForEachStatement(source, [&](const JavaStatement& statement, const JavaHead& head, const JavaPlace& place) {
        if (outline.IsOfWindow(place))
            calls.Read(statement, head, place);
    });
    calls.Finish();
    reading.hasWindowSize = calls.HasWindowSize();
    RemarkNotInJava(reading.model, remarks);
    reading.remarks = remarks.Sorted();
    return reading;
}

} // namespace

bool JavaReading::FoundAnything() const {
    return hasWindowSize || std::any_of(KindRows().begin(), KindRows().end(),
                                        [this](const KindRow& row) { return model.ElementCount(row.kind) > 1; });
}

JavaReading ReadJava(std::string_view bytes) {
    return UnderLabel(readLabel, [&] { return ReadSource(DecodeSource(bytes)); });
}

JavaReading ReadJavaFile(const std::filesystem::path& path) {
    return ReadJava(UnderLabel(readLabel, [&] { return ReadFileBytes(path); }));
}

} // namespace pirol
