#pragma once

#include "project/KeptDesigns.h"
#include "project/Recovery.h"

#include <condition_variable>
#include <ctime>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>

namespace pirol {

/// A design that has left the screen with unsaved changes.
struct FormerDesign {
    OpenDesign design;
    std::string reason; ///< why it left, German
    std::time_t left;   ///< when it left
};

/// Writes the recovery file and the kept designs beside the window's thread. It is given copies of designs, which cost
/// next to nothing, and returns at once. Former designs come before the one on the screen, and in their order; of the
/// designs on the screen only the newest counts. A former design that cannot be kept gets a recovery file of its own
/// where that is possible, and is tried again with whatever is asked for next.
class KeepingThread {
  public:
    /// `tell` is called on that thread whenever the work has come to an end: with the German description of what could
    /// not be kept, or an empty text when everything is on disk.
    KeepingThread(std::filesystem::path recoveryFolder, std::function<void(const std::string&)> tell);
    KeepingThread(const KeepingThread&) = delete;
    KeepingThread& operator=(const KeepingThread&) = delete;
    /// Does what has been asked for. The recovery file goes unless it shall stay behind.
    ~KeepingThread();

    /// These raise RuntimeError when the thread cannot be started; what was asked for is done with the next call.

    /// Keeps the design on the screen in the recovery file.
    void KeepShown(OpenDesign design);
    /// The design on the screen is saved or empty, and needs no recovery file. A writing that has begun is broken off,
    /// unless it is all that is on disk of a former design.
    void ForgetShown();
    void KeepFormer(FormerDesign former);
    /// Keeps what ended programs have left, as far as it is not kept yet; they stay where they are.
    void KeepLeft();
    /// Writes the recovery file once more when somebody has removed it, and tries again what has failed.
    void CheckFiles();

    /// Waits until the work has come to an end. The German description of what could not be kept; empty for nothing.
    std::string Wait();
    /// Whether the recovery file stays behind the end of the program, so that the next one offers it.
    void StayBehind(bool stays) { staysBehind_ = stays; }

  private:
    /// With its recovery file while it cannot be kept.
    struct Waiting {
        FormerDesign former;
        std::unique_ptr<RecoveryFile> refuge;
    };
    enum class Shown { AsItIs, Check, Keep, Forget };

    void Ask(std::unique_lock<std::mutex> lock);
    bool HasWork() const;
    void Work();
    void WorkOnce(std::unique_lock<std::mutex>& lock);
    void KeepWaiting(std::deque<Waiting>& waiting);
    void SeekRefuge(Waiting& waiting);
    void DoShown(Shown what, const OpenDesign& design, const std::stop_token& stop);
    void Attempt(const std::function<void()>& work);

    const std::filesystem::path folder_;
    const std::function<void(const std::string&)> tell_;
    bool staysBehind_ = false;

    std::mutex mutex_;
    std::condition_variable changed_;
    // Shared with the thread, under the mutex:
    std::deque<Waiting> former_;
    Shown shown_ = Shown::AsItIs;
    OpenDesign design_; ///< on the screen
    bool collects_ = false;
    bool retries_ = false;
    bool isWorking_ = false;
    bool ends_ = false;
    std::string failure_;
    std::stop_source breakOff_; ///< of the writing of the recovery file

    // The thread's own:
    RecoveryFile file_;
    bool needsFile_ = false; ///< the design on the screen shall be in it
    std::string failureNow_;

    std::thread thread_;
};

} // namespace pirol
