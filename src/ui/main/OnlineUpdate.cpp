#include "ui/main/OnlineUpdate.h"

#include "app/cCommonDialog.h"
#include "app/ErrorReport.h"
#include "app/SetupStart.h"
#include "app/UpdateRecord.h"
#include "base/FileAccess.h"
#include "ui/dialogs/frmUpdate.h"
#include "ui/main/frmMain.h"
#include "ui/parts/FormParts.h"

#include <QAction>
#include <QCoreApplication>
#include <QStatusBar>
#include <QTimer>

#include <ctime>
#include <utility>

namespace pirol {
namespace {

InstalledProgram ThisProgram() {
    return {QCoreApplication::applicationVersion().toStdString(), std::string(updateSystem),
            updaterecord::HighestSerial(), std::time(nullptr)};
}

QString FoundText(const VersionLookup& lookup) {
    if (lookup.CurrentState() == VersionLookup::State::Found)
        return QString("Pirol %1 ist da: »Hilfe, Nach neuer Version suchen …«").arg(ToText(lookup.Found().version));
    if (lookup.CurrentState() == VersionLookup::State::UpToDate)
        return "Pirol ist auf dem neuesten Stand.";
    return "Nach einer neuen Version konnte nicht gesucht werden: " + ToText(MessageOf(lookup.Fault()));
}

} // namespace

OnlineUpdate::OnlineUpdate(frmMain& window, cCommonDialog& dialogs, ProgramStarter& starter,
                           UpdateSurroundings surroundings)
    : window_(window), dialogs_(dialogs), starter_(starter), surroundings_(std::move(surroundings)) {
    if (!surroundings_.source.IsThere())
        return;
    window_.EnableUpdate();
    connect(&window_, &frmMain::UpdateWanted, this, &OnlineUpdate::ShowUpdate);
}

OnlineUpdate::~OnlineUpdate() = default;

void OnlineUpdate::ShowUpdate() {
    lookup_.reset();
    std::filesystem::path setup;
    window_.Run([&] {
        UnderLabel("Update.DownloadCompleted", [&] {
            transport_ = surroundings_.newTransport();
            frmUpdate form(*transport_, surroundings_.source, ThisProgram(), surroundings_.folder, &window_);
            if (form.exec() == QDialog::Accepted)
                setup = form.Setup();
        });
    });
    if (!setup.empty())
        Install(setup);
}

/// The program ends only when the setup has begun. Where the system cannot open the file, the user is told where it is.
void OnlineUpdate::Install(const std::filesystem::path& setup) {
    surroundings_.keepDesign();
    const auto error = ErrorOf([&] { StartSetup(setup, window_.CurrentDocument().FilePath(), starter_); });
    if (!error) {
        window_.close();
        return;
    }
    dialogs_.Information(
        "Die neue Version lässt sich von hier aus nicht installieren: " + error->Description() +
        ".\r\n\r\nSie ist geladen und geprüft. Installieren Sie diese Datei selbst, oder lassen Sie das "
        "jemanden tun, der es darf:\r\n" +
        TextOf(setup));
}

void OnlineUpdate::LookWeekly() {
    if (surroundings_.source.IsThere() && window_.CurrentPreferences().LooksForUpdates)
        QTimer::singleShot(surroundings_.delay, this, &OnlineUpdate::LookQuietly);
}

void OnlineUpdate::LookQuietly() {
    const std::time_t now = std::time(nullptr);
    if (transport_ != nullptr || !updaterecord::IsLookDue(now)) // the user was quicker
        return;
    updaterecord::AddLook(now);
    // Without a network module there is nothing to say; the command says so when it is wanted.
    ErrorOf([this] {
        transport_ = surroundings_.newTransport();
        lookup_ = std::make_unique<VersionLookup>(*transport_, surroundings_.source, ThisProgram(),
                                                  std::chrono::steady_clock::now, [this] { SayFound(); });
        lookup_->Start();
    });
}

void OnlineUpdate::SayFound() {
    constexpr int shownTime = 30000;
    using State = VersionLookup::State;
    const State state = lookup_->CurrentState();
    if (state == State::Looking)
        return;
    if (state != State::Failed)
        updaterecord::AddSerial(lookup_->Serial());
    window_.statusBar()->showMessage(FoundText(*lookup_), shownTime);
}

} // namespace pirol
