#pragma once

#include "app/Transport.h"
#include "app/UpdateSource.h"
#include "app/VersionList.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace pirol {

using SteadyClock = std::function<std::chrono::steady_clock::time_point()>;

/// Fetches the version list and says what it means for a program. Nothing is kept of a list that does not count.
class VersionLookup : private TransportListener {
  public:
    enum class State {
        Idle,
        Looking,
        Found,
        UpToDate,
        Failed,
    };

    /// A list that takes longer is given up.
    static constexpr std::chrono::seconds longest{60};

    /// `changed` is called whenever the state has changed. All that is passed must outlive the lookup.
    VersionLookup(Transport& transport, const UpdateSource& source, InstalledProgram program, SteadyClock clock,
                  std::function<void()> changed);
    ~VersionLookup() override;

    void Start();
    void Stop();

    State CurrentState() const { return state_; }
    /// Why it failed.
    UpdateFault Fault() const { return fault_; }
    /// The newer version, when one was found.
    const Offer& Found() const { return *offer_; }
    /// The serial of the list, when it counts: whoever asks next must not accept a lower one.
    std::uint32_t Serial() const { return serial_; }

  private:
    void Answered(const WebAnswer& answer) override;
    void Received(std::string_view bytes) override;
    void Ended(std::optional<UpdateFault> fault) override;
    void Read();
    void Finish(State state, UpdateFault fault = {});

    Transport& transport_;
    const UpdateSource& source_;
    InstalledProgram program_;
    SteadyClock clock_;
    std::function<void()> changed_;
    State state_ = State::Idle;
    UpdateFault fault_ = {};
    std::optional<Offer> offer_;
    std::uint32_t serial_ = 0;
    std::string bytes_;
    std::chrono::steady_clock::time_point started_;
};

} // namespace pirol
