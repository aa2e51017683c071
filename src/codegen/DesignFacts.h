#pragma once

#include "model/ProjectModel.h"

#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// What a design holds, in the words that its user reads. All texts are UTF-8, without line breaks.

/// One property of a part of the design.
struct DesignFact {
    std::string_view label;
    std::string value;     ///< texts between » and «, whole numbers, the words of choices and flags
    bool isList = false;   ///< then `items` counts, not `value`
    bool isSecret = false; ///< then `value` must not be shown
    std::vector<std::string> items{};

    bool operator==(const DesignFact&) const = default;
};

std::vector<DesignFact> WindowFacts(const ProjectModel& model);
/// The menu bar's lines, each with the menu it lies in.
DesignFact MenuFact(const MenuBar& menus);
std::vector<DesignFact> DatabaseFacts(const SQLSettings& sql);

/// The value of one row of the component's property table.
DesignFact FactOf(const Control& control, const PropertyRow& row);
/// What the user calls a component: its kind and its name.
std::string NameOf(const Control& control);

/// The whole design as text, lines of LF: each part with a fact a line, so that tools that compare texts say what
/// differs. Components stand kind by kind. Linear in the size of the design.
std::string DesignText(const ProjectModel& model);

} // namespace pirol
