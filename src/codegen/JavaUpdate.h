#pragma once

#include "codegen/JavaGenerator.h"
#include "codegen/NameChanges.h"
#include "codegen/UpdateRefusal.h"
#include "codegen/UpdateReport.h"
#include "model/ProjectModel.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// What a project file does not hold of a component, beside the properties that are not stored: which of the two text
/// areas it was.
constexpr std::string_view textAreaKind = "kind";

struct UpdateOptions {
    /// The code menu's check items. A block that the source holds counts as marked.
    CodeOptions marks;
    /// Take the menu bar or the database access out, whatever the marks say.
    bool withoutMenu = false;
    bool withoutDatabase = false;
    std::vector<NameChange> renames;
    /// Whether the value of a component's property is not known, because a project file does not hold it; the property
    /// by its key, or textAreaKind. Then what the source says of it stays. Empty: all is known.
    std::function<bool(std::string_view component, std::string_view property)> isUnknown;
    /// The file is Windows-1252: a character that it lacks is written as "?".
    bool windows1252 = false;
};

struct JavaUpdate {
    std::string source; ///< UTF-8, with the line ends of the source before
    std::vector<UpdateEntry> entries;
    CodeOptions held; ///< the optional blocks that the source before holds
};

/// Brings a source that pupils write in up to date with a design. What Pirol writes is brought into the design's state
/// and order; every other line survives byte for byte, in its order, behind the last placed of those of Pirol's lines
/// that stood before it. A source that is up to date comes back unchanged. Linear in the length of the source and the
/// size of the design.
/// Raises UpdateRefusal when the source cannot be brought up to date, and what GenerateCode raises.
JavaUpdate UpdateJava(std::string_view source, const ProjectModel& model, const UpdateOptions& options);

} // namespace pirol
