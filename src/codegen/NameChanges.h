#pragma once

#include "codegen/UpdateReport.h"

#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// A component or radio button that got another name since a source was last written.
struct NameChange {
    std::string before;
    std::string now;
};

struct RenamedSource {
    std::string source;
    std::vector<UpdateEntry> entries; ///< one for each name that was changed
};

/// The source, UTF-8, in which every mention outside strings and comments has the new name, and Pirol's own strings and
/// comments, too. Only what the source declares under the old name is renamed, with its handlers, and only to a name
/// that is free there by then. Lines stay where they are. Raises RuntimeError::OutOfMemory for a source of more tokens
/// than any program has.
RenamedSource WithNewNames(std::string_view source, const std::vector<NameChange>& renames);

} // namespace pirol
