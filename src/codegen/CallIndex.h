#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pirol {

/// Reads argument texts of a source: what stands between a "(" and the next ");".
class ArgumentScanner {
  public:
    explicit ArgumentScanner(std::string_view source);

    /// The text from a position up to the next ");". Raises RuntimeError::InvalidCall when none follows, and
    /// OutOfMemory when all texts read so far are together much longer than the source: then statements without an end
    /// overlap each other, and reading them all would take far too long.
    std::string_view Read(std::size_t begin);

  private:
    std::string_view source_;
    std::size_t allowance_;
};

/// All calls of one method on any of the given variables, found in one pass over the source. A call counts wherever
/// "variable.method(" stands, in the middle of a longer name too.
class CallIndex {
  public:
    /// Raises RuntimeError::InvalidCall for a variable that is longer than any name in a Java program.
    CallIndex(std::string_view source, std::string_view method, const std::vector<std::string_view>& variables);

    /// The argument text of the variable's first call without double quotes, or the default. Raises what
    /// ArgumentScanner raises, under the label "Main.File.Import.GetValue" or "Main.File.Import.GetValues".
    std::string GetValue(std::string_view variable, std::string_view defaultValue);
    /// The argument texts of all its calls in the order of the source; none when there is no call.
    std::vector<std::string> GetValues(std::string_view variable);

  private:
    const std::vector<std::size_t>& ArgumentsOf(std::string_view variable) const;

    ArgumentScanner scanner_;
    std::string_view source_;
    std::unordered_map<std::string_view, std::vector<std::size_t>> argumentBegins_;
};

/// The text without its double quotes.
std::string WithoutQuotes(std::string_view text);

} // namespace pirol
