#pragma once

#include "controls/Control.h"

namespace pirol {

/// A film; it keeps its own size when placed.
struct dVideo final : Control {
    dVideo() {
        Width = 160;
        Height = 120;
    }

    std::string File;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dVideo&) const = default;
};

} // namespace pirol
