#include "ui/main/PanelEdge.h"

#include "ui/parts/Tokens.h"

#include <QMouseEvent>

namespace pirol {

PanelEdge::PanelEdge(const char* name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setCursor(Qt::SplitHCursor);
}

void PanelEdge::PlaceAt(const QPoint& top, int length) {
    constexpr int width = tokens::unit;
    setGeometry(top.x() - width / 2, top.y(), width, length);
}

void PanelEdge::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::LeftButton)
        emit Dragged(mapToParent(event->pos()).x());
}

void PanelEdge::mouseDoubleClickEvent(QMouseEvent*) {
    emit UsualWanted();
}

} // namespace pirol
