#pragma once

#include "model/ProjectModel.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace pirol {

/// The code menu's two check items.
struct CodeOptions {
    bool menu = false;     ///< write the menu bar
    bool database = false; ///< write the database access
};

/// The complete source of SuMAnwendung.java, UTF-8 with CR LF and no line end after the closing brace.
/// Names and texts are written as they are, whether or not Java accepts them. Linear in the size of the design.
/// Raises RuntimeError under the label "Main.File.Java.GenerateCode".
std::string GenerateCode(const ProjectModel& model, CodeOptions options);

/// The same source in pieces of whole characters, for callers that write it into a file: it is many times larger than
/// the design and is never in memory as a whole. Errors of the generator come before the first piece; those of `write`
/// pass through.
void WriteCode(const ProjectModel& model, CodeOptions options, const std::function<void(std::string_view)>& write);

/// The line, from 1, on which the source begins the handler method of that name; 0 when there is none.
std::size_t LineOfHandler(std::string_view source, std::string_view handler);

} // namespace pirol
