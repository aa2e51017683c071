#pragma once

#include "controls/Control.h"

namespace pirol {

/// A text field that hides what is typed.
struct dPassword final : FocusableControl {
    std::string Caption; ///< initial text; the project file does not hold it
    std::string PassChar = "*";
    std::int16_t Align = 0;
    int Number = 0; ///< running number given at placement
    bool EventChanged = false;
    bool EventValidate = false;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dPassword&) const = default;
};

} // namespace pirol
