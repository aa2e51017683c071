#pragma once

#include "codegen/GeneratedCode.h"
#include "codegen/NameMap.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace pirol {

/// Finds generated pieces that a source holds word for word, each alone in its lines: declarations, statements and
/// handlers of components, mostly in their order. Each is found once.
class KnownPieces {
  public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    /// Both must outlive it.
    KnownPieces(const GeneratedCode& wanted, std::string_view source);

    /// A piece that stands at a position of the source, and where it ends.
    struct Found {
        std::size_t piece;
        std::size_t end;
    };
    /// The piece at a position where a line's text begins; `none` without one. A few pieces are compared that follow
    /// the last one found; only where many in turn are not there all are looked through.
    Found Find(std::size_t begin);

  private:
    std::size_t EndAt(std::size_t piece, std::size_t begin) const;
    std::size_t EndOfLinesAt(std::string_view code, std::size_t begin) const;
    std::size_t FindAnywhere(std::size_t begin);

    const std::vector<GeneratedPiece>& pieces_;
    std::string_view source_;
    std::vector<bool> found_;
    std::size_t next_ = 0;
    std::size_t missed_ = 0;             ///< since the last one found
    NameMap<std::uint32_t> byFirstLine_; ///< when first needed
};

} // namespace pirol
