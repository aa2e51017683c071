#pragma once

#include "designer/PropertyPanel.h"

#include <QAbstractItemModel>

#include <string>
#include <vector>

namespace pirol {

/// The property list's rows as an item model: categories at the top, their rows below them; captions in column 0,
/// values in column 1. An edit is only announced; the value shown changes when new rows arrive.
class PropertyListModel : public QAbstractItemModel {
    Q_OBJECT

  public:
    enum Column { CaptionColumn, ValueColumn };

    using QAbstractItemModel::QAbstractItemModel;

    /// Shows other rows. When only values differ, only these are announced as changed; otherwise the model is reset.
    void ShowRows(std::vector<PropertyPanelRow> rows);
    const PropertyPanelRow& RowAt(const QModelIndex& index) const;
    /// The value cell of a key, or the caption cell of a category's; invalid when there is none.
    QModelIndex IndexOf(std::string_view key) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

  signals:
    void PropertyEdited(const std::string& key, const std::string& value);

  private:
    /// Places of a category and of the rows that follow it among all rows.
    struct Category {
        std::size_t place;
        std::size_t rowCount;
    };

    void FindCategories();
    std::size_t PlaceOf(const QModelIndex& index) const;
    QModelIndex IndexAt(std::size_t place, int column) const;

    std::vector<PropertyPanelRow> rows_;
    std::vector<Category> categories_;
};

} // namespace pirol
