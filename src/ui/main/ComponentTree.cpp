#include "ui/main/ComponentTree.h"

#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"

namespace pirol {
namespace {

using Type = ComponentList::Node::Type;

QIcon IconOf(const ComponentList::Node& node) {
    switch (node.type) {
    case Type::Window:
        return CommandIcon("window");
    case Type::Kind:
    case Type::Component:
        return KindIcon(node.component.kind);
    case Type::MenuBar:
        return CommandIcon("menu");
    default:
        return {};
    }
}

} // namespace

QModelIndex ComponentTree::IndexOf(std::size_t node) const {
    if (node == ComponentList::root)
        return {};
    const std::size_t first = list_.Nodes()[list_.Nodes()[node].parent].firstChild;
    return createIndex(static_cast<int>(node - first), 0, node);
}

const ComponentList::Node& ComponentTree::NodeAt(const QModelIndex& index) const {
    return list_.Nodes()[index.isValid() ? index.internalId() : ComponentList::root];
}

QModelIndex ComponentTree::index(int row, int column, const QModelIndex& parent) const {
    const ComponentList::Node& above = NodeAt(parent);
    if (row < 0 || static_cast<std::size_t>(row) >= above.childCount || column < 0 || column >= columnCount(parent))
        return {};
    return createIndex(row, column, above.firstChild + static_cast<std::size_t>(row));
}

QModelIndex ComponentTree::parent(const QModelIndex& child) const {
    return child.isValid() ? IndexOf(NodeAt(child).parent) : QModelIndex();
}

int ComponentTree::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(NodeAt(parent).childCount);
}

int ComponentTree::columnCount(const QModelIndex&) const {
    return 2;
}

QVariant ComponentTree::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        const auto node = static_cast<std::size_t>(index.internalId());
        return ToText(index.column() == 0 ? list_.NameOf(model_, node) : list_.TextOf(model_, node));
    }
    if (role == Qt::DecorationRole && index.column() == 0)
        return IconOf(NodeAt(index));
    return {};
}

QVariant ComponentTree::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == 0 ? "Name" : "Beschriftung";
}

Qt::ItemFlags ComponentTree::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

} // namespace pirol
