#include "codegen/LineDifferences.h"

#include "codegen/SourceLines.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace pirol {
namespace {

using Number = std::uint32_t;

constexpr std::size_t none = static_cast<std::size_t>(-1);
/// Cells of the table by which a range without unique lines is compared.
constexpr std::size_t mostCells = 250'000;
/// Steps for each line before the rest counts as different. Ordinary texts need a tenth.
constexpr std::size_t stepsPerLine = 100;

/// Equal lines have the same number.
class Numbers {
  public:
    explicit Numbers(std::size_t expected) { numbers_.reserve(expected); }

    std::vector<Number> Of(const std::vector<std::string_view>& lines) {
        std::vector<Number> numbers;
        numbers.reserve(lines.size());
        for (const std::string_view line : lines)
            numbers.push_back(numbers_.emplace(line, static_cast<Number>(numbers_.size())).first->second);
        return numbers;
    }
    std::size_t Count() const { return numbers_.size(); }

  private:
    std::unordered_map<std::string_view, Number> numbers_;
};

/// A line of either text that are the same one.
struct Pair {
    std::size_t oldLine;
    std::size_t newLine;
};

/// The most pairs, given in the order of the old lines, whose new lines are in order, too.
std::vector<Pair> LongestInOrder(const std::vector<Pair>& pairs) {
    std::vector<std::size_t> ends; // of the best rows so far of each length: the last pair
    std::vector<std::size_t> before(pairs.size(), none);
    for (std::size_t index = 0; index < pairs.size(); ++index) {
        const auto place = std::partition_point(
            ends.begin(), ends.end(), [&](std::size_t end) { return pairs[end].newLine < pairs[index].newLine; });
        if (place != ends.begin())
            before[index] = *(place - 1);
        if (place == ends.end())
            ends.push_back(index);
        else
            *place = index;
    }
    std::vector<Pair> longest(ends.size());
    std::size_t index = ends.empty() ? none : ends.back();
    for (auto place = longest.rbegin(); place != longest.rend(); ++place, index = before[index])
        *place = pairs[index];
    return longest;
}

class Comparison {
  public:
    Comparison(std::vector<Number> before, std::vector<Number> after, std::size_t numbers)
        : before_(std::move(before)), after_(std::move(after)), uses_(numbers),
          stepsLeft_((before_.size() + after_.size()) * stepsPerLine + mostCells) {}

    std::vector<DifferentLines> Run() {
        ranges_.push_back({0, before_.size(), 0, after_.size()});
        while (!ranges_.empty()) {
            DifferentLines range = ranges_.back();
            ranges_.pop_back();
            StripEqual(range);
            Compare(range);
        }
        return std::move(differences_);
    }

  private:
    /// How often a line occurs in a range of each text, and where last.
    struct Use {
        Number oldCount = 0;
        Number newCount = 0;
        std::size_t newLine = 0;
    };

    void StripEqual(DifferentLines& range) const {
        while (range.oldBegin < range.oldEnd && range.newBegin < range.newEnd &&
               before_[range.oldBegin] == after_[range.newBegin]) {
            ++range.oldBegin;
            ++range.newBegin;
        }
        while (range.oldBegin < range.oldEnd && range.newBegin < range.newEnd &&
               before_[range.oldEnd - 1] == after_[range.newEnd - 1]) {
            --range.oldEnd;
            --range.newEnd;
        }
    }

    void Compare(const DifferentLines& range) {
        const std::size_t oldLines = range.oldEnd - range.oldBegin;
        const std::size_t newLines = range.newEnd - range.newBegin;
        if (oldLines == 0 || newLines == 0 || !MayTake(oldLines + newLines)) {
            Add(range);
            return;
        }
        const std::vector<Pair> anchors = LongestInOrder(UniquePairs(range));
        if (!anchors.empty())
            Divide(range, anchors);
        else if (oldLines * newLines <= mostCells && MayTake(oldLines * newLines / 4))
            CompareByTable(range);
        else
            Add(range);
    }

    bool MayTake(std::size_t steps) {
        const bool may = steps <= stepsLeft_;
        stepsLeft_ -= may ? steps : stepsLeft_;
        return may;
    }

    /// The lines that occur once in either range, in the order of the old ones.
    std::vector<Pair> UniquePairs(const DifferentLines& range) {
        for (std::size_t line = range.oldBegin; line < range.oldEnd; ++line)
            ++uses_[before_[line]].oldCount;
        for (std::size_t line = range.newBegin; line < range.newEnd; ++line) {
            ++uses_[after_[line]].newCount;
            uses_[after_[line]].newLine = line;
        }
        std::vector<Pair> pairs;
        for (std::size_t line = range.oldBegin; line < range.oldEnd; ++line)
            if (const Use& use = uses_[before_[line]]; use.oldCount == 1 && use.newCount == 1)
                pairs.push_back({line, use.newLine});
        for (std::size_t line = range.oldBegin; line < range.oldEnd; ++line)
            uses_[before_[line]] = {};
        for (std::size_t line = range.newBegin; line < range.newEnd; ++line)
            uses_[after_[line]] = {};
        return pairs;
    }

    /// Leaves what lies between the anchors, so that the first range is taken next.
    void Divide(const DifferentLines& range, const std::vector<Pair>& anchors) {
        DifferentLines rest = range;
        for (auto anchor = anchors.rbegin(); anchor != anchors.rend(); ++anchor) {
            ranges_.push_back({anchor->oldLine + 1, rest.oldEnd, anchor->newLine + 1, rest.newEnd});
            rest.oldEnd = anchor->oldLine;
            rest.newEnd = anchor->newLine;
        }
        ranges_.push_back(rest);
    }

    /// The longest common subsequence.
    void CompareByTable(const DifferentLines& range) {
        const std::size_t width = range.newEnd - range.newBegin + 1;
        std::vector<Number> longest((range.oldEnd - range.oldBegin + 1) * width);
        const auto at = [&](std::size_t oldLine, std::size_t newLine) -> Number& {
            return longest[(oldLine - range.oldBegin) * width + (newLine - range.newBegin)];
        };
        for (std::size_t oldLine = range.oldEnd; oldLine-- > range.oldBegin;)
            for (std::size_t newLine = range.newEnd; newLine-- > range.newBegin;)
                at(oldLine, newLine) = before_[oldLine] == after_[newLine]
                                           ? at(oldLine + 1, newLine + 1) + 1
                                           : std::max(at(oldLine + 1, newLine), at(oldLine, newLine + 1));
        DifferentLines open = {range.oldBegin, range.oldBegin, range.newBegin, range.newBegin};
        while (open.oldEnd < range.oldEnd && open.newEnd < range.newEnd) {
            if (before_[open.oldEnd] == after_[open.newEnd]) {
                Add(open);
                open = {open.oldEnd + 1, open.oldEnd + 1, open.newEnd + 1, open.newEnd + 1};
            } else if (at(open.oldEnd + 1, open.newEnd) >= at(open.oldEnd, open.newEnd + 1)) {
                ++open.oldEnd;
            } else {
                ++open.newEnd;
            }
        }
        Add({open.oldBegin, range.oldEnd, open.newBegin, range.newEnd});
    }

    void Add(const DifferentLines& range) {
        if (range.oldBegin != range.oldEnd || range.newBegin != range.newEnd)
            differences_.push_back(range);
    }

    std::vector<Number> before_;
    std::vector<Number> after_;
    std::vector<Use> uses_;
    std::vector<DifferentLines> ranges_; ///< the last one is compared next
    std::size_t stepsLeft_;
    std::vector<DifferentLines> differences_;
};

std::size_t RowsOf(const DifferentLines& difference) {
    return std::max(difference.oldEnd - difference.oldBegin, difference.newEnd - difference.newBegin);
}

/// The row of a line that the last difference beginning at or before it tells.
std::size_t RowOfLine(const std::vector<DifferentLines>& differences, const std::vector<std::size_t>& firstRows,
                      std::size_t DifferentLines::*begin, std::size_t DifferentLines::*end, std::size_t line) {
    const auto behind =
        std::partition_point(differences.begin(), differences.end(),
                             [&](const DifferentLines& difference) { return difference.*begin <= line; });
    if (behind == differences.begin())
        return line;
    const auto index = static_cast<std::size_t>(behind - differences.begin()) - 1;
    const DifferentLines& last = differences[index];
    return line < last.*end ? firstRows[index] + (line - last.*begin)
                            : firstRows[index] + RowsOf(last) + (line - last.*end);
}

} // namespace

std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    for (std::size_t at = 0; at < text.size(); at = BehindLine(text, at))
        lines.push_back(text.substr(at, EndOfLine(text, at) - at));
    return lines;
}

std::vector<DifferentLines> LineDifferences(const std::vector<std::string_view>& before,
                                            const std::vector<std::string_view>& after) {
    Numbers numbers(std::max(before.size(), after.size()));
    std::vector<Number> oldNumbers = numbers.Of(before);
    std::vector<Number> newNumbers = numbers.Of(after);
    return Comparison(std::move(oldNumbers), std::move(newNumbers), numbers.Count()).Run();
}

SideBySide::SideBySide(std::vector<DifferentLines> differences, std::size_t oldLines)
    : differences_(std::move(differences)) {
    firstRows_.reserve(differences_.size());
    std::size_t further = 0; // rows so far that the old text has no line for
    for (const DifferentLines& difference : differences_) {
        firstRows_.push_back(difference.oldBegin + further);
        further += RowsOf(difference) - (difference.oldEnd - difference.oldBegin);
    }
    rowCount_ = oldLines + further;
}

std::size_t SideBySide::EndRow(std::size_t difference) const {
    return firstRows_[difference] + RowsOf(differences_[difference]);
}

std::optional<std::size_t> SideBySide::LastBegunAt(std::size_t row) const {
    const auto behind = std::upper_bound(firstRows_.begin(), firstRows_.end(), row);
    if (behind == firstRows_.begin())
        return std::nullopt;
    return static_cast<std::size_t>(behind - firstRows_.begin()) - 1;
}

std::optional<std::size_t> SideBySide::DifferenceAt(std::size_t row) const {
    const std::optional<std::size_t> last = LastBegunAt(row);
    return last && row < EndRow(*last) ? last : std::nullopt;
}

SideBySide::Row SideBySide::operator[](std::size_t row) const {
    const std::optional<std::size_t> begun = LastBegunAt(row);
    if (!begun)
        return {row, row, false};
    const std::size_t index = *begun;
    const DifferentLines& last = differences_[index];
    if (row >= EndRow(index))
        return {last.oldEnd + (row - EndRow(index)), last.newEnd + (row - EndRow(index)), false};
    const std::size_t offset = row - firstRows_[index];
    Row result;
    result.differs = true;
    if (offset < last.oldEnd - last.oldBegin)
        result.oldLine = last.oldBegin + offset;
    if (offset < last.newEnd - last.newBegin)
        result.newLine = last.newBegin + offset;
    return result;
}

std::size_t SideBySide::RowOfOldLine(std::size_t line) const {
    return RowOfLine(differences_, firstRows_, &DifferentLines::oldBegin, &DifferentLines::oldEnd, line);
}

std::size_t SideBySide::RowOfNewLine(std::size_t line) const {
    return RowOfLine(differences_, firstRows_, &DifferentLines::newBegin, &DifferentLines::newEnd, line);
}

} // namespace pirol
