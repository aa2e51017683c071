#pragma once

#include "app/KeepingThread.h"
#include "designer/Document.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>

class QLabel;

namespace pirol {

class cCommonDialog;
class frmMain;

/// How long a change waits until it is kept.
struct KeepingDelays {
    std::chrono::milliseconds afterChange{2000};
    /// A drag is not held up by the keeping, but one that goes on and on is kept all the same.
    std::chrono::milliseconds duringGesture{200};
    std::chrono::milliseconds longest{5000};
    std::chrono::milliseconds afterFailure{10000};
    /// How often it is looked whether somebody has removed the recovery file of unsaved changes.
    std::chrono::milliseconds betweenChecks{1000};
};

/// Keeps the design in the recovery file while the user works, at most a few seconds old, and offers at the start what
/// killed programs have left. What leaves the screen unsaved goes to the kept designs. A design without unsaved changes
/// has no recovery file. What is written is a copy of the design, in the background.
class DesignKeeper : public QObject, private DocumentListener {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DesignKeeper)

  public:
    DesignKeeper(frmMain& window, cCommonDialog& dialogs, const std::filesystem::path& folder,
                 const KeepingDelays& delays = {});
    ~DesignKeeper() override;

    /// Offers the left designs one after another, the newest first, until one is restored or put off.
    void OfferLeftDesigns();

    /// Keeps the design at once, among the kept designs and for the next start: the program is about to end, and not
    /// because the user wants it. What he does afterwards all the same counts as ever.
    void KeepForNextStart(const std::string& reason);

    /// Lets the user fetch a kept design back, as a step of the history, or delete some.
    void ShowKeptDesigns();
    /// Fetches one back.
    void Restore(const OpenDesign& design);

  private:
    void DocumentChanged(const DocumentChange& change) override;
    OpenDesign Shown() const;
    void Ask(const std::function<void()>& work);
    void KeepFormer(const std::string& reason);
    void Keep();
    void CheckFiles();
    void Kept(const std::string& failure);
    void TellFailure(const std::string& failure);
    bool Offer(const LeftDesign& left, std::size_t others);
    void SetAsideDamaged(const LeftDesign& left);

    frmMain& window_;
    Document& document_;
    cCommonDialog& dialogs_;
    std::filesystem::path folder_;
    KeepingDelays delays_;
    OpenDesign shown_;            ///< what the document held after its last change
    bool shownIsChanged_ = false; ///< whether it had unsaved changes
    bool staysBehind_ = false;    ///< it is kept for the next start
    QTimer timer_;
    QElapsedTimer sinceChange_; ///< valid when there are changes that nobody has been asked to keep
    QTimer checking_;
    bool toldFailure_ = false;
    QLabel* lblKeeping_; ///< in the status bar while nothing can be kept
    KeepingThread thread_;
};

} // namespace pirol
