#pragma once

#include <string_view>

namespace pirol {

/// The bytes of a file of the BlueJ project template by its name ("bluej.pkg"); empty for an unknown name.
std::string_view BlueJTemplate(std::string_view name);

} // namespace pirol
