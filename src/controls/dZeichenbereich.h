#pragma once

#include "controls/TextArea.h"

namespace pirol {

/// A text area that wraps its lines at words.
struct dZeichenbereich final : TextArea {
    const ControlTable& Table() const override;

    bool operator==(const dZeichenbereich&) const = default;
};

} // namespace pirol
