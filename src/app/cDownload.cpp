#include "app/cDownload.h"

#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace pirol {
namespace {

/// A request that brings less counts as vain.
constexpr std::uint64_t leastProgress = 65536;
constexpr int mostVainRequests = 5;
constexpr std::size_t longestMark = 200;
constexpr std::chrono::seconds speedSpan{4};
constexpr std::chrono::milliseconds sampleSpan{250};

/// The mark that a later request may name: a strong tag, else the time of the last change.
std::string MarkOf(const WebAnswer& answer) {
    const std::string& mark = answer.tag.starts_with('"') ? answer.tag : answer.changed;
    const bool isPlain = std::all_of(mark.begin(), mark.end(), [](char sign) { return sign >= ' ' && sign < '\x7F'; });
    return isPlain && mark.size() <= longestMark ? mark : std::string();
}

} // namespace

cDownload::cDownload(Transport& transport, DownloadTarget& target, OfferedFile file, std::string url, SteadyClock clock,
                     std::function<void()> changed)
    : transport_(transport), target_(target), file_(std::move(file)), url_(std::move(url)), clock_(std::move(clock)),
      changed_(std::move(changed)) {}

cDownload::~cDownload() {
    if (state_ == State::Loading)
        transport_.Stop();
}

/// Every way in from outside: whatever fails ends the download in a state that Start leads out of.
template <class Operation>
void cDownload::Guarded(Operation operation) {
    try {
        operation();
    } catch (const UpdateError& error) {
        Fail(error.Fault());
    } catch (const RuntimeError& error) {
        const bool isFull = error.ErrorNumber() == RuntimeError::DiskFull;
        if (!isFull)
            error_ = error;
        Fail(isFull ? UpdateFault::DiskFull : UpdateFault::FolderUnusable);
    }
}

void cDownload::Prepare() {
    Guarded([this] {
        target_.Hold();
        loaded_ = std::min(target_.Size(), file_.size);
        if (loaded_ == file_.size)
            Complete();
        else
            Change(State::Idle);
    });
}

void cDownload::Start() {
    if (state_ == State::Loading || state_ == State::Complete)
        return;
    error_.reset();
    vainRequests_ = 0;
    beganAnew_ = false;
    Guarded([this] {
        target_.Hold();
        Request();
    });
}

void cDownload::Pause() {
    if (state_ != State::Loading)
        return;
    transport_.Stop();
    Change(State::Idle);
}

void cDownload::Cancel() {
    transport_.Stop();
    Guarded([this] {
        target_.Hold();
        target_.Clear();
        loaded_ = 0;
        Change(State::Idle);
    });
}

void cDownload::Request() {
    if (target_.Size() > file_.size)
        target_.Clear();
    from_ = loaded_ = target_.Size();
    if (loaded_ == file_.size) {
        Complete();
        return;
    }
    samples_.clear();
    Change(State::Loading);
    transport_.Start({url_, from_, from_ == 0 ? std::string() : target_.Mark()}, *this);
}

void cDownload::Answered(const WebAnswer& answer) {
    Guarded([&] {
        if (const std::optional<UpdateFault> fault = FaultOfStatus(answer.status))
            Fail(*fault);
        else if (answer.status == 200)
            AcceptWhole(answer);
        else if (answer.status == 206)
            AcceptRest(answer);
        else
            BeginAnew(); // there is no such rest: what is here comes from another file
    });
}

void cDownload::AcceptWhole(const WebAnswer& answer) {
    if (answer.type.starts_with("text/html")) {
        Fail(UpdateFault::WebPage);
    } else if (answer.IsPacked()) {
        Fail(UpdateFault::BadAnswer);
    } else if (answer.length.value_or(file_.size) != file_.size) {
        Fail(UpdateFault::OtherFile);
    } else {
        target_.Clear();
        target_.SetMark(MarkOf(answer));
        from_ = loaded_ = 0;
    }
}

void cDownload::AcceptRest(const WebAnswer& answer) {
    const std::string wanted = Concatenate("bytes ", from_, "-", file_.size - 1, "/", file_.size);
    const std::string mark = MarkOf(answer);
    const bool isSameFile = mark.empty() || target_.Mark().empty() || mark == target_.Mark();
    if (from_ == 0 || answer.range != wanted || !isSameFile || answer.IsPacked())
        BeginAnew();
}

void cDownload::BeginAnew() {
    transport_.Stop();
    if (std::exchange(beganAnew_, true)) {
        Fail(UpdateFault::BadAnswer);
        return;
    }
    target_.Clear();
    Request();
}

void cDownload::Received(std::string_view bytes) {
    Guarded([&] {
        if (bytes.size() > file_.size - loaded_) {
            target_.Clear();
            loaded_ = 0;
            Fail(UpdateFault::FileTooLong);
            return;
        }
        target_.Append(bytes);
        loaded_ += bytes.size();
        const auto now = clock_();
        if (samples_.empty() || now - samples_.back().time >= sampleSpan)
            samples_.push_back({now, loaded_});
        while (now - samples_.front().time > speedSpan && samples_.size() > 2)
            samples_.pop_front();
        changed_();
    });
}

void cDownload::Ended(std::optional<UpdateFault> fault) {
    Guarded([&] {
        if (loaded_ == file_.size)
            Complete();
        else
            GoOnAfter(fault.value_or(UpdateFault::ConnectionLost));
    });
}

/// Takes a broken connection up again, unless that has become pointless.
void cDownload::GoOnAfter(UpdateFault fault) {
    const bool broke = fault == UpdateFault::ConnectionLost || fault == UpdateFault::TimedOut;
    vainRequests_ = loaded_ - from_ < leastProgress ? vainRequests_ + 1 : 0;
    if (broke && loaded_ > from_ && vainRequests_ < mostVainRequests)
        Request();
    else
        Fail(fault);
}

void cDownload::Complete() {
    transport_.Stop();
    UnderLabel("Update.DownloadCompleted", [this] {
        if (target_.Hash() == file_.hash) {
            path_ = target_.Finish();
            Change(State::Complete);
            return;
        }
        target_.Clear();
        loaded_ = 0;
        Fail(UpdateFault::FileDamaged);
    });
}

void cDownload::Fail(UpdateFault fault) {
    transport_.Stop();
    fault_ = fault;
    Change(State::Failed);
}

void cDownload::Change(State state) {
    state_ = state;
    changed_();
}

double cDownload::BytesPerSecond() const {
    if (state_ != State::Loading || samples_.size() < 2 || clock_() - samples_.back().time > speedSpan)
        return 0;
    const std::chrono::duration<double> time = samples_.back().time - samples_.front().time;
    return static_cast<double>(samples_.back().loaded - samples_.front().loaded) / time.count();
}

} // namespace pirol
