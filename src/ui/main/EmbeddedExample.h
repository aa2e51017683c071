#pragma once

#include <string_view>

namespace pirol {

/// A project of the examples by its file name; empty for an unknown one.
std::string_view EmbeddedExample(std::string_view name);

} // namespace pirol
