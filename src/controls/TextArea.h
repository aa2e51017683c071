#pragma once

#include "controls/Control.h"

namespace pirol {

/// What the two text areas have in common; they differ in nothing but their kind.
struct TextArea : FocusableControl {
    std::string Caption; ///< initial text
    int Number = 0;      ///< running number given at placement
    bool EventChanged = false;
    bool EventSelectionChanged = false;

    std::string CreateInitText(int left, int top) const override;

    bool operator==(const TextArea&) const = default;

  protected:
    static std::vector<PropertyRow> Rows();
};

} // namespace pirol
