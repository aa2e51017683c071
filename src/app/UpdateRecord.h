#pragma once

#include <cstdint>
#include <ctime>

/// What the online update remembers from one run to the next, in the user's store of settings. Failures are silent:
/// what is not there counts as never.
namespace pirol::updaterecord {

/// The highest serial of all version lists that were accepted; 0 before the first.
std::uint32_t HighestSerial();
/// Remembers a serial when it is higher than all before.
void AddSerial(std::uint32_t serial);

/// Whether a week has passed since the last look for a new version. A clock that was set back does not put it off.
bool IsLookDue(std::time_t now);
void AddLook(std::time_t now);

} // namespace pirol::updaterecord
