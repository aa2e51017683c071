#include "ui/parts/RowList.h"

#include "ui/parts/CellDelegate.h"

#include <QSignalBlocker>

namespace pirol {

RowList::RowList(QWidget* parent) : QListWidget(parent) {
    // Its rows have room for the dots of capital umlauts.
    setItemDelegate(new CellDelegate(this));
}

void RowList::focusInEvent(QFocusEvent* event) {
    const QSignalBlocker quiet(this);
    const int row = currentRow();
    QListWidget::focusInEvent(event);
    setCurrentRow(row);
}

} // namespace pirol
