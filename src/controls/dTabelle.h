#pragma once

#include "controls/Control.h"

namespace pirol {

/// A table.
struct dTabelle final : FocusableControl {
    std::int16_t Rows = 5;
    std::vector<std::string> Columns = {"Spalte 1", "Spalte 2", "Spalte 3"}; ///< the columns' titles
    bool EventChanged = false;
    bool EventSelectionChanged = false;

    const ControlTable& Table() const override;
    std::string CreateInitText(int left, int top) const override;

    bool operator==(const dTabelle&) const = default;
};

} // namespace pirol
