#pragma once

#include "app/ProgramStarter.h"
#include "app/Transport.h"
#include "app/UpdateSource.h"
#include "app/VersionLookup.h"

#include <QObject>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>

namespace pirol {

class cCommonDialog;
class frmMain;

/// What the online update needs of the world around it.
struct UpdateSurroundings {
    UpdateSource source;
    std::filesystem::path folder; ///< where what is loaded lies
    std::function<std::unique_ptr<Transport>()> newTransport;
    std::function<void()> keepDesign;      ///< before the program ends for the setup
    std::chrono::milliseconds delay{3000}; ///< of the weekly look, which no start shall wait for
};

/// The main window's way to new versions: its command, the installing, and the look once a week. Without a source the
/// command stays disabled and says why. Nothing of the network is touched before the user wants it.
class OnlineUpdate : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(OnlineUpdate)

  public:
    OnlineUpdate(frmMain& window, cCommonDialog& dialogs, ProgramStarter& starter, UpdateSurroundings surroundings);
    ~OnlineUpdate() override;

    /// Looks for a new version if the user prefers it and a week has passed. What it finds stands in the status bar.
    void LookWeekly();

  private:
    void LookQuietly();
    void ShowUpdate();
    void Install(const std::filesystem::path& setup);
    void SayFound();

    frmMain& window_;
    cCommonDialog& dialogs_;
    ProgramStarter& starter_;
    UpdateSurroundings surroundings_;
    std::unique_ptr<Transport> transport_;
    std::unique_ptr<VersionLookup> lookup_; ///< the quiet one
};

} // namespace pirol
