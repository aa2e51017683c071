#include "ui/main/lstComponents.h"

#include "ui/main/ComponentTree.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/Tokens.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace pirol {
namespace {

constexpr int leastWidth = 280;
constexpr int indentation = 12;
constexpr int nameWidth = 180;

using Type = ComponentList::Node::Type;

} // namespace

lstComponents::lstComponents(Document& document, QWidget* parent)
    : QWidget(parent), document_(document), tree_(new ComponentTree(list_, document.Model(), this)),
      txtFind_(Named(new QLineEdit, "txtFind", "Komponente suchen")),
      cboOrder_(Named(new QComboBox, "cboOrder", "Reihenfolge der Komponenten")),
      rows_(Named(new QTreeView, "trvComponents", "Komponentenliste")) {
    setObjectName("lstComponents");
    setMinimumWidth(leastWidth);
    txtFind_->setPlaceholderText("Name oder Beschriftung");
    txtFind_->setClearButtonEnabled(true);
    txtFind_->setToolTip("Zeigt nur, was diesen Text enthält, und wählt das Passendste (Strg+F)");
    cboOrder_->addItems({"Nach Art", "Nach Reihenfolge"});
    cboOrder_->setToolTip("Ordnet die Komponenten nach ihrer Art oder in der Reihenfolge, in der sie entstanden sind");
    rows_->setModel(tree_);
    rows_->setUniformRowHeights(true);
    rows_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    rows_->setIndentation(indentation);
    rows_->setAllColumnsShowFocus(true);
    rows_->setExpandsOnDoubleClick(false);
    rows_->setColumnWidth(0, nameWidth);
    rows_->header()->setStretchLastSection(true);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(tokens::unit, tokens::unit, tokens::unit, tokens::unit);
    column->setSpacing(tokens::unit);
    column->addWidget(txtFind_);
    column->addWidget(cboOrder_);
    column->addWidget(rows_, 1);

    txtFind_->installEventFilter(this);
    rows_->installEventFilter(this);
    connect(txtFind_, &QLineEdit::textChanged, this, &lstComponents::FilterAs);
    connect(cboOrder_, &QComboBox::currentIndexChanged, this, [this](int order) {
        list_.SetOrder(order == 0 ? ComponentList::Order::Kinds : ComponentList::Order::Creation);
        Rebuild();
    });
    connect(rows_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &lstComponents::ChooseRows);
    connect(rows_, &QTreeView::doubleClicked, this, &lstComponents::Activate);
    const auto note = [this](bool isFolded) {
        return [this, isFolded](const QModelIndex& index) {
            const ComponentList::Node& node = tree_->NodeAt(index);
            const int kind = static_cast<int>(node.component.kind);
            if (node.type == Type::Kind)
                isFolded ? static_cast<void>(folded_.insert(kind)) : static_cast<void>(folded_.remove(kind));
        };
    };
    connect(rows_, &QTreeView::collapsed, this, note(true));
    connect(rows_, &QTreeView::expanded, this, note(false));
}

void lstComponents::Find() {
    txtFind_->setFocus(Qt::ShortcutFocusReason);
    txtFind_->selectAll();
}

void lstComponents::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (isOutdated_)
        Rebuild();
}

/// Who works in the list while it goes works on in the design.
void lstComponents::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous() && isAncestorOf(QApplication::focusWidget()))
        emit Left();
}

/// What a drag changes is no row's, so the list waits until it is over.
void lstComponents::ShowChange(const DocumentChange& change) {
    isOutdated_ = isOutdated_ || change.replaced || list_.IsOutdatedBy(document_.Model(), change.design);
    if (!isVisible() || document_.IsInGesture())
        return;
    if (isOutdated_)
        Rebuild();
    else if (change.selection)
        ShowSelection();
    if (change.design.Any() || change.gestureEnded)
        rows_->viewport()->update();
}

void lstComponents::Rebuild() {
    tree_->BeginRebuild();
    list_.Rebuild(document_.Model());
    tree_->EndRebuild();
    isOutdated_ = false;
    Expand();
    ShowSelection();
}

void lstComponents::Expand() {
    const QSignalBlocker quiet(rows_);
    rows_->expandToDepth(list_.Filter().empty() ? 1 : 2);
    const QModelIndex window = tree_->index(0, 0, {});
    for (int row = 0; row < tree_->rowCount(window); ++row) {
        const QModelIndex kind = tree_->index(row, 0, window);
        rows_->setFirstColumnSpanned(row, window, tree_->NodeAt(kind).type == Type::Kind);
        const ComponentList::Node& node = tree_->NodeAt(kind);
        if (node.type == Type::Kind && list_.Filter().empty() &&
            folded_.contains(static_cast<int>(node.component.kind)))
            rows_->collapse(kind);
    }
}

/// Rows one below the other are chosen as one range, so that a thousand cost little.
void lstComponents::ShowSelection() {
    std::vector<std::size_t> nodes;
    for (const ComponentRef component : document_.AllSelected())
        if (const std::optional<std::size_t> node = list_.NodeOf(component))
            nodes.push_back(*node);
    std::sort(nodes.begin(), nodes.end());
    QItemSelection chosen;
    for (std::size_t first = 0; first < nodes.size();) {
        std::size_t last = first;
        while (last + 1 < nodes.size() && nodes[last + 1] == nodes[last] + 1 &&
               list_.Nodes()[nodes[last + 1]].parent == list_.Nodes()[nodes[first]].parent)
            ++last;
        chosen.select(tree_->IndexOf(nodes[first]), tree_->IndexOf(nodes[last]));
        first = last + 1;
    }
    const std::optional<ComponentRef> leader = document_.Selected();
    const std::optional<std::size_t> node = leader ? list_.NodeOf(*leader) : std::nullopt;
    isShowing_ = true;
    if (node) {
        rows_->selectionModel()->setCurrentIndex(tree_->IndexOf(*node), QItemSelectionModel::NoUpdate);
        rows_->scrollTo(tree_->IndexOf(*node));
    }
    rows_->selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    isShowing_ = false;
}

/// The row that was chosen last leads.
void lstComponents::ChooseRows() {
    if (isShowing_)
        return;
    std::vector<ComponentRef> components;
    std::optional<ComponentRef> leader;
    for (const QModelIndex& row : rows_->selectionModel()->selectedRows()) {
        const ComponentList::Node& node = tree_->NodeAt(row);
        if (node.type != Type::Component)
            continue;
        if (row.siblingAtColumn(0) == rows_->currentIndex().siblingAtColumn(0))
            leader = node.component;
        else
            components.push_back(node.component);
    }
    if (leader)
        components.push_back(*leader);
    if (components.empty())
        return;
    document_.Select(Selection(std::move(components)));
    emit SelectionChosen();
}

void lstComponents::FilterAs(const QString& text) {
    list_.SetFilter(text.trimmed().toStdString());
    Rebuild();
    if (list_.Filter().empty())
        return;
    if (const std::optional<ComponentRef> best = list_.BestMatch(document_.Model())) {
        document_.Select(*best);
        ShowSelection();
        emit SelectionChosen();
    }
}

void lstComponents::Activate(const QModelIndex& index) {
    switch (tree_->NodeAt(index).type) {
    case Type::Window:
        return emit WindowWanted();
    case Type::Component:
        return emit PropertiesWanted();
    case Type::MenuBar:
    case Type::Menu:
        return emit MenusWanted();
    case Type::Kind:
        return rows_->setExpanded(index.siblingAtColumn(0), !rows_->isExpanded(index.siblingAtColumn(0)));
    case Type::Root:
        break;
    }
}

bool lstComponents::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    return watched == txtFind_ ? KeyInField(*event) : KeyOnRow(*event);
}

bool lstComponents::KeyInField(const QEvent& event) {
    switch (static_cast<const QKeyEvent&>(event).key()) {
    case Qt::Key_Down:
        rows_->setFocus(Qt::TabFocusReason);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit Left();
        return true;
    case Qt::Key_Escape:
        if (txtFind_->text().isEmpty())
            emit Left();
        txtFind_->clear();
        return true;
    default:
        return false;
    }
}

bool lstComponents::KeyOnRow(const QEvent& event) {
    const int key = static_cast<const QKeyEvent&>(event).key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    if (rows_->currentIndex().isValid())
        Activate(rows_->currentIndex());
    return true;
}

} // namespace pirol
