#pragma once

#include "controls/Control.h"

namespace pirol {

/// A group of radio buttons. The group itself is not seen in the running program; its buttons are.
struct dOptionsgruppe final : Control {
    std::vector<cRadioButton> OptionButtons;
    /// Decides for all buttons of the group. The project file does not hold it, so a loaded group has it on.
    bool EventClick = true;

    /// Makes the group the smallest rectangle around its buttons and their positions, which were the window's, relative
    /// to it. A group without buttons stays as it is. Raises RuntimeError::Overflow when the rectangle leaves the
    /// 16-bit range.
    void EncloseButtons();

    const ControlTable& Table() const override;
    std::string CreateHeaderText() const override;
    std::string CreateEventText() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dOptionsgruppe&) const = default;
};

} // namespace pirol
