#include "app/ExportCommands.h"
#include "ui/dialogs/frmAbout.h"
#include "ui/dialogs/frmDonation.h"
#include "ui/dialogs/frmHelp.h"
#include "ui/dialogs/frmMenuGenerator.h"
#include "ui/dialogs/frmPreferences.h"
#include "ui/dialogs/frmProjectSettings.h"
#include "ui/dialogs/frmSQLGenerator.h"
#include "ui/main/frmMain.h"

namespace pirol {

// --- Java and BlueJ ---------------------------------------------------------------------------------------------

void frmMain::mnuFileImportJava() {
    Run([this] { ImportJava(document_, dialogs_); });
}

void frmMain::mnuFileStartBlueJ() {
    Run([this] { StartBlueJ(preferences_.BlueJPath, starter_); });
}

void frmMain::mnuProjectExportBlueJ() {
    std::string folder;
    Run([&] {
        folder = ExportBlueJ(Model(), options_, dialogs_);
        SayExported(folder);
    });
    // A start that fails has its own report: the export was good.
    if (!folder.empty())
        Run([&] { StartBlueJOn(folder, preferences_.BlueJPath, starter_); });
}

void frmMain::mnuProjectExportJava() {
    Run([this] { SayExported(ExportJava(Model(), options_, dialogs_)); });
}

void frmMain::mnuProjectExportText() {
    Run([this] { SayExported(ExportText(Model(), options_, dialogs_)); });
}

// --- Dialogs ----------------------------------------------------------------------------------------------------
// The dialogs work on copies, so that a cancelled one changes nothing.

void frmMain::mnuFileOptions() {
    Preferences preferences = preferences_;
    if (frmPreferences(preferences, dialogs_, this).exec() == QDialog::Accepted)
        SetPreferences(preferences);
}

void frmMain::mnuProjectSettings() {
    frmProjectSettings form({Model().WindowWidth(), Model().WindowHeight(), Model().Author()}, this);
    if (form.exec() != QDialog::Accepted)
        return;
    Run([this, &settings = form.Settings()] {
        document_.Edit("Projekteinstellungen ändern", [&](ProjectModel& model) {
            model.SetWindowSize(settings.Width, settings.Height);
            model.SetAuthor(settings.Author);
        });
    });
}

void frmMain::mnuFunctionsMenuGenerator() {
    MenuBar bar = Model().Menus();
    if (frmMenuGenerator(bar, dialogs_, this).exec() == QDialog::Accepted)
        Run([this, &bar] {
            document_.Edit("Menüleiste ändern", [&bar](ProjectModel& model) { model.EditMenus() = std::move(bar); });
        });
}

void frmMain::mnuFunctionsSQLGenerator() {
    SQLSettings settings = Model().Sql();
    if (frmSQLGenerator(settings, this).exec() == QDialog::Accepted)
        Run([this, &settings] {
            document_.Edit("Datenbankzugriff ändern", [&](ProjectModel& model) { model.EditSql() = settings; });
        });
}

void frmMain::mnuHelpHandbook() {
    frmHelp::ShowFor(this);
}

void frmMain::mnuHelpDonation() {
    frmDonation(this).exec();
}

void frmMain::mnuHelpAbout() {
    frmAbout(this).exec();
}

} // namespace pirol
