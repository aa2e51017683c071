#pragma once

#include "codegen/SourceTokens.h"

#include <cstddef>
#include <string_view>

namespace pirol {

/// The database's methods as generated, with "?" for every setting.
const SourceTokens& Queries();

/// The token with the name of a query in Queries(), or their count.
std::size_t FindQuery(std::string_view name);

} // namespace pirol
