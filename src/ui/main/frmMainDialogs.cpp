#include "app/ExportCommands.h"
#include "app/UpdateCommands.h"
#include "base/FileAccess.h"
#include "ui/dialogs/frmAbout.h"
#include "ui/dialogs/frmDonation.h"
#include "ui/dialogs/frmHelp.h"
#include "ui/dialogs/frmMenuGenerator.h"
#include "ui/dialogs/frmPicture.h"
#include "ui/dialogs/frmPreferences.h"
#include "ui/dialogs/frmProjectSettings.h"
#include "ui/dialogs/frmSQLGenerator.h"
#include "ui/main/frmMain.h"

#include <QAction>

namespace pirol {

// --- Exporting and BlueJ ----------------------------------------------------------------------------------------

void frmMain::mnuFileStartBlueJ() {
    Run([this] { StartBlueJ(preferences_.BlueJPath, starter_); });
}

void frmMain::mnuProjectExportBlueJ() {
    std::string folder;
    Run([&] {
        folder = ExportBlueJ(Model(), options_, dialogs_);
        SayExported(folder);
        if (!folder.empty())
            javaFiles_.Remember(TextOf(JavaFileOf(PathOf(folder))), Model());
    });
    // A start that fails has its own report: the export was good.
    if (!folder.empty())
        Run([&] { StartBlueJOn(folder, preferences_.BlueJPath, starter_); });
}

void frmMain::mnuProjectExportJava() {
    Run([this] {
        const std::string path = ExportJava(Model(), options_, dialogs_);
        SayExported(path);
        if (!path.empty())
            javaFiles_.Remember(path, Model());
    });
}

void frmMain::mnuProjectExportText() {
    Run([this] { SayExported(ExportText(Model(), options_, dialogs_)); });
}

void frmMain::mnuProjectExportPicture() {
    frmPicture form(Model(), dialogs_, this);
    if (form.exec() == QDialog::Accepted)
        SayExported(form.Saved());
}

// --- Dialogs ----------------------------------------------------------------------------------------------------
// The dialogs work on copies, so that a cancelled one changes nothing.

void frmMain::mnuFileOptions() {
    Preferences preferences = preferences_;
    frmPreferences form(preferences, dialogs_, this);
    form.OfferUpdates(Command("mnuHelpUpdate")->isEnabled());
    connect(&form, &frmPreferences::AppearanceChosen, this, &frmMain::AppearanceChosen);
    if (form.exec() == QDialog::Accepted)
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

void frmMain::mnuHelpUpdate() {
    emit UpdateWanted();
}

void frmMain::EnableUpdate() {
    QAction* const command = Command("mnuHelpUpdate");
    command->setEnabled(true);
    command->setToolTip({});
    command->setStatusTip("Fragt den Server nach einer neuen Version von Pirol");
}

void frmMain::mnuHelpDonation() {
    frmDonation(this).exec();
}

void frmMain::mnuHelpAbout() {
    frmAbout(this).exec();
}

} // namespace pirol
