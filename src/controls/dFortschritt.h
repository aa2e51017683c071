#pragma once

#include "controls/Control.h"

namespace pirol {

/// A progress bar. The canvas shows it from left to right, however high it is.
struct dFortschritt final : Control {
    std::int16_t Min = 0;
    std::int16_t Max = 100;
    std::int16_t Value = 0; ///< start value; the project file does not hold it

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dFortschritt&) const = default;
};

} // namespace pirol
