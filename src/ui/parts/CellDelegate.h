#pragma once

#include <QStyledItemDelegate>

namespace pirol {

/// Edits cells of a list or table: texts and numbers in a line, which is written only when the user typed something, so
/// that looking at a value never changes it; flags by a click anywhere in their cell.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The role under which a cell says with true that it holds a whole number.
    static constexpr int isNumberRole = Qt::UserRole;
    /// The role under which a cell of a number says with true that it takes steps such as "+=30".
    static constexpr int takesStepsRole = Qt::UserRole + 1;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace pirol
