#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace pirol {

/// Lines by which two texts differ: the new ones stand in the place of the old ones. Either range may be empty. Lines
/// count from 0.
struct DifferentLines {
    std::size_t oldBegin;
    std::size_t oldEnd;
    std::size_t newBegin;
    std::size_t newEnd;

    bool operator==(const DifferentLines&) const = default;
};

/// The lines of a text without their ends: CR LF, LF or CR. Behind a last line end stands no further line.
std::vector<std::string_view> LinesOf(std::string_view text);

/// What must be replaced in `before` to get `after`, in order; between two differences equal lines stand. Lines that
/// occur once keep their place, so that a moved or new method is one difference. Texts without such lines may give
/// larger differences than needed. Time grows little faster than the number of lines, whatever they hold; memory
/// linearly.
std::vector<DifferentLines> LineDifferences(const std::vector<std::string_view>& before,
                                            const std::vector<std::string_view>& after);

/// Two texts side by side: equal lines in the same row, and beside the lines of a difference that the other text lacks
/// nothing. Rows count from 0. Every question costs the logarithm of the number of differences.
class SideBySide {
  public:
    SideBySide() = default;
    SideBySide(std::vector<DifferentLines> differences, std::size_t oldLines);

    struct Row {
        std::optional<std::size_t> oldLine;
        std::optional<std::size_t> newLine;
        bool differs = false;
    };

    std::size_t RowCount() const { return rowCount_; }
    Row operator[](std::size_t row) const;
    std::size_t RowOfOldLine(std::size_t line) const;
    std::size_t RowOfNewLine(std::size_t line) const;

    std::size_t DifferenceCount() const { return differences_.size(); }
    std::size_t FirstRow(std::size_t difference) const { return firstRows_[difference]; }
    /// The difference that a row belongs to, if any.
    std::optional<std::size_t> DifferenceAt(std::size_t row) const;

  private:
    /// The last difference that begins at or before a row.
    std::optional<std::size_t> LastBegunAt(std::size_t row) const;
    std::size_t EndRow(std::size_t difference) const;

    std::vector<DifferentLines> differences_;
    std::vector<std::size_t> firstRows_; ///< of each difference
    std::size_t rowCount_ = 0;
};

} // namespace pirol
