#pragma once

#include "codegen/GeneratedCode.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// Puts an updated source together from ranges of the old one and new lines. Places are positions in the new text.
class UpdateOutput {
  public:
    /// New lines end in `lineEnd`. The source must outlive it.
    UpdateOutput(std::string_view source, std::string_view lineEnd);

    /// Appends a range of the source, at the beginning of a line unless it goes on directly behind the range before;
    /// there so many blanks take the place of its own. Gives its place.
    std::size_t Copy(std::size_t begin, std::size_t end, std::size_t indent = 0);
    /// The same for what stays untouched and can be found again by NewPosition.
    void CopyOwn(std::size_t begin, std::size_t end);
    /// Appends new code in the place of a range of the source that ends at `end`.
    std::size_t Replace(std::string_view code, std::size_t end);
    /// Appends code in lines of its own.
    std::size_t AddLine(const GeneratedPiece& piece);
    /// Appends a text at the beginning of a line.
    void AddText(std::string_view line);

    /// A range of the source that stays untouched, and where it stands now.
    struct Own {
        std::size_t begin;
        std::size_t end;
        std::size_t place;
    };
    /// All of them in the order of the source.
    const std::vector<Own>& OwnRanges() const { return own_; }

    /// Where what stood at a position stands now; noPosition when it is in no untouched range. Logarithmic.
    std::size_t NewPosition(std::size_t position) const;

    /// All that was appended.
    const std::string& Text();
    std::string Take() { return std::move(text_); }

  private:
    void Flush();
    void BeginLine();
    void AppendCode(std::string_view code);

    std::string_view source_;
    std::string_view lineEnd_;
    std::string text_;
    std::size_t copiedBegin_ = 0; ///< of the range of the source that is appended next
    std::size_t copiedEnd_ = 0;
    std::vector<Own> own_;
};

} // namespace pirol
