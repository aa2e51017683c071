#include "app/ImportCommands.h"

#include "app/ErrorReport.h"
#include "base/FileAccess.h"
#include "base/Windows1252.h"
#include "codegen/ImportComparison.h"
#include "codegen/JavaImport.h"
#include "codegen/JavaReader.h"

#include <utility>

namespace pirol {
namespace {

constexpr std::string_view importStep = "Java importieren";

FileDialogSetup ImportDialog() {
    return {.Title = "Java-Datei importieren",
            .Filter = "SuMAnwendung.java|SuMAnwendung.java",
            .Flags = FileDialogSetup::FileMustExist,
            .FileName = {},
            .Name = "importDialog"};
}

void ReadSimply(const std::string& source, Document& document) {
    const auto fill = [&source](ProjectModel& model) {
        AnalyseCode(source, model);
        return Document::Origin{};
    };
    document.Replace(importStep, fill, importStep);
}

} // namespace

ImportedJava ImportJava(Document& document, cCommonDialog& dialogs,
                        const std::function<void(const RuntimeError&)>& report) {
    ImportedJava imported;
    imported.path = dialogs.ShowOpen(ImportDialog());
    if (imported.path.empty())
        return imported;
    std::string bytes;
    std::string source;
    UnderLabel("Main.File.Import.Analyse", [&] {
        bytes = ReadFileBytes(PathOf(imported.path));
        source = FromWindows1252(bytes);
    });
    if (const auto error = ErrorOf([&] { ReadSimply(source, document); }))
        report(*error);
    JavaReading all = ReadJava(bytes);
    if (!all.FoundAnything() && !FoundAnything(source, document.Model())) {
        dialogs.Information(nothingFoundMessage);
        return imported;
    }
    const std::string question = QuestionForAll(document.Model(), all.model);
    if (question.empty() || !dialogs.Question(question))
        return imported;
    imported.remarks = std::move(all.remarks);
    const auto takeAll = [&all](ProjectModel& model) {
        if (all.model.Sql() == SQLSettings())
            all.model.EditSql() = model.Sql();
        model = std::move(all.model);
    };
    document.Edit(importStep, takeAll, importStep);
    return imported;
}

} // namespace pirol
