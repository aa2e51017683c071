#include "ui/canvas/DesignLabel.h"

namespace pirol {

DesignLabel::DesignLabel(const ProjectModel& model, const QSize& largest) : model_(model) {
    setFrameStyle(QFrame::StyledPanel);
    setScaledContents(true); // a sharp screen has more pixels than that
    const QSize own = DesignSize(model);
    const bool fits = own.boundedTo(largest) == own;
    const QSize frame = QSize(1, 1) * (2 * frameWidth());
    setFixedSize((fits ? own : own.scaled(largest, Qt::KeepAspectRatio).expandedTo({1, 1})) + frame);
    connect(&painting_, &QTimer::timeout, this, &DesignLabel::PaintMore);
    connect(&loader_, &PictureLoader::Loaded, this, &DesignLabel::Begin);
    Begin();
}

void DesignLabel::Begin() {
    picture_.emplace(model_, contentsRect().size() * devicePixelRatioF(), loader_.Source());
    painting_.start();
}

void DesignLabel::PaintMore() {
    if (picture_->PaintMore(std::chrono::milliseconds(10)))
        return;
    painting_.stop();
    setPixmap(QPixmap::fromImage(picture_->Image()));
    picture_.reset();
}

} // namespace pirol
