#pragma once

#include "controls/Control.h"

namespace pirol {

/// A picture; it keeps its own size when placed.
struct dBild final : Control {
    dBild() {
        Width = 160;
        Height = 120;
    }

    std::string File;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dBild&) const = default;
};

} // namespace pirol
