#pragma once

#include "controls/Control.h"

namespace pirol {

/// A push button.
struct dButton final : FocusableControl {
    std::string Caption = "Knopf";
    int Number = 0; ///< running number given at placement
    bool EventClick = false;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dButton&) const = default;
};

} // namespace pirol
