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
    Run([this] { ImportJava(model_, dialogs_); });
    LoadProperties();
}

void frmMain::mnuFileStartBlueJ() {
    Run([this] { StartBlueJ(preferences_.BlueJPath, starter_); });
}

void frmMain::mnuProjectExportBlueJ() {
    Run([this] { ExportBlueJ(model_, options_, preferences_.BlueJPath, dialogs_, starter_); });
}

void frmMain::mnuProjectExportJava() {
    Run([this] { ExportJava(model_, options_, dialogs_); });
}

void frmMain::mnuProjectExportText() {
    Run([this] { ExportText(model_, options_, dialogs_); });
}

// --- Dialogs ----------------------------------------------------------------------------------------------------
// The dialogs work on copies, so that one which is cancelled does not count as a change of the design.

void frmMain::mnuFileOptions() {
    Preferences preferences = preferences_;
    if (frmPreferences(preferences, dialogs_, this).exec() == QDialog::Accepted)
        SetPreferences(preferences);
}

void frmMain::mnuProjectSettings() {
    const WindowSettings stored = {model_.WindowWidth(), model_.WindowHeight(), model_.Author()};
    frmProjectSettings form(stored, this);
    if (form.exec() != QDialog::Accepted || form.Settings() == stored)
        return;
    Run([this, &settings = form.Settings()] {
        model_.SetWindowSize(settings.Width, settings.Height);
        model_.SetAuthor(settings.Author);
    });
}

void frmMain::mnuFunctionsMenuGenerator() {
    MenuBar bar = model_.Menus();
    if (frmMenuGenerator(bar, dialogs_, this).exec() == QDialog::Accepted && bar != model_.Menus())
        Run([this, &bar] { model_.EditMenus() = std::move(bar); });
}

void frmMain::mnuFunctionsSQLGenerator() {
    SQLSettings settings = model_.Sql();
    if (frmSQLGenerator(settings, this).exec() == QDialog::Accepted && settings != model_.Sql())
        Run([this, &settings] { model_.EditSql() = settings; });
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
