#pragma once

#include "controls/Control.h"

namespace pirol {

/// A check box.
struct dSchalter final : FocusableControl {
    std::string Caption;
    bool Checked = false; ///< the project file does not hold it
    bool EventClick = false;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dSchalter&) const = default;
};

} // namespace pirol
