#include "designer/ComponentIndex.h"

#include <algorithm>

namespace pirol {
namespace {

constexpr int cellSize = 64;
constexpr std::int64_t mostCells = 64;

int CellOf(int pixel) {
    return pixel >= 0 ? pixel / cellSize : -1 - (-1 - pixel) / cellSize;
}

/// The cells that a rectangle touches.
struct CellRange {
    int left;
    int top;
    int right;
    int bottom;

    explicit CellRange(const Rectangle& box)
        : left(CellOf(box.left)), top(CellOf(box.top)), right(CellOf(box.Right() - 1)),
          bottom(CellOf(box.Bottom() - 1)) {}

    std::int64_t Count() const { return (std::int64_t{right} - left + 1) * (std::int64_t{bottom} - top + 1); }
};

std::uint32_t CellKey(int cellX, int cellY) {
    return static_cast<std::uint32_t>(cellX) << 16 ^ (static_cast<std::uint32_t>(cellY) & 0xFFFF);
}

template <class Function>
void ForEachCell(const CellRange& range, Function&& function) {
    for (int y = range.top; y <= range.bottom; ++y)
        for (int x = range.left; x <= range.right; ++x)
            function(x, y);
}

bool IsEmpty(const Rectangle& box) {
    return box.width <= 0 || box.height <= 0;
}

} // namespace

Rectangle& ComponentIndex::BoxOf(ComponentRef component) {
    std::vector<Rectangle>& boxes = boxes_[Position(component.kind)];
    if (component.index >= boxes.size())
        boxes.resize(component.index + 1);
    return boxes[component.index];
}

const Rectangle& ComponentIndex::BoxOf(ComponentRef component) const {
    return boxes_[Position(component.kind)][component.index];
}

void ComponentIndex::Begin() {
    taken_ = 0;
    boxes_ = {};
    cells_.clear();
    large_.clear();
    for (const KindRow& row : KindRows())
        boxes_[Position(row.kind)].reserve(model_.ElementCount(row.kind));
}

void ComponentIndex::TakeIn() {
    constexpr std::size_t part = 10'000;
    const std::size_t end = std::min(model_.CreationOrder().size(), taken_ + part);
    for (; taken_ < end; ++taken_)
        Update(model_.CreationOrder()[taken_]);
}

void ComponentIndex::Update(ComponentRef component) {
    // One that is gone may have moved the others in the order of their creation.
    if (component.index >= model_.ElementCount(component.kind))
        taken_ = 0;
    Rectangle& known = BoxOf(component);
    const Rectangle box = model_.VisibleBox(component);
    if (box == known)
        return;
    Remove(component, known);
    Add(component, box);
    known = box;
}

/// Calls `function(component, box)` for those that no cell holds yet.
template <class Function>
void ComponentIndex::ForEachLeft(Function&& function) const {
    const PagedArray<ComponentRef>& order = model_.CreationOrder();
    for (std::size_t place = taken_; place < order.size(); ++place)
        if (const Rectangle box = model_.VisibleBox(order[place]); !IsEmpty(box))
            function(order[place], box);
}

std::optional<ComponentRef> ComponentIndex::TopmostAt(int x, int y) const {
    std::optional<ComponentRef> topmost;
    const auto look = [&](ComponentRef candidate, const Rectangle& box) {
        if (box.Contains(x, y) && (!topmost || OrderOf(candidate) > OrderOf(*topmost)))
            topmost = candidate;
    };
    const auto lookAll = [&](const std::vector<ComponentRef>& candidates) {
        for (const ComponentRef candidate : candidates)
            look(candidate, BoxOf(candidate));
    };
    lookAll(large_);
    if (const auto cell = cells_.find(CellKey(CellOf(x), CellOf(y))); cell != cells_.end())
        lookAll(cell->second);
    ForEachLeft(look);
    return topmost;
}

std::vector<ComponentRef> ComponentIndex::Intersecting(std::span<const Rectangle> areas) const {
    std::vector<ComponentRef> found;
    for (const Rectangle& area : areas)
        CollectIntersecting(area, found);
    ForEachLeft([&](ComponentRef component, const Rectangle& box) {
        if (std::any_of(areas.begin(), areas.end(), [&](const Rectangle& area) { return box.Intersects(area); }))
            found.push_back(component);
    });
    std::vector<std::pair<std::uint64_t, ComponentRef>> ordered;
    ordered.reserve(found.size());
    for (const ComponentRef component : found)
        ordered.emplace_back(OrderOf(component), component);
    std::sort(ordered.begin(), ordered.end());
    ordered.erase(std::unique(ordered.begin(), ordered.end()), ordered.end());
    found.clear();
    for (const auto& [order, component] : ordered)
        found.push_back(component);
    return found;
}

void ComponentIndex::CollectIntersecting(const Rectangle& area, std::vector<ComponentRef>& found) const {
    if (IsEmpty(area))
        return;
    for (const ComponentRef component : large_)
        if (BoxOf(component).Intersects(area))
            found.push_back(component);
    const CellRange wanted(area);
    ForEachCell(wanted, [&](int x, int y) {
        const auto cell = cells_.find(CellKey(x, y));
        if (cell == cells_.end())
            return;
        for (const ComponentRef component : cell->second) {
            const Rectangle& box = BoxOf(component);
            const CellRange covered(box);
            // Taken from the first cell that it shares with the area, so that few are found twice.
            if (x == std::max(covered.left, wanted.left) && y == std::max(covered.top, wanted.top) &&
                box.Intersects(area))
                found.push_back(component);
        }
    });
}

void ComponentIndex::Add(ComponentRef component, const Rectangle& box) {
    if (IsEmpty(box))
        return;
    const CellRange range(box);
    if (range.Count() > mostCells)
        large_.push_back(component);
    else
        ForEachCell(range, [&](int x, int y) { cells_[CellKey(x, y)].push_back(component); });
}

void ComponentIndex::Remove(ComponentRef component, const Rectangle& box) {
    if (IsEmpty(box))
        return;
    const CellRange range(box);
    if (range.Count() > mostCells)
        std::erase(large_, component);
    else
        ForEachCell(range, [&](int x, int y) {
            const auto cell = cells_.find(CellKey(x, y));
            std::erase(cell->second, component);
            if (cell->second.empty())
                cells_.erase(cell);
        });
}

} // namespace pirol
