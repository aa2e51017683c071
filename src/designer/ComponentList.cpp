#include "designer/ComponentList.h"

#include "base/Conversions.h"
#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace pirol {
namespace {

/// What is shown and searched of a text; more tells nobody anything.
constexpr std::size_t mostTextBytes = 1000;

/// A to Z and the umlauts in small letters, whatever the locale.
std::string FoldedCase(std::string_view text) {
    constexpr char latin = '\xC3'; // begins the letters from À to ÿ in UTF-8
    std::string folded = LowerCase(text);
    for (std::size_t i = 1; i < folded.size(); ++i) {
        const auto code = static_cast<unsigned char>(folded[i]);
        if (folded[i - 1] == latin && code >= 0x80 && code <= 0x9E && code != 0x97)
            folded[i] = static_cast<char>(code + 0x20);
    }
    return folded;
}

/// How well a text fits what is sought; less is better.
enum Fit { Whole, Beginning = 2, Part = 4, Nowhere = 6 };

Fit FitOf(std::string_view text, std::string_view sought) {
    const std::string small = FoldedCase(text.substr(0, mostTextBytes));
    const std::size_t place = small.find(sought);
    if (place == std::string::npos)
        return Nowhere;
    return place != 0 ? Part : small.size() == sought.size() ? Whole : Beginning;
}

/// Names come before texts that fit as well.
int FitOf(const Control& control, std::string_view sought) {
    return std::min<int>(FitOf(control.ObjectName, sought), FitOf(SpokenText(control), sought) + 1);
}

} // namespace

std::string SpokenText(const Control& control) {
    for (const PropertyRow& row : control.Table().Rows()) {
        const EditorKind editor = row.key->editor;
        if (row.isOn != nullptr ||
            (editor != EditorKind::Text && editor != EditorKind::List && editor != EditorKind::File))
            continue;
        std::string text = row.get(control);
        if (editor == EditorKind::List)
            text.resize(std::min(text.find('\0'), text.size()));
        return text;
    }
    return {};
}

ComponentList::ComponentList() : nodes_(1) {}

void ComponentList::SetFilter(std::string_view filter) {
    filter_ = FoldedCase(filter.substr(0, mostTextBytes));
}

bool ComponentList::Matches(const Control& control) const {
    return filter_.empty() || FitOf(control, filter_) <= Nowhere - 1;
}

void ComponentList::Rebuild(const ProjectModel& model) {
    nodes_.assign(1, {});
    menuCaptions_.clear();
    for (const KindRow& row : KindRows())
        nodeOf_[Position(row.kind)].assign(model.ElementCount(row.kind), 0);
    std::vector<Node> top = {{.type = Node::Type::Window}};
    if (!model.Menus().IsEmpty())
        top.push_back({.type = Node::Type::MenuBar});
    AddChildren(root, top);
    order_ == Order::Kinds ? AddKinds(model) : AddInOrder(model);
    AddMenus(model);
}

void ComponentList::AddChildren(std::size_t parent, const std::vector<Node>& children) {
    nodes_[parent].firstChild = nodes_.size();
    nodes_[parent].childCount = children.size();
    for (Node node : children) {
        node.parent = parent;
        if (node.type == Node::Type::Component)
            nodeOf_[Position(node.component.kind)][node.component.index] = nodes_.size();
        nodes_.push_back(node);
    }
}

void ComponentList::AddComponents(std::size_t parent, const std::vector<ComponentRef>& components) {
    std::vector<Node> children;
    children.reserve(components.size());
    for (const ComponentRef component : components)
        children.push_back({.type = Node::Type::Component, .component = component});
    AddChildren(parent, children);
}

void ComponentList::AddKinds(const ProjectModel& model) {
    std::array<std::vector<ComponentRef>, kindCount> components;
    std::vector<Node> kinds;
    for (const KindRow& row : KindRows()) {
        std::vector<ComponentRef>& found = components[Position(row.kind)];
        for (std::size_t index = 1; index < model.ElementCount(row.kind); ++index) {
            const Control& control = model.Element({row.kind, index});
            if (control.Visible && Matches(control))
                found.push_back({row.kind, index});
        }
        if (!found.empty())
            kinds.push_back({.type = Node::Type::Kind, .component = {row.kind, 0}});
    }
    const std::size_t window = nodes_[root].firstChild;
    AddChildren(window, kinds);
    const std::size_t firstKind = nodes_[window].firstChild;
    for (std::size_t i = 0; i < kinds.size(); ++i)
        AddComponents(firstKind + i, components[Position(kinds[i].component.kind)]);
}

void ComponentList::AddInOrder(const ProjectModel& model) {
    std::vector<ComponentRef> found;
    for (const ComponentRef component : model.CreationOrder()) {
        const Control& control = model.Element(component);
        if (control.Visible && Matches(control))
            found.push_back(component);
    }
    AddComponents(nodes_[root].firstChild, found);
}

void ComponentList::AddMenus(const ProjectModel& model) {
    if (model.Menus().IsEmpty())
        return;
    const std::size_t bar = nodes_[root].firstChild + 1;
    filter_.empty() ? AddMenuTree(bar, model.Menus().Menus()) : AddFittingMenus(bar, model.Menus().Menus());
}

ComponentList::Node ComponentList::MenuNode(const cMenu& menu) {
    menuCaptions_.push_back(Shortened(menu.Caption, mostTextBytes));
    return {.type = Node::Type::Menu, .menu = menuCaptions_.size() - 1};
}

/// Level by level, so that the children of each lie together.
void ComponentList::AddMenuTree(std::size_t bar, const std::list<cMenu>& menus) {
    std::vector<std::pair<std::size_t, const std::list<cMenu>*>> parents = {{bar, &menus}};
    for (std::size_t next = 0; next < parents.size(); ++next) {
        const auto [parent, children] = parents[next];
        std::vector<Node> nodes;
        for (const cMenu& menu : *children)
            nodes.push_back(MenuNode(menu));
        AddChildren(parent, nodes);
        std::size_t child = nodes_[parent].firstChild;
        for (const cMenu& menu : *children)
            parents.emplace_back(child++, &menu.Children());
    }
}

/// What fits lies directly below the bar.
void ComponentList::AddFittingMenus(std::size_t bar, const std::list<cMenu>& menus) {
    std::vector<const std::list<cMenu>*> lists = {&menus};
    std::vector<Node> fitting;
    for (std::size_t next = 0; next < lists.size(); ++next)
        for (const cMenu& menu : *lists[next]) {
            if (FitOf(menu.Caption, filter_) != Nowhere)
                fitting.push_back(MenuNode(menu));
            lists.push_back(&menu.Children());
        }
    AddChildren(bar, fitting);
}

bool ComponentList::IsListed(ComponentRef component) const {
    return NodeOf(component).has_value();
}

bool ComponentList::IsOutdatedBy(const ProjectModel& model, const DesignChange& change) const {
    if (change.allComponents || change.menus)
        return true;
    return std::any_of(change.components.begin(), change.components.end(), [&](const ComponentChange& changed) {
        const ComponentRef component = changed.component;
        const bool isThere = component.index < model.ElementCount(component.kind);
        const bool belongs = isThere && model.Element(component).Visible && Matches(model.Element(component));
        return belongs != IsListed(component);
    });
}

std::optional<std::size_t> ComponentList::NodeOf(ComponentRef component) const {
    const std::vector<std::size_t>& nodes = nodeOf_[Position(component.kind)];
    if (component.index >= nodes.size() || nodes[component.index] == 0)
        return std::nullopt;
    return nodes[component.index];
}

std::string ComponentList::NameOf(const ProjectModel& model, std::size_t node) const {
    const Node& shown = nodes_[node];
    switch (shown.type) {
    case Node::Type::Window:
        return Concatenate("Fenster ", model.WindowWidth(), " x ", model.WindowHeight());
    case Node::Type::Kind:
        return Concatenate(RowOf(shown.component.kind).menuLabel, " (", shown.childCount, ")");
    case Node::Type::Component:
        return Shortened(model.Element(shown.component).ObjectName, mostTextBytes);
    case Node::Type::MenuBar:
        return "Menüleiste";
    case Node::Type::Menu:
        return menuCaptions_[shown.menu];
    case Node::Type::Root:
        break;
    }
    return {};
}

std::string ComponentList::TextOf(const ProjectModel& model, std::size_t node) const {
    const Node& shown = nodes_[node];
    if (shown.type != Node::Type::Component)
        return {};
    return Shortened(SpokenText(model.Element(shown.component)), mostTextBytes);
}

std::optional<ComponentRef> ComponentList::BestMatch(const ProjectModel& model) const {
    std::optional<ComponentRef> best;
    int bestFit = Nowhere;
    for (const ComponentRef component : model.CreationOrder()) {
        if (!IsListed(component))
            continue;
        const int fit = FitOf(model.Element(component), filter_);
        if (fit < bestFit) {
            bestFit = fit;
            best = component;
        }
    }
    return best;
}

} // namespace pirol
