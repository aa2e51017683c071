#pragma once

#include "controls/Control.h"

namespace pirol {

/// A text field of one line.
struct dText final : FocusableControl {
    std::string Caption;    ///< initial text
    std::int16_t Align = 0; ///< 0 left, 1 centre, 2 right; stored, but the generated program does not use it
    bool EventChanged = false;
    bool EventValidate = false;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dText&) const = default;
};

} // namespace pirol
