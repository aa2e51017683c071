#pragma once

#include <string_view>

namespace pirol {

/// The handbook and its pictures by file name; empty for an unknown one.
std::string_view EmbeddedHandbook(std::string_view name);

} // namespace pirol
