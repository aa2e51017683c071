#pragma once

#include "app/Preferences.h"
#include "codegen/ExportCommands.h"
#include "FakeDialogs.h"
#include "project/FileCommands.h"
#include "project/Recovery.h"
#include "project/Snapshot.h"

#include <cstdio>
#include <optional>
#include <string>
#include <utility>

namespace pirol::test {

/// What Pirol does with files, so that faults can be made happen meanwhile. The folder holds design.prl, old.prl,
/// SuMAnwendung.java and old.java; saving and exporting go to old.prl, old.java and the new folder BlueJ. Preferences
/// and recovery files lie where the environment says.
struct Operations {
    std::string folder;
    FakeDialogs dialogs;
    FakeStarter starter;
    ProjectModel model;

    std::string Path(const char* name) const { return folder + "/" + name; }

    void Load() { LoadProject(Path("design.prl"), model, dialogs, nullptr); }
    void Save() {
        Load();
        dialogs.paths = {Path("old.prl")};
        dialogs.yes = {true};
        SaveProject(model, dialogs);
    }
    void Import() {
        dialogs.paths = {Path("SuMAnwendung.java")};
        ImportJava(model, dialogs);
    }
    void ExportToFile() {
        Load();
        dialogs.paths = {Path("old.java")};
        ExportJava(model, {}, dialogs);
    }
    void ExportToFolder() {
        Load();
        dialogs.paths = {Path("BlueJ")};
        ExportBlueJ(model, {}, {}, dialogs, starter);
    }
    void KeepPreferences() { Preferences{"/opt/bluej", 2, 255}.Save(); }
    void LoadPreferences() { Preferences::Load(); }
    void Keep() {
        Load();
        kept.emplace(RecoveryFolder());
        kept->Write(TakeSnapshot(model));
        model.SetAuthor("new");
        kept->Write(TakeSnapshot(model));
    }
    void Restore() {
        for (const LeftDesign& left : LeftDesigns(RecoveryFolder()))
            std::printf("%s\n", ReadDesign(left).Author().c_str());
    }

    std::optional<RecoveryFile> kept; ///< removed only with all of this
};

constexpr std::pair<const char*, void (Operations::*)()> allOperations[] = {
    {"load", &Operations::Load},
    {"save", &Operations::Save},
    {"import", &Operations::Import},
    {"export-file", &Operations::ExportToFile},
    {"export-folder", &Operations::ExportToFolder},
    {"keep-preferences", &Operations::KeepPreferences},
    {"load-preferences", &Operations::LoadPreferences},
    {"keep", &Operations::Keep},
    {"restore", &Operations::Restore},
};

} // namespace pirol::test
