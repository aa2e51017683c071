#pragma once

#include "codegen/JavaGenerator.h"
#include "codegen/SourceTokens.h"

#include <string_view>

namespace pirol {

/// Which of the optional blocks a source holds: the menu bar, the database access.
CodeOptions HeldBlocks(const SourceTokens& tokens);
/// The same by a look at the text alone, which takes a commented block for one that is held.
CodeOptions SeeminglyHeldBlocks(std::string_view source);

} // namespace pirol
