#include "app/VersionLookup.h"

#include <utility>

namespace pirol {

VersionLookup::VersionLookup(Transport& transport, const UpdateSource& source, InstalledProgram program,
                             SteadyClock clock, std::function<void()> changed)
    : transport_(transport), source_(source), program_(std::move(program)), clock_(std::move(clock)),
      changed_(std::move(changed)) {}

VersionLookup::~VersionLookup() {
    Stop();
}

void VersionLookup::Start() {
    Stop();
    bytes_.clear();
    offer_.reset();
    started_ = clock_();
    state_ = State::Looking;
    changed_();
    transport_.Start({source_.UrlOf(versionListName), 0, {}}, *this);
}

void VersionLookup::Stop() {
    if (state_ != State::Looking)
        return;
    transport_.Stop();
    state_ = State::Idle;
}

void VersionLookup::Answered(const WebAnswer& answer) {
    if (const std::optional<UpdateFault> fault = FaultOfStatus(answer.status))
        Finish(State::Failed, *fault);
    else if (answer.type.starts_with("text/html"))
        Finish(State::Failed, UpdateFault::WebPage);
    else if (answer.status != 200 || answer.IsPacked())
        Finish(State::Failed, UpdateFault::BadAnswer);
    else if (answer.length.value_or(0) > longestList)
        Finish(State::Failed, UpdateFault::ListTooLong);
}

void VersionLookup::Received(std::string_view bytes) {
    if (bytes_.size() + bytes.size() > longestList)
        Finish(State::Failed, UpdateFault::ListTooLong);
    else if (clock_() - started_ > longest)
        Finish(State::Failed, UpdateFault::TimedOut);
    else
        bytes_ += bytes;
}

void VersionLookup::Ended(std::optional<UpdateFault> fault) {
    if (fault) {
        Finish(State::Failed, *fault);
        return;
    }
    try {
        Read();
    } catch (const UpdateError& error) {
        Finish(State::Failed, error.Fault());
    }
}

void VersionLookup::Read() {
    const VersionList list = ReadVersionList(bytes_, source_.keys);
    offer_ = OfferOf(list, program_);
    serial_ = list.serial;
    program_.highestSerial = list.serial;
    Finish(offer_ ? State::Found : State::UpToDate);
}

void VersionLookup::Finish(State state, UpdateFault fault) {
    transport_.Stop();
    bytes_.clear();
    state_ = state;
    fault_ = fault;
    changed_();
}

} // namespace pirol
