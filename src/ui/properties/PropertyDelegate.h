#pragma once

#include "ui/parts/CellDelegate.h"

#include <QRect>

namespace pirol {

/// Paints the property list's rows and makes the editor that a row's kind calls for.
class PropertyDelegate final : public CellDelegate {
    Q_OBJECT

  public:
    using CellDelegate::CellDelegate;

    /// The room left and right of a caption, in pixels.
    static constexpr int captionMargin = 9;

    /// Where the value cell of a file or list shows its button "...".
    static QRect ButtonRect(const QRect& cell);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool eventFilter(QObject* editor, QEvent* event) override;

  private:
    QWidget* NewChoiceEditor(QWidget* parent, const QModelIndex& index) const;
};

} // namespace pirol
