#pragma once

#include "designer/DesignCanvas.h"
#include "ui/canvas/PictureFile.h"
#include "ui/canvas/PictureLoader.h"

#include <span>
#include <vector>

class QPainter;

namespace pirol {

/// What the canvas paints, and where: each component in its box, but a picture in its own size, which may be larger.
class PaintedComponents {
  public:
    /// Of a canvas, its design and the pictures in it, which must outlive this.
    PaintedComponents(DesignCanvas& canvas, const ProjectModel& model, PictureLoader& pictures);

    /// Those that have a painted pixel in one of the areas, the lowest first.
    std::vector<ComponentRef> On(std::span<const Rectangle> areas);
    /// What one paints that has this box. Empty for an empty box.
    Rectangle Covered(ComponentRef component, Rectangle box) const;
    void Paint(QPainter& painter, ComponentRef component) const;

    /// The design is another one now, or a picture has been read.
    void Forget() { outgrownAreCurrent_ = false; }

  private:
    void FindOutgrown();

    DesignCanvas& canvas_;
    const ProjectModel& model_;
    PictureLoader& loader_;
    PictureSource pictures_;
    std::vector<ComponentRef> outgrown_; ///< the visible pictures that are larger than their boxes
    bool outgrownAreCurrent_ = false;
};

} // namespace pirol
