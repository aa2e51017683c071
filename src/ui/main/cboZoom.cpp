#include "ui/main/cboZoom.h"

#include "designer/CanvasView.h"

#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>

namespace pirol {
namespace {

constexpr int fieldWidth = 84;

QString TextOf(int percent) {
    return QString("%1 %").arg(percent);
}

} // namespace

cboZoom::cboZoom(QWidget* parent) : QComboBox(parent) {
    setObjectName("cboZoom");
    setAccessibleName("Zoom");
    setToolTip("Zoom (Strg+Plus, Strg+Minus, Strg+0)");
    auto* const field = new QLineEdit;
    field->setCompleter(new QCompleter(field)); // or the box would make one of all its lines
    setLineEdit(field);                         // setEditable would make the list, too, which few open
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setFrame(false);
    setFixedSize(fieldWidth, fontMetrics().height());
    for (const int percent : zoomSteps)
        addItem(TextOf(percent));
    ShowZoom(CanvasView::usualZoom);
    connect(this, &QComboBox::textActivated, this, &cboZoom::Choose);
    connect(lineEdit(), &QLineEdit::returnPressed, this, [this] { Choose(currentText()); });
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { setEditText(TextOf(shown_)); });
}

void cboZoom::ShowZoom(int percent) {
    shown_ = percent;
    setCurrentIndex(findText(TextOf(percent)));
    setEditText(TextOf(percent));
}

QSize cboZoom::sizeHint() const {
    return maximumSize(); // which is fixed; the percents need not be measured
}

QSize cboZoom::minimumSizeHint() const {
    return sizeHint();
}

void cboZoom::Choose(const QString& text) {
    const std::optional<int> percent = ZoomFromText(text.toStdString());
    if (percent)
        emit ZoomChosen(*percent);
    setEditText(TextOf(shown_));
}

void cboZoom::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        setEditText(TextOf(shown_));
    QComboBox::keyPressEvent(event);
}

} // namespace pirol
