#pragma once

#include "project/Recovery.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <future>
#include <vector>

namespace pirol {

class cCommonDialog;
class frmMain;

/// Keeps the design in the recovery file while the user works, at most a few seconds old, and offers at the start what
/// killed programs have left. A design without unsaved changes has no recovery file. Only taking the snapshot costs the
/// user's time; the disk is written to in the background.
class DesignKeeper : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DesignKeeper)

  public:
    DesignKeeper(frmMain& window, cCommonDialog& dialogs, const std::filesystem::path& folder);
    ~DesignKeeper() override;

    /// Offers the left designs one after another, the newest first, until one is restored or put off.
    void OfferLeftDesigns();

  private:
    void TakeNote();
    void Keep();
    void Kept(const std::string& failure);
    void TellFailure(const std::string& failure);
    bool Offer(const LeftDesign& left, std::size_t others);
    void SetAsideDamaged(const LeftDesign& left);

    frmMain& window_;
    cCommonDialog& dialogs_;
    std::filesystem::path folder_;
    RecoveryFile file_;
    QTimer timer_;
    QElapsedTimer sinceChange_; ///< valid when there are changes that the recovery file lacks
    std::future<void> writing_;
    bool isWriting_ = false;
    bool toldFailure_ = false;
};

} // namespace pirol
