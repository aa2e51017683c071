#pragma once

#include <string_view>

namespace pirol {

/// The examples' projects and their pictures by file name; empty for an unknown one.
std::string_view EmbeddedExample(std::string_view name);

} // namespace pirol
