#pragma once

#include "controls/Control.h"

namespace pirol {

/// A label.
struct dEtikett final : Control {
    std::string Caption;
    std::int16_t Align = 0; ///< 0 left, 1 centre, 2 right
    std::int16_t FontSize = defaultFontSize;

    /// Stands for the library's own font; it writes no statement.
    static constexpr std::int16_t defaultFontSize = 8;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dEtikett&) const = default;
};

} // namespace pirol
