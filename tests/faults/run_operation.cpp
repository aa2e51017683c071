// Does what Pirol does with files once, so that faults can be made happen meanwhile: run_operation NAME FOLDER. The
// folder holds design.prl, old.prl, SuMAnwendung.java and old.java; saving and exporting go to old.prl, old.java and
// the new folder BlueJ. Preferences and recovery files lie where the environment says. Ends with 0, or with 1 and the
// error on standard error.

#include "app/ErrorReport.h"
#include "app/ExportCommands.h"
#include "app/FileCommands.h"
#include "app/ImportCommands.h"
#include "app/Preferences.h"
#include "FakeDialogs.h"
#include "project/KeptDesigns.h"
#include "project/Recovery.h"
#include "project/Snapshot.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <string>

namespace {

using namespace pirol;

std::string folder;
test::FakeDialogs dialogs;
Document document;

std::string Path(const char* name) {
    return folder + "/" + name;
}

void Load() {
    LoadProject(Path("design.prl"), document, dialogs, nullptr);
}

const std::map<std::string_view, void (*)()> operations = {
    {"load", Load},
    {"save",
     [] {
         Load();
         dialogs.paths = {Path("old.prl")};
         dialogs.yes = {true};
         SaveProject(document, dialogs);
     }},
    {"import",
     [] {
         dialogs.paths = {Path("SuMAnwendung.java")};
         dialogs.yes = {true};
         ImportJava(document, dialogs, [](const RuntimeError& error) { throw RuntimeError(error); });
     }},
    {"export-file",
     [] {
         Load();
         dialogs.paths = {Path("old.java")};
         ExportJava(document.Model(), {}, dialogs);
     }},
    {"export-folder",
     [] {
         Load();
         dialogs.paths = {Path("BlueJ")};
         ExportBlueJ(document.Model(), {}, dialogs);
     }},
    {"keep-preferences",
     [] {
         Preferences{"/opt/bluej", 2, 255}.Save();
     }},
    {"load-preferences", [] { Preferences::Load(); }},
    {"keep",
     [] {
         Load();
         // What a normal end would clear away stays, as if the program were killed behind the operation.
         static auto* const kept = new RecoveryFile(RecoveryFolder());
         OpenDesign design{document.Model(), document.FilePath()};
         kept->Write(SnapshotOf(design));
         design.model.SetAuthor("new");
         kept->Write(SnapshotOf(design));
     }},
    {"keep-former",
     [] {
         Load();
         KeepDesign(KeptFolder(RecoveryFolder()), {document.Model(), {}}, "Neuer Entwurf", 1);
     }},
    {"undo",
     [] {
         Load();
         const ProjectModel loaded = document.Model();
         const auto error = ErrorOf([] {
             for (int i = 0; i < 3; ++i)
                 document.EditAndSelect("step", [](ProjectModel& model) {
                     return model.PlaceComponent(ComponentKind::Table, {10, 20, 300, 40});
                 });
             document.Undo();
             document.Redo();
         });
         // Whatever failed, the steps lead back to where they began.
         while (document.UndoLabel() == "step")
             document.Undo();
         if (document.Model() != loaded)
             std::abort();
         if (error)
             throw RuntimeError(*error);
     }},
    {"restore",
     [] {
         for (const LeftDesign& left : LeftDesigns(RecoveryFolder()))
             std::printf("%s\n", ReadDesign(left).model.Author().c_str());
     }},
};

} // namespace

int main(int, char* arguments[]) {
    try {
        const auto error = ErrorOf([arguments] {
            folder = arguments[2];
            operations.at(arguments[1])();
        });
        if (!error)
            return 0;
        std::fprintf(stderr, "%s\n", error->what());
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "%s\n", RuntimeError::outOfMemoryText.data());
    }
    return 1;
}
