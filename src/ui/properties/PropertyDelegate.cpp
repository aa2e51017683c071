#include "ui/properties/PropertyDelegate.h"

#include "ui/parts/FormParts.h"
#include "ui/parts/Theme.h"
#include "ui/properties/PropertyListModel.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace pirol {
namespace {

const PropertyPanelRow& RowAt(const QModelIndex& index) {
    return static_cast<const PropertyListModel*>(index.model())->RowAt(index);
}

/// What the style leaves between a cell's edge and its text.
constexpr int textMargin = 3;

bool HasButton(const PropertyPanelRow& row) {
    return !row.isCategory && (row.editor == EditorKind::File || row.editor == EditorKind::List);
}

const QStyle& StyleOf(const QStyleOptionViewItem& option) {
    return option.widget != nullptr ? *option.widget->style() : *QApplication::style();
}

/// A bold band across both columns with an arrow that shows whether the category is open.
void PaintCategory(QPainter& painter, const QStyleOptionViewItem& option, const QString& caption) {
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QPalette& palette = option.palette;
    painter.fillRect(option.rect, palette.color(selected ? QPalette::Highlight : QPalette::Window));

    QStyleOption arrow;
    arrow.initFrom(option.widget);
    arrow.state = option.state;
    const int side = option.rect.height();
    const int inset = side / 4;
    arrow.rect = QRect(option.rect.left(), option.rect.top(), side, side).adjusted(inset, inset, -inset, -inset);
    StyleOf(option).drawPrimitive(option.state.testFlag(QStyle::State_Open) ? QStyle::PE_IndicatorArrowDown
                                                                            : QStyle::PE_IndicatorArrowRight,
                                  &arrow, &painter, option.widget);

    QFont font = option.font;
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(palette.color(selected ? QPalette::HighlightedText : QPalette::ButtonText));
    const QRect text = option.rect.adjusted(side, 0, 0, 0);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                     QFontMetrics(font).elidedText(caption, Qt::ElideRight, text.width()));
}

/// The row that says that there is nothing to show.
void PaintNotice(QPainter& painter, const QStyleOptionViewItem& option, const QString& caption) {
    painter.setPen(option.palette.color(QPalette::PlaceholderText));
    painter.drawText(option.rect, Qt::AlignCenter,
                     option.fontMetrics.elidedText(caption, Qt::ElideRight, option.rect.width()));
}

void PaintGrid(QPainter& painter, const QStyleOptionViewItem& option, bool hasRightLine) {
    painter.setPen(option.palette.color(roles::line));
    painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    if (hasRightLine)
        painter.drawLine(option.rect.topRight(), option.rect.bottomRight());
}

/// Behind the word of a flag.
void PaintHandler(QPainter& painter, const QStyleOptionViewItem& option, const QString& word, const QString& handler) {
    const QStyle& style = StyleOf(option);
    const int box = style.pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget);
    const int begin = box + option.fontMetrics.horizontalAdvance(word) + 6 * textMargin;
    const QRect room = option.rect.adjusted(begin, 0, -textMargin, 0);
    painter.setPen(option.palette.color(option.state.testFlag(QStyle::State_Selected) ? QPalette::HighlightedText
                                                                                      : QPalette::PlaceholderText));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                     option.fontMetrics.elidedText(handler, Qt::ElideRight, room.width()));
}

void PaintButton(QPainter& painter, const QStyleOptionViewItem& option) {
    QStyleOptionButton button;
    button.initFrom(option.widget);
    button.rect = PropertyDelegate::ButtonRect(option.rect);
    button.text = "…";
    button.state = QStyle::State_Enabled | QStyle::State_Raised;
    StyleOf(option).drawControl(QStyle::CE_PushButton, &button, &painter, option.widget);
}

/// An editor that has nothing to undo or redo leaves the keys to the design's history.
bool BelongsToHistory(const QLineEdit& line, const QKeyEvent& key) {
    return (key.matches(QKeySequence::Undo) && !line.isUndoAvailable()) ||
           (key.matches(QKeySequence::Redo) && !line.isRedoAvailable());
}

} // namespace

QRect PropertyDelegate::ButtonRect(const QRect& cell) {
    const int width = cell.height() * 4 / 3;
    return QRect(cell.right() - width, cell.top() + 1, width, cell.height() - 2);
}

QSize PropertyDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = CellDelegate::sizeHint(option, index);
    if (RowAt(index).isCategory)
        size.setWidth(0); // it spans both columns
    else if (index.column() == PropertyListModel::CaptionColumn)
        size.rwidth() += 2 * (captionMargin - textMargin);
    return size;
}

void PropertyDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const PropertyPanelRow& row = RowAt(index);
    painter->save();
    if (row.isCategory) {
        const QString caption = index.data().toString();
        if (index.model()->hasChildren(index.siblingAtColumn(0)))
            PaintCategory(*painter, option, caption);
        else
            PaintNotice(*painter, option, caption);
    } else {
        const bool isCaption = index.column() == PropertyListModel::CaptionColumn;
        QStyleOptionViewItem cell = option;
        cell.state &= ~QStyle::State_HasFocus;
        StyleOf(option).drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, option.widget);
        if (isCaption)
            cell.rect.setLeft(cell.rect.left() + captionMargin - textMargin);
        else if (HasButton(row))
            cell.rect.setRight(ButtonRect(cell.rect).left() - 1);
        if (row.editor == EditorKind::File)
            cell.textElideMode = Qt::ElideMiddle; // the name at the end says more than the folders
        CellDelegate::paint(painter, cell, index);
        if (!isCaption && !row.handler.empty())
            PaintHandler(*painter, cell, index.data().toString(), ToText(row.handler));
        PaintGrid(*painter, option, isCaption);
        if (!isCaption && HasButton(row))
            PaintButton(*painter, option);
    }
    painter->restore();
}

QWidget* PropertyDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const {
    const PropertyPanelRow& row = RowAt(index);
    QWidget* editor = row.editor == EditorKind::Choice ? NewChoiceEditor(parent, index)
                                                       : CellDelegate::createEditor(parent, option, index);
    if (auto* line = qobject_cast<QLineEdit*>(editor); line != nullptr && row.editor == EditorKind::Character)
        line->setMaxLength(1);
    return Named(editor, std::string(row.key).c_str(), ToText(row.caption));
}

QWidget* PropertyDelegate::NewChoiceEditor(QWidget* parent, const QModelIndex& index) const {
    auto* combo = new QComboBox(parent);
    combo->setFrame(false);
    for (const auto& [value, label] : Choices(RowAt(index).detail))
        combo->addItem(ToText(label), ToText(value));
    auto* self = const_cast<PropertyDelegate*>(this); // a signal is no change of the delegate
    connect(combo, &QComboBox::activated, self, [self, combo] { emit self->commitData(combo); });
    return combo;
}

void PropertyDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (auto* combo = qobject_cast<QComboBox*>(editor))
        combo->setCurrentIndex(combo->findData(index.data(Qt::EditRole)));
    else
        CellDelegate::setEditorData(editor, index);
}

void PropertyDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    const auto* combo = qobject_cast<QComboBox*>(editor);
    if (combo == nullptr)
        CellDelegate::setModelData(editor, model, index);
    else if (combo->currentIndex() >= 0 && combo->currentData() != index.data(Qt::EditRole))
        model->setData(index, combo->currentData(), Qt::EditRole);
}

void PropertyDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                            const QModelIndex& index) const {
    QRect room = option.rect.adjusted(0, 0, 0, -1);
    if (HasButton(RowAt(index)))
        room.setRight(ButtonRect(option.rect).left() - 1);
    editor->setGeometry(room);
}

bool PropertyDelegate::eventFilter(QObject* editor, QEvent* event) {
    if (const auto* line = qobject_cast<QLineEdit*>(editor); line != nullptr &&
                                                             event->type() == QEvent::ShortcutOverride &&
                                                             BelongsToHistory(*line, *static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return true;
    }
    // In a single line the arrows have nothing to do; they walk the list, and Alt+Down and F4 open the row's dialog.
    if (auto* line = qobject_cast<QLineEdit*>(editor); line != nullptr && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_F4) {
            QWidget* view = line->parentWidget()->parentWidget();
            emit commitData(line);
            emit closeEditor(line, QAbstractItemDelegate::NoHint);
            QCoreApplication::sendEvent(view, event);
            return true;
        }
    }
    return CellDelegate::eventFilter(editor, event);
}

} // namespace pirol
