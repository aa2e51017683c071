#include "codegen/JavaRemarks.h"

#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace pirol {

std::string RemarkLine(const ReadRemark& remark) {
    return remark.line == 0 ? remark.text : Concatenate("Zeile ", remark.line, ": ", remark.text);
}

void RemarkList::Add(std::size_t line, std::string text) {
    if (remarks_.size() + 1 < mostRemarks)
        remarks_.push_back({line, std::move(text)});
    else if (remarks_.size() < mostRemarks)
        remarks_.push_back({0, "Weitere Bemerkungen werden nicht gezeigt."});
}

std::vector<ReadRemark> RemarkList::Sorted() const {
    std::vector<ReadRemark> sorted = remarks_;
    // Unsigned arithmetic puts line 0 last.
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const ReadRemark& left, const ReadRemark& right) { return left.line - 1 < right.line - 1; });
    return sorted;
}

} // namespace pirol
