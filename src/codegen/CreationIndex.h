#pragma once

#include "codegen/CallIndex.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pirol {

/// All creation statements "variable = new Class(" of the given classes, found in one pass over the source.
class CreationIndex {
  public:
    CreationIndex(std::string_view source, std::span<const std::string_view> javaClasses);

    /// The statements of one of the classes in the order of the source: variable name, a comma and the argument text,
    /// without any double quotes; the entries are separated by code 0. Raises what ArgumentScanner raises, under the
    /// label "Main.File.Import.GetAllLines".
    std::string GetAllLines(std::string_view javaClass) const;

  private:
    /// Where a statement's "=" and its arguments are.
    struct Statement {
        std::size_t equalsSign;
        std::size_t arguments;
    };

    std::string_view source_;
    std::unordered_map<std::string_view, std::vector<Statement>> statements_;
};

} // namespace pirol
