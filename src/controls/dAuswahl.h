#pragma once

#include "controls/Control.h"

namespace pirol {

/// A selection box.
struct dAuswahl final : FocusableControl {
    std::vector<std::string> Entries;
    int Number = 0; ///< running number given at placement
    bool EventChanged = false;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dAuswahl&) const = default;
};

} // namespace pirol
