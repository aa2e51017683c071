#pragma once

#include <algorithm>
#include <vector>

namespace pirol {

/// The middle of some measured values, of which there must be at least one.
inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace pirol
