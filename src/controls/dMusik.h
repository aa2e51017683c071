#pragma once

#include "controls/Control.h"

namespace pirol {

/// A sound; it is not seen in the running program.
struct dMusik final : Control {
    dMusik() {
        Width = 32;
        Height = 32;
    }

    std::string File;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dMusik&) const = default;
};

} // namespace pirol
