#include "ui/parts/CellDelegate.h"

#include "ui/parts/TextLine.h"

#include <QLineEdit>
#include <QMouseEvent>

#include <algorithm>

namespace pirol {

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
    QLineEdit* line = nullptr;
    if (index.data(isNumberRole).toBool())
        line = new NumberLine(parent, index.data(takesStepsRole).toBool());
    else
        line = new TextLine({}, parent);
    line->setFrame(false);
    line->setAutoFillBackground(true);
    line->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    return line;
}

void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* line = qobject_cast<QLineEdit*>(editor);
    // A value that changes meanwhile must not disturb a user who is typing.
    if (line == nullptr || line->isModified())
        return;
    const QString value = index.data(Qt::EditRole).toString();
    if (auto* text = qobject_cast<TextLine*>(line))
        text->ShowText(value);
    else
        line->setText(value);
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (line == nullptr || !line->isModified())
        return;
    // Closing the editor asks for its value once more.
    line->setModified(false);
    model->setData(index, line->text(), Qt::EditRole);
}

bool CellDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                               const QModelIndex& index) {
    const bool isMouse = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick ||
                         event->type() == QEvent::MouseButtonRelease;
    if (!isMouse || !index.data(Qt::CheckStateRole).isValid() || !index.flags().testFlag(Qt::ItemIsUserCheckable))
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    // The word beside the box belongs to it, as it does for every check box; the press makes the row the current one.
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (event->type() != QEvent::MouseButtonRelease || mouse->button() != Qt::LeftButton ||
        !option.rect.contains(mouse->pos()))
        return false;
    const bool on = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model->setData(index, on ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    // Room for a line editor with its margins, so that nothing is cut off while editing.
    constexpr int air = 8;
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), std::max(size.height(), option.fontMetrics.height() + air)};
}

} // namespace pirol
