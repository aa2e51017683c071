#pragma once

#include "controls/TextArea.h"

namespace pirol {

/// A text area that keeps its lines as they are.
struct dZeilenbereich final : TextArea {
    const ControlTable& Table() const override;

    bool operator==(const dZeilenbereich&) const = default;
};

} // namespace pirol
