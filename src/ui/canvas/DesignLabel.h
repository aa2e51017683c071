#pragma once

#include "ui/canvas/DesignImage.h"
#include "ui/canvas/PictureLoader.h"

#include <QLabel>
#include <QTimer>

#include <optional>

namespace pirol {

/// Shows a design as a small picture in a form. The picture appears when it is painted; the form need not wait.
class DesignLabel : public QLabel {
    Q_OBJECT

  public:
    /// At most so large, in pixels at 100 percent; the whole design, with its own proportions.
    DesignLabel(const ProjectModel& model, const QSize& largest);

  private:
    void Begin();
    void PaintMore();

    ProjectModel model_;
    PictureLoader loader_{nullptr};
    std::optional<DesignPicture> picture_; ///< while it is being painted
    QTimer painting_;
};

} // namespace pirol
