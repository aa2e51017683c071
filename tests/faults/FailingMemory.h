#pragma once

namespace pirol::test {

/// The program's own operator new, which can be made fail.

/// From now on counts the allocations and lets the one of this number fail, from 1; with `goesOn` all later ones, too.
/// No number is 0.
void DisturbMemory(long number, bool goesOn);

/// Ends that; gives the number of allocations since then.
long LeaveMemoryAlone();

} // namespace pirol::test
