#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace pirol {

/// Something in a source that is not in the design, or not as it stands there.
struct ReadRemark {
    std::size_t line; ///< from 1; 0 for what concerns no line
    std::string text; ///< German, UTF-8

    bool operator==(const ReadRemark&) const = default;
};

/// The remark as a line of a report: "Zeile 12: ...".
std::string RemarkLine(const ReadRemark& remark);

/// Not more than so many remarks are made, the last of which says so.
constexpr std::size_t mostRemarks = 1000;

/// Collects remarks in any order.
class RemarkList {
  public:
    void Add(std::size_t line, std::string text);
    /// All remarks in the order of the lines, then those that concern none.
    std::vector<ReadRemark> Sorted() const;

  private:
    std::vector<ReadRemark> remarks_;
};

} // namespace pirol
