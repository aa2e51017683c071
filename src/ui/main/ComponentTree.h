#pragma once

#include "designer/ComponentList.h"

#include <QAbstractItemModel>

namespace pirol {

/// A component list as a tree of rows with two columns, name and text. It holds nothing itself; its owner announces
/// when the list is rebuilt.
class ComponentTree : public QAbstractItemModel {
    Q_OBJECT

  public:
    ComponentTree(const ComponentList& list, const ProjectModel& model, QObject* parent)
        : QAbstractItemModel(parent), list_(list), model_(model) {}

    void BeginRebuild() { beginResetModel(); }
    void EndRebuild() { endResetModel(); }

    QModelIndex IndexOf(std::size_t node) const;
    const ComponentList::Node& NodeAt(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    const ComponentList& list_;
    const ProjectModel& model_;
};

} // namespace pirol
