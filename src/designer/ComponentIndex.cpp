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

ComponentIndex::Entry& ComponentIndex::EntryOf(ComponentRef component) {
    std::vector<Entry>& entries = entries_[Position(component.kind)];
    if (component.index >= entries.size())
        entries.resize(component.index + 1);
    return entries[component.index];
}

const ComponentIndex::Entry& ComponentIndex::EntryOf(ComponentRef component) const {
    return entries_[Position(component.kind)][component.index];
}

void ComponentIndex::Rebuild(const ProjectModel& model) {
    *this = ComponentIndex();
    for (const KindRow& row : KindRows())
        entries_[Position(row.kind)].reserve(model.ElementCount(row.kind));
    for (const ComponentRef component : model.CreationOrder())
        Update(model, component);
}

void ComponentIndex::Update(const ProjectModel& model, ComponentRef component) {
    Entry& entry = EntryOf(component);
    if (component.index < model.ElementCount(component.kind))
        entry.order = model.Element(component).Serial.value;
    const Rectangle box = model.VisibleBox(component);
    if (box == entry.box)
        return;
    Remove(component, entry.box);
    Add(component, box);
    entry.box = box;
}

std::optional<ComponentRef> ComponentIndex::TopmostAt(int x, int y) const {
    std::optional<ComponentRef> topmost;
    const auto look = [&](const std::vector<ComponentRef>& candidates) {
        for (const ComponentRef candidate : candidates)
            if (EntryOf(candidate).box.Contains(x, y) &&
                (!topmost || EntryOf(candidate).order > EntryOf(*topmost).order))
                topmost = candidate;
    };
    look(large_);
    if (const auto cell = cells_.find(CellKey(CellOf(x), CellOf(y))); cell != cells_.end())
        look(cell->second);
    return topmost;
}

std::vector<ComponentRef> ComponentIndex::Intersecting(std::span<const Rectangle> areas) const {
    std::vector<ComponentRef> found;
    for (const Rectangle& area : areas)
        CollectIntersecting(area, found);
    std::sort(found.begin(), found.end(),
              [this](ComponentRef a, ComponentRef b) { return EntryOf(a).order < EntryOf(b).order; });
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

void ComponentIndex::CollectIntersecting(const Rectangle& area, std::vector<ComponentRef>& found) const {
    if (IsEmpty(area))
        return;
    for (const ComponentRef component : large_)
        if (EntryOf(component).box.Intersects(area))
            found.push_back(component);
    const CellRange wanted(area);
    ForEachCell(wanted, [&](int x, int y) {
        const auto cell = cells_.find(CellKey(x, y));
        if (cell == cells_.end())
            return;
        for (const ComponentRef component : cell->second) {
            const Rectangle& box = EntryOf(component).box;
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
