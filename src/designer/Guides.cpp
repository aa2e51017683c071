#include "designer/Guides.h"

#include "designer/ComponentLook.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <iterator>
#include <tuple>

namespace pirol {
namespace {

/// Neighbours are sought among so many boxes at most, so that a crowd costs no more than a few.
constexpr int mostSteps = 48;
/// A margin that is larger than this is no margin.
constexpr int largestMargin = 100;

int Middle(int begin, int end) {
    return begin + (end - begin) / 2;
}

} // namespace

Guides::Guides(const std::vector<GuideBox>& others, int windowWidth, int windowHeight)
    : x_(SpansOf(others, true), windowWidth, windowHeight, true),
      y_(SpansOf(others, false), windowHeight, windowWidth, false) {}

std::vector<Guides::Span> Guides::SpansOf(const std::vector<GuideBox>& boxes, bool isX) {
    std::vector<Span> spans;
    spans.reserve(boxes.size());
    for (const GuideBox& box : boxes)
        spans.push_back(SpanOf(box, isX));
    return spans;
}

Guides::Span Guides::SpanOf(const GuideBox& box, bool isX) {
    const Rectangle& place = box.box;
    if (isX)
        return {place.left, place.Right(), place.top, place.Bottom(), std::nullopt};
    return {place.top, place.Bottom(), place.left, place.Right(), box.baseline};
}

Guides::Found Guides::Find(const GuideBox& moved, MovingSides sides, bool pulls) const {
    Found found;
    Span x = SpanOf(moved, true);
    Span y = SpanOf(moved, false);
    const Side sideX = {sides.left, sides.right};
    const Side sideY = {sides.top, sides.bottom};
    if (pulls) {
        found.x = x_.Pull(x, sideX);
        found.y = y_.Pull(y, sideY);
    }
    const auto shift = [](Span& span, Span& other, Side side, int by) {
        (side.begin ? span.begin : span.end) += by;
        if (side.IsWhole()) {
            span.end += by;
            if (span.baseline)
                *span.baseline += by;
        }
        other.acrossBegin = span.begin;
        other.acrossEnd = span.end;
    };
    shift(x, y, sideX, found.x);
    shift(y, x, sideY, found.y);
    x_.AddLines(x, sideX, found.lines);
    y_.AddLines(y, sideY, found.lines);
    return found;
}

// --- One direction ----------------------------------------------------------------------------------------------

Guides::Direction::Direction(std::vector<Span> others, int length, int acrossLength, bool isUpright)
    : length_(length), isUpright_(isUpright), leastBegin_(length), leastRest_(length) {
    edges_ = {{0, 0, acrossLength}, {length, 0, acrossLength}};
    middles_ = {{length / 2, 0, acrossLength}};
    for (const Span& other : others) {
        edges_.push_back({other.begin, other.acrossBegin, other.acrossEnd});
        edges_.push_back({other.end, other.acrossBegin, other.acrossEnd});
        middles_.push_back({Middle(other.begin, other.end), other.acrossBegin, other.acrossEnd});
        if (other.baseline)
            baselines_.push_back({*other.baseline, other.acrossBegin, other.acrossEnd});
        if (other.begin >= 0)
            leastBegin_ = std::min(leastBegin_, other.begin);
        if (other.end <= length)
            leastRest_ = std::min(leastRest_, length - other.end);
    }
    for (Marks* marks : {&edges_, &middles_, &baselines_})
        std::sort(marks->begin(), marks->end(), [](const Mark& a, const Mark& b) {
            return std::tie(a.position, a.begin) < std::tie(b.position, b.begin);
        });
    byEnd_ = others;
    byBegin_ = std::move(others);
    std::sort(byBegin_.begin(), byBegin_.end(), [](const Span& a, const Span& b) { return a.begin < b.begin; });
    std::sort(byEnd_.begin(), byEnd_.end(), [](const Span& a, const Span& b) { return a.end < b.end; });
}

int Guides::Direction::Pull(const Span& moved, Side side) const {
    int best = reach + 1;
    const auto consider = [&best](int by) {
        if (std::abs(by) < std::abs(best))
            best = by;
    };
    const auto considerMarks = [&consider](const Marks& marks, int place) {
        const auto behind = std::lower_bound(marks.begin(), marks.end(), place,
                                             [](const Mark& mark, int position) { return mark.position < position; });
        if (behind != marks.end())
            consider(behind->position - place);
        if (behind != marks.begin())
            consider(std::prev(behind)->position - place);
    };
    if (side.begin)
        considerMarks(edges_, moved.begin);
    if (side.end)
        considerMarks(edges_, moved.end);
    if (side.end && leastBegin_ <= largestMargin)
        consider(length_ - leastBegin_ - moved.end);
    if (side.begin && leastRest_ <= largestMargin)
        consider(leastRest_ - moved.begin);
    if (side.IsWhole()) {
        considerMarks(middles_, Middle(moved.begin, moved.end));
        if (moved.baseline)
            considerMarks(baselines_, *moved.baseline);
        AddGapPulls(moved, consider);
    }
    return std::abs(best) <= reach ? best : 0;
}

/// The nearest one that ends before the span begins, beside it; `slack`: it may overlap by so much.
const Guides::Span* Guides::Direction::Before(const Span& span, int slack) const {
    auto behind = std::upper_bound(byEnd_.begin(), byEnd_.end(), span.begin + slack,
                                   [](int position, const Span& other) { return position < other.end; });
    for (int step = 0; step < mostSteps && behind != byEnd_.begin(); ++step) {
        --behind;
        if (behind->acrossBegin < span.acrossEnd && span.acrossBegin < behind->acrossEnd && behind->begin < span.begin)
            return &*behind;
    }
    return nullptr;
}

const Guides::Span* Guides::Direction::After(const Span& span, int slack) const {
    auto next = std::lower_bound(byBegin_.begin(), byBegin_.end(), span.end - slack,
                                 [](const Span& other, int position) { return other.begin < position; });
    for (int step = 0; step < mostSteps && next != byBegin_.end(); ++step, ++next)
        if (next->acrossBegin < span.acrossEnd && span.acrossBegin < next->acrossEnd && next->end > span.end)
            return &*next;
    return nullptr;
}

void Guides::Direction::AddGapPulls(const Span& moved, const std::function<void(int)>& consider) const {
    const Span* const before = Before(moved, reach);
    const Span* const after = After(moved, reach);
    if (before != nullptr && after != nullptr) {
        const int rest = after->begin - before->end - (moved.end - moved.begin);
        if (rest >= 0 && rest % 2 == 0)
            consider(before->end + rest / 2 - moved.begin);
    }
    if (const Span* const further = before != nullptr ? Before(*before, 0) : nullptr)
        consider(before->end + (before->begin - further->end) - moved.begin);
    if (const Span* const further = after != nullptr ? After(*after, 0) : nullptr)
        consider(after->begin - (further->begin - after->end) - moved.end);
}

void Guides::Direction::AddLines(const Span& moved, Side side, std::vector<GuideLine>& lines) const {
    const std::size_t before = lines.size();
    if (side.begin)
        AddAligned(edges_, moved.begin, moved.begin, moved, lines);
    if (side.end)
        AddAligned(edges_, moved.end, moved.end - 1, moved, lines);
    if (side.IsWhole()) {
        // Where edges line up, middles and texts often do as well, and more lines would only hide what is there.
        const int middle = Middle(moved.begin, moved.end);
        if (lines.size() == before)
            AddAligned(middles_, middle, middle, moved, lines);
        if (lines.size() == before && moved.baseline)
            AddAligned(baselines_, *moved.baseline, *moved.baseline, moved, lines);
        AddGaps(moved, lines);
    }
    AddMargins(moved, side, lines);
}

/// A line from the moved box to the nearest of those that lie at the place.
void Guides::Direction::AddAligned(const Marks& marks, int place, int shownAt, const Span& moved,
                                   std::vector<GuideLine>& lines) const {
    const auto isBefore = [](const Mark& mark, const Mark& sought) {
        return std::tie(mark.position, mark.begin) < std::tie(sought.position, sought.begin);
    };
    const auto behind = std::lower_bound(marks.begin(), marks.end(), Mark{place, moved.acrossBegin, 0}, isBefore);
    const auto distanceTo = [&moved](const Mark& mark) {
        return std::max({mark.begin - moved.acrossEnd, moved.acrossBegin - mark.end, 0});
    };
    const Mark* nearest = behind != marks.end() && behind->position == place ? &*behind : nullptr;
    if (behind != marks.begin() && std::prev(behind)->position == place &&
        (nearest == nullptr || distanceTo(*std::prev(behind)) < distanceTo(*nearest)))
        nearest = &*std::prev(behind);
    if (nearest == nullptr)
        return;
    const int gapBegin = std::min(nearest->end, moved.acrossEnd);
    const int gapEnd = std::max(nearest->begin, moved.acrossBegin);
    lines.push_back({isUpright_, shownAt, std::min(nearest->begin, moved.acrossBegin),
                     std::max(nearest->end, moved.acrossEnd), distanceTo(*nearest), Middle(gapBegin, gapEnd)});
}

void Guides::Direction::AddGaps(const Span& moved, std::vector<GuideLine>& lines) const {
    const Span* const before = Before(moved, 0);
    const Span* const after = After(moved, 0);
    const int gapBefore = before != nullptr ? moved.begin - before->end : 0;
    const int gapAfter = after != nullptr ? after->begin - moved.end : 0;
    const Span* const furtherBefore = before != nullptr ? Before(*before, 0) : nullptr;
    const Span* const furtherAfter = after != nullptr ? After(*after, 0) : nullptr;
    const bool isMiddle = gapBefore > 0 && gapBefore == gapAfter;
    const bool goesOn = furtherBefore != nullptr && gapBefore > 0 && before->begin - furtherBefore->end == gapBefore;
    const bool leadsOn = furtherAfter != nullptr && gapAfter > 0 && furtherAfter->begin - after->end == gapAfter;
    if (isMiddle || goesOn)
        AddDistance(before->end, moved.begin, moved, lines);
    if (goesOn)
        AddDistance(furtherBefore->end, before->begin, *before, lines);
    if (isMiddle || leadsOn)
        AddDistance(moved.end, after->begin, moved, lines);
    if (leadsOn)
        AddDistance(after->end, furtherAfter->begin, *after, lines);
}

void Guides::Direction::AddMargins(const Span& moved, Side side, std::vector<GuideLine>& lines) const {
    const auto isMargin = [](int pixels) { return pixels > 0 && pixels <= largestMargin; };
    if (side.end && isMargin(leastBegin_) && moved.end == length_ - leastBegin_)
        AddDistance(moved.end, length_, moved, lines);
    if (side.begin && isMargin(leastRest_) && moved.begin == leastRest_)
        AddDistance(0, moved.begin, moved, lines);
}

/// A line along the direction, in the middle of what it lies beside.
void Guides::Direction::AddDistance(int begin, int end, const Span& beside, std::vector<GuideLine>& lines) const {
    lines.push_back(
        {!isUpright_, Middle(beside.acrossBegin, beside.acrossEnd), begin, end, end - begin, Middle(begin, end)});
}

Guides GuidesIn(const ProjectModel& model, const std::function<bool(ComponentRef)>& isDragged) {
    std::vector<GuideBox> others;
    for (const ComponentRef component : model.CreationOrder()) {
        const Control& control = model.Element(component);
        if (control.Visible && !isDragged(component))
            others.push_back({model.VisibleBox(component), BaselineOf(control)});
    }
    return {others, model.WindowWidth(), model.WindowHeight()};
}

} // namespace pirol
