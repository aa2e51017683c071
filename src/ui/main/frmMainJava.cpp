#include "app/ImportCommands.h"
#include "app/UpdateCommands.h"
#include "base/FileAccess.h"
#include "ui/code/frmJavaUpdate.h"
#include "ui/dialogs/frmImportReport.h"
#include "ui/main/frmMain.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"

#include <QFileInfo>
#include <QStatusBar>

namespace pirol {

// --- Java that is there already ---------------------------------------------------------------------------------

void frmMain::mnuFileImportJava() {
    ImportedJava imported;
    const auto report = [this](const RuntimeError& error) { frmError(error, this).exec(); };
    Run([&] { imported = ImportJava(document_, dialogs_, report); });
    if (!imported.remarks.empty())
        frmImportReport(imported.remarks, this).exec();
    if (!imported.path.empty())
        javaFiles_.Remember(imported.path, Model());
}

/// The file that the design was written to last is taken without asking; where it cannot be brought up to date the user
/// is told why and may choose another one.
void frmMain::mnuProjectUpdateJava() {
    std::string path = javaFiles_.LastOf(Model());
    if (!IsExistingFile(PathOf(path)))
        path = ChooseUpdateFile();
    while (!path.empty() && UpdateJavaFile(path))
        path = ChooseUpdateFile();
}

std::string frmMain::ChooseUpdateFile() {
    std::string path;
    Run([&] { path = ChooseJavaFile(lastUpdateFile_, dialogs_); });
    if (!path.empty())
        lastUpdateFile_ = path;
    return path;
}

/// True when another file is to be chosen.
bool frmMain::UpdateJavaFile(const std::string& path) {
    UpdateOptions options;
    options.marks = options_;
    options.renames = javaFiles_.RenamesIn(path, Model());
    options.isUnknown = unheldValues_.Now();
    const auto prepare = [&](bool withoutMenu, bool withoutDatabase) {
        options.withoutMenu = withoutMenu;
        options.withoutDatabase = withoutDatabase;
        return PrepareUpdate(PathOf(path), Model(), options);
    };
    int result = frmJavaUpdate::otherFile;
    Run([&] {
        try {
            frmJavaUpdate form(prepare, dialogs_, this);
            result = form.exec();
            if (result == QDialog::Accepted || !form.Update().Changes())
                javaFiles_.Remember(path, Model());
        } catch (const UpdateRefusal& refusal) {
            dialogs_.Critical("Java-Datei aktualisieren", refusal.what());
        }
    });
    if (result == QDialog::Accepted)
        statusBar()->showMessage(
            QString("Aktualisiert: »%1«. Die Fassung davor liegt daneben.").arg(QFileInfo(ToText(path)).fileName()),
            messageTime);
    return result == frmJavaUpdate::otherFile;
}

} // namespace pirol
