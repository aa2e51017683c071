#include "app/KeepingThread.h"

#include "app/ErrorReport.h"

#include <system_error>
#include <utility>
#include <vector>

namespace pirol {
namespace {

/// While nothing can be written the history holds these designs as well; so many wait at most.
constexpr std::size_t mostWaiting = mostKept;

constexpr std::string_view leftReason = "Pirol wurde nicht richtig beendet";

} // namespace

KeepingThread::KeepingThread(std::filesystem::path recoveryFolder, std::function<void(const std::string&)> tell)
    : folder_(std::move(recoveryFolder)), tell_(std::move(tell)), file_(folder_) {}

KeepingThread::~KeepingThread() {
    {
        const std::lock_guard lock(mutex_);
        retries_ = true;
        ends_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable())
        thread_.join();
    else
        Wait();
    file_.StayBehind(staysBehind_);
}

// --- Asking -----------------------------------------------------------------------------------------------------

void KeepingThread::KeepShown(OpenDesign design) {
    std::unique_lock lock(mutex_);
    std::swap(design_, design);
    shown_ = Shown::Keep;
    Ask(std::move(lock));
}

void KeepingThread::ForgetShown() {
    std::unique_lock lock(mutex_);
    shown_ = Shown::Forget;
    if (former_.empty())
        breakOff_.request_stop();
    Ask(std::move(lock));
}

void KeepingThread::KeepFormer(FormerDesign former) {
    std::unique_lock lock(mutex_);
    if (former_.size() == mostWaiting)
        former_.pop_front();
    former_.push_back({std::move(former), nullptr});
    retries_ = true;
    Ask(std::move(lock));
}

void KeepingThread::KeepLeft() {
    std::unique_lock lock(mutex_);
    collects_ = true;
    Ask(std::move(lock));
}

void KeepingThread::CheckFiles() {
    std::unique_lock lock(mutex_);
    retries_ = true;
    if (shown_ == Shown::AsItIs)
        shown_ = Shown::Check;
    Ask(std::move(lock));
}

/// The first work starts the thread: most programs end without any.
void KeepingThread::Ask(std::unique_lock<std::mutex> lock) {
    const bool isNew = !thread_.joinable();
    lock.unlock();
    try {
        if (isNew)
            thread_ = std::thread([this] { Work(); });
    } catch (const std::system_error&) {
        throw RuntimeError(RuntimeError::OutOfMemory);
    }
    changed_.notify_all();
}

std::string KeepingThread::Wait() {
    std::unique_lock lock(mutex_);
    if (!thread_.joinable())
        while (HasWork())
            WorkOnce(lock);
    changed_.wait(lock, [this] { return !HasWork() && !isWorking_; });
    return failure_;
}

// --- Working ----------------------------------------------------------------------------------------------------

/// A former design that could not be kept is work again only when something is asked for.
bool KeepingThread::HasWork() const {
    return shown_ != Shown::AsItIs || collects_ || (retries_ && !former_.empty());
}

void KeepingThread::Work() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return ends_ || HasWork(); });
        if (!HasWork())
            return;
        WorkOnce(lock);
        if (HasWork())
            continue;
        const std::string failure = failure_;
        lock.unlock();
        changed_.notify_all();
        tell_(failure);
        lock.lock();
    }
}

void KeepingThread::WorkOnce(std::unique_lock<std::mutex>& lock) {
    isWorking_ = true;
    std::deque<Waiting> former = std::exchange(former_, {});
    const Shown shown = std::exchange(shown_, Shown::AsItIs);
    const OpenDesign design = design_;
    const bool collects = std::exchange(collects_, false);
    retries_ = false;
    breakOff_ = {};
    const std::stop_token stop = breakOff_.get_token();
    failureNow_.clear();
    lock.unlock();

    KeepWaiting(former);
    if (collects)
        Attempt([this] { KeepLeftDesigns(KeptFolder(folder_), folder_, leftReason, std::time(nullptr)); });
    DoShown(shown, design, stop);

    lock.lock();
    former_.insert(former_.begin(), std::make_move_iterator(former.begin()), std::make_move_iterator(former.end()));
    failure_ = failureNow_;
    isWorking_ = false;
}

/// Leaves those that could not be kept.
void KeepingThread::KeepWaiting(std::deque<Waiting>& waiting) {
    std::deque<Waiting> failed;
    for (Waiting& one : waiting) {
        const FormerDesign& former = one.former;
        const auto error = ErrorOf([&] { KeepDesign(KeptFolder(folder_), former.design, former.reason, former.left); });
        if (error) {
            failureNow_ = error->Description();
            SeekRefuge(one);
            failed.push_back(std::move(one));
        } else if (one.refuge) {
            one.refuge->StayBehind(false);
        }
    }
    waiting = std::move(failed);
}

void KeepingThread::SeekRefuge(Waiting& waiting) {
    if (waiting.refuge)
        return;
    Attempt([&] {
        auto refuge = std::make_unique<RecoveryFile>(folder_);
        refuge->Write(SnapshotOf(waiting.former.design));
        refuge->StayBehind(true);
        waiting.refuge = std::move(refuge);
    });
}

void KeepingThread::DoShown(Shown what, const OpenDesign& design, const std::stop_token& stop) {
    if (what == Shown::Keep || what == Shown::Forget)
        needsFile_ = what == Shown::Keep;
    if (what == Shown::Forget)
        file_.Remove();
    else if (needsFile_ && (what == Shown::Keep || (what == Shown::Check && !file_.IsInPlace())))
        Attempt([&] { file_.Write(SnapshotOf(design), stop); });
}

void KeepingThread::Attempt(const std::function<void()>& work) {
    if (const auto error = ErrorOf(work))
        failureNow_ = error->Description();
}

} // namespace pirol
