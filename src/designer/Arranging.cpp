#include "designer/Arranging.h"

#include "base/Conversions.h"
#include "designer/Grid.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace pirol {
namespace {

/// One direction of a rectangle, so that each way is written once.
struct Axis {
    int Rectangle::*begin;
    int Rectangle::*size;

    int End(const Rectangle& box) const { return box.*begin + box.*size; }
    double Center(const Rectangle& box) const { return box.*begin + box.*size / 2.0; }
    void SetCenter(Rectangle& box, double center) const { box.*begin = Rounded(center - box.*size / 2.0); }
    static int Rounded(double value) { return static_cast<int>(std::lround(value)); }
};

constexpr Axis across = {&Rectangle::left, &Rectangle::width};
constexpr Axis down = {&Rectangle::top, &Rectangle::height};

using Boxes = std::vector<Rectangle>;

/// What is to be done, beside the boxes.
struct Task {
    Axis axis;
    std::span<const ArrangedBox> boxes;
    Rectangle leader;
    Rectangle window;
};

void AlignBegin(Boxes& boxes, const Task& task) {
    for (Rectangle& box : boxes)
        box.*task.axis.begin = task.leader.*task.axis.begin;
}

void AlignCenter(Boxes& boxes, const Task& task) {
    for (Rectangle& box : boxes)
        task.axis.SetCenter(box, task.axis.Center(task.leader));
}

void AlignEnd(Boxes& boxes, const Task& task) {
    for (Rectangle& box : boxes)
        box.*task.axis.begin = task.axis.End(task.leader) - box.*task.axis.size;
}

void TakeSize(Boxes& boxes, const Task& task) {
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (task.boxes[i].canBeSized)
            boxes[i].*task.axis.size = task.leader.*task.axis.size;
}

void TakeBothSizes(Boxes& boxes, const Task& task) {
    for (const Axis& axis : {across, down})
        TakeSize(boxes, {axis, task.boxes, task.leader, task.window});
}

/// The boxes from the first to the last one on the way.
template <class Value>
std::vector<Rectangle*> InOrder(Boxes& boxes, const Value& value) {
    std::vector<Rectangle*> order;
    for (Rectangle& box : boxes)
        order.push_back(&box);
    std::stable_sort(order.begin(), order.end(),
                     [&](const Rectangle* a, const Rectangle* b) { return value(*a) < value(*b); });
    return order;
}

void Distribute(Boxes& boxes, const Task& task) {
    const std::vector<Rectangle*> order = InOrder(boxes, [&](const Rectangle& box) { return task.axis.Center(box); });
    const double first = task.axis.Center(*order.front());
    const double step = (task.axis.Center(*order.back()) - first) / static_cast<double>(order.size() - 1);
    for (std::size_t i = 1; i + 1 < order.size(); ++i)
        task.axis.SetCenter(*order[i], first + step * static_cast<double>(i));
}

void EqualGaps(Boxes& boxes, const Task& task) {
    const std::vector<Rectangle*> order = InOrder(boxes, [&](const Rectangle& box) { return box.*task.axis.begin; });
    double space = order.back()->*task.axis.begin - task.axis.End(*order.front());
    for (std::size_t i = 1; i + 1 < order.size(); ++i)
        space -= order[i]->*task.axis.size;
    const double gap = space / static_cast<double>(order.size() - 1);
    double at = task.axis.End(*order.front());
    for (std::size_t i = 1; i + 1 < order.size(); ++i) {
        at += gap;
        order[i]->*task.axis.begin = Axis::Rounded(at);
        at += order[i]->*task.axis.size;
    }
}

void CenterInWindow(Boxes& boxes, const Task& task) {
    int begin = boxes.front().*task.axis.begin;
    int end = task.axis.End(boxes.front());
    for (const Rectangle& box : boxes) {
        begin = std::min(begin, box.*task.axis.begin);
        end = std::max(end, task.axis.End(box));
    }
    const int move = Axis::Rounded(task.axis.Center(task.window) - (begin + end) / 2.0);
    for (Rectangle& box : boxes)
        box.*task.axis.begin += move;
}

void PutOnGrid(Boxes& boxes, const Task&) {
    for (Rectangle& box : boxes) {
        box.left = SnapToGrid(box.left, true);
        box.top = SnapToGrid(box.top, true);
    }
}

/// Everything about an arrangement, in the order of the enumeration.
struct ArrangementRow {
    std::string_view label; ///< of the step, German
    Axis axis;
    void (*arrange)(Boxes&, const Task&);
    std::size_t leastCount;
    bool sizes;
};

constexpr std::array<ArrangementRow, arrangementCount> arrangements = {{
    {"Links ausrichten", across, AlignBegin, 2, false},
    {"Waagerecht mittig ausrichten", across, AlignCenter, 2, false},
    {"Rechts ausrichten", across, AlignEnd, 2, false},
    {"Oben ausrichten", down, AlignBegin, 2, false},
    {"Senkrecht mittig ausrichten", down, AlignCenter, 2, false},
    {"Unten ausrichten", down, AlignEnd, 2, false},
    {"Gleiche Breite", across, TakeSize, 2, true},
    {"Gleiche Höhe", down, TakeSize, 2, true},
    {"Gleiche Größe", across, TakeBothSizes, 2, true},
    {"Waagerecht verteilen", across, Distribute, 3, false},
    {"Senkrecht verteilen", down, Distribute, 3, false},
    {"Gleiche Abstände waagerecht", across, EqualGaps, 3, false},
    {"Gleiche Abstände senkrecht", down, EqualGaps, 3, false},
    {"Im Fenster waagerecht mitten", across, CenterInWindow, 1, false},
    {"Im Fenster senkrecht mitten", down, CenterInWindow, 1, false},
    {"Aufs Raster setzen", across, PutOnGrid, 1, false},
}};
static_assert(arrangements.back().arrange != nullptr, "every arrangement needs its row");

const ArrangementRow& RowOf(Arrangement arrangement) {
    return arrangements.at(static_cast<std::size_t>(arrangement));
}

} // namespace

std::vector<Rectangle> Arranged(Arrangement arrangement, std::span<const ArrangedBox> boxes, int windowWidth,
                                int windowHeight) {
    Boxes arranged;
    Task task = {RowOf(arrangement).axis, boxes, {}, {0, 0, windowWidth, windowHeight}};
    for (const ArrangedBox& box : boxes) {
        arranged.push_back(box.box);
        if (box.isLeader)
            task.leader = box.box;
    }
    if (arranged.size() >= RowOf(arrangement).leastCount)
        RowOf(arrangement).arrange(arranged, task);
    return arranged;
}

bool CanArrange(Arrangement arrangement, const Selection& components) {
    const ArrangementRow& row = RowOf(arrangement);
    const bool canSize = std::any_of(components.begin(), components.end(), [&](ComponentRef component) {
        return component != components.Leader() && CanBeSized(component.kind);
    });
    return components.Count() >= row.leastCount && (!row.sizes || canSize);
}

void Arrange(Document& document, Arrangement arrangement) {
    const Selection components = document.AllSelected();
    if (!CanArrange(arrangement, components))
        return;
    const ProjectModel& model = document.Model();
    std::vector<ArrangedBox> boxes;
    for (const ComponentRef component : components)
        boxes.push_back({model.VisibleBox(component), component == components.Leader(), CanBeSized(component.kind)});
    SetBoxes(document, RowOf(arrangement).label, components,
             Arranged(arrangement, boxes, model.WindowWidth(), model.WindowHeight()));
}

std::vector<Rectangle> BoxesOf(const ProjectModel& model, const Selection& components) {
    std::vector<Rectangle> boxes;
    boxes.reserve(components.Count());
    for (const ComponentRef component : components)
        boxes.push_back(model.VisibleBox(component));
    return boxes;
}

void SetBoxes(Document& document, std::string_view label, const Selection& components,
              const std::vector<Rectangle>& boxes, std::string_view mergeKey) {
    for (const Rectangle& box : boxes)
        for (const int value : {box.left, box.top, box.width, box.height})
            ToInt16(value);
    if (boxes == BoxesOf(document.Model(), components))
        return; // does not even ask the history
    const auto change = [&](ProjectModel& model) {
        auto box = boxes.begin();
        for (const ComponentRef component : components) {
            Control& control = model.EditElement(component);
            control.Left = ToInt16(box->left);
            control.Top = ToInt16(box->top);
            control.Width = ToInt16(box->width);
            control.Height = ToInt16(box->height);
            ++box;
        }
    };
    document.Edit(label, change, mergeKey);
}

void MoveAll(Document& document, const Selection& components, int x, int y, std::string_view mergeKey) {
    std::vector<Rectangle> boxes = BoxesOf(document.Model(), components);
    for (Rectangle& box : boxes) {
        box.left += x;
        box.top += y;
    }
    SetBoxes(document, StepLabel(components, "verschieben"), components, boxes, mergeKey);
}

} // namespace pirol
