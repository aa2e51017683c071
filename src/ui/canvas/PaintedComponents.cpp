#include "ui/canvas/PaintedComponents.h"

#include "controls/dBild.h"
#include "ui/canvas/PaintingFunctions.h"

#include <QPainter>

#include <algorithm>

namespace pirol {

PaintedComponents::PaintedComponents(DesignCanvas& canvas, const ProjectModel& model, PictureLoader& pictures)
    : canvas_(canvas), model_(model), loader_(pictures), pictures_(pictures.Source()) {}

std::vector<ComponentRef> PaintedComponents::On(std::span<const Rectangle> areas) {
    std::vector<ComponentRef> components = canvas_.Intersecting(areas);
    FindOutgrown();
    const auto serial = [this](ComponentRef component) { return model_.Element(component).Serial.value; };
    const std::size_t inBoxes = components.size();
    for (const ComponentRef picture : outgrown_) {
        const Rectangle box = model_.VisibleBox(picture);
        const auto isMet = [&areas](const Rectangle& part) {
            return std::ranges::any_of(areas, [&](const Rectangle& area) { return part.Intersects(area); });
        };
        if (!isMet(box) && isMet(Covered(picture, box)))
            components.push_back(picture);
    }
    if (components.size() != inBoxes)
        std::ranges::sort(components, {}, serial);
    return components;
}

Rectangle PaintedComponents::Covered(ComponentRef component, Rectangle box) const {
    if (component.kind != ComponentKind::Picture || box.width <= 0 ||
        component.index >= model_.ElementCount(component.kind))
        return box;
    const QSize own = loader_.KnownSize(static_cast<const dBild&>(model_.Element(component)).File);
    box.width = std::max(box.width, own.width());
    box.height = std::max(box.height, own.height());
    return box;
}

void PaintedComponents::Paint(QPainter& painter, ComponentRef component) const {
    PaintControl(painter, model_.Element(component), pictures_);
}

void PaintedComponents::FindOutgrown() {
    if (outgrownAreCurrent_)
        return;
    outgrownAreCurrent_ = true;
    outgrown_.clear();
    // Element 0 is the template of the kind.
    for (std::size_t index = 1; index < model_.ElementCount(ComponentKind::Picture); ++index) {
        const ComponentRef picture{ComponentKind::Picture, index};
        const Rectangle box = model_.VisibleBox(picture);
        if (Covered(picture, box) != box)
            outgrown_.push_back(picture);
    }
}

} // namespace pirol
