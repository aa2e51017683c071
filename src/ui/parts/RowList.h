#pragma once

#include <QListWidget>

namespace pirol {

/// A list of rows to choose from. Getting the keyboard chooses none: the first row is chosen by an arrow key.
class RowList : public QListWidget {
    Q_OBJECT

  public:
    explicit RowList(QWidget* parent = nullptr);

  protected:
    void focusInEvent(QFocusEvent* event) override;
};

} // namespace pirol
