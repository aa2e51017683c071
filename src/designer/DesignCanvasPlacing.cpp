// Placing components in their usual size, without drawing a rectangle.

#include "base/Text.h"
#include "controls/Oddities.h"
#include "designer/DesignCanvas.h"
#include "designer/Grid.h"

#include <algorithm>
#include <array>

namespace pirol {
namespace {

/// So often a place is tried before a component is put upon another one.
constexpr int mostPlaces = 100;

struct UsualSize {
    ComponentKind kind;
    int width;
    int height;
};

/// Multimedia kinds keep the size that their control gives them; the numbers only say where their middle is.
constexpr std::array<UsualSize, kindCount> usualSizes = {{
    {ComponentKind::Label, 120, 30},
    {ComponentKind::Button, 120, 30},
    {ComponentKind::TextField, 120, 30},
    {ComponentKind::CharField, 200, 100},
    {ComponentKind::RowField, 200, 100},
    {ComponentKind::Password, 120, 30},
    {ComponentKind::CheckBox, 120, 30},
    {ComponentKind::OptionGroup, 160, 80},
    {ComponentKind::ComboBox, 120, 30},
    {ComponentKind::Slider, 160, 30},
    {ComponentKind::ProgressBar, 160, 30},
    {ComponentKind::Table, 240, 120},
    {ComponentKind::Picture, 160, 120},
    {ComponentKind::Sound, 32, 32},
    {ComponentKind::Movie, 160, 120},
}};
static_assert(HasEveryKind(usualSizes), "every kind needs its usual size, in the order of the kinds");

} // namespace

Rectangle DesignCanvas::UsualBox(ComponentKind kind, int middleX, int middleY) const {
    const UsualSize& size = usualSizes[Position(kind)];
    return {SnapToGrid(middleX - size.width / 2), SnapToGrid(middleY - size.height / 2), size.width, size.height};
}

/// Beside what lies there exactly, as pasting does.
Rectangle DesignCanvas::FreePlace(Rectangle box) {
    for (int place = 0; place < mostPlaces; ++place) {
        const Rectangle corner = {box.left, box.top, 1, 1};
        const std::vector<ComponentRef> there = Intersecting({&corner, 1});
        const bool isTaken = std::any_of(there.begin(), there.end(), [&](ComponentRef component) {
            const Rectangle other = document_.Model().VisibleBox(component);
            return other.left == box.left && other.top == box.top;
        });
        if (!isTaken)
            break;
        box.left += gridSpacing;
        box.top += gridSpacing;
    }
    return box;
}

void DesignCanvas::PlaceUsual(int number, int middleX, int middleY) {
    const std::optional<ComponentKind> chosen = KindByNumber(number);
    if (!chosen || IsPressed())
        return;
    HidePlacement();
    Place(number, FreePlace(UsualBox(oddities::CrossTextAreas(*chosen), middleX, middleY)));
}

void DesignCanvas::ShowPlacement(int number, int middleX, int middleY) {
    const std::optional<ComponentKind> chosen = KindByNumber(number);
    if (!chosen || IsPressed())
        return;
    frame_ = UsualBox(*chosen, middleX, middleY);
    frameVisible_ = true;
    statusText_ = Concatenate(frame_.left, " / ", frame_.top);
}

void DesignCanvas::HidePlacement() {
    if (IsPressed())
        return;
    frame_ = {0, 0, 1, 1};
    frameVisible_ = false;
    statusText_.clear();
}

} // namespace pirol
