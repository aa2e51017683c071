#pragma once

#include "codegen/SourceTokens.h"

#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace pirol {

/// A source that cannot be brought up to date. The German message names the line.
class UpdateRefusal : public std::runtime_error {
  public:
    UpdateRefusal(std::size_t line, std::string_view message);
    std::size_t Line() const { return line_; }

  private:
    std::size_t line_;
};

/// The line of a token, from 1.
std::size_t LineOf(const SourceTokens& tokens, std::size_t token);

/// Raises UpdateRefusal for the line of a token.
[[noreturn]] void Refuse(const SourceTokens& tokens, std::size_t token, std::string_view message);

} // namespace pirol
