#pragma once

#include "controls/Control.h"

namespace pirol {

/// A slider; it stands upright when it is higher than wide.
struct dRegler final : FocusableControl {
    std::int16_t Value = 0; ///< start value
    std::int16_t Min = 0;
    std::int16_t Max = 100;
    bool EventChanged = false;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dRegler&) const = default;
};

} // namespace pirol
