#pragma once

#include "model/Differences.h"
#include "model/ProjectModel.h"

#include <array>
#include <cstddef>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// What a component says: its caption, the first entry of its list, its file; UTF-8, empty when it says nothing.
std::string SpokenText(const Control& control);

/// What there is in a design, as a tree: the window with its components, by kind or in the order of creation, and the
/// menu bar with its menus. A filter leaves the components and menus whose name or text contains it, large and small
/// letters alike. Building takes time linear in the design; the tree holds no texts of components.
class ComponentList {
  public:
    enum class Order { Kinds, Creation };

    struct Node {
        enum class Type { Root, Window, Kind, Component, MenuBar, Menu };

        Type type = Type::Root;
        std::size_t parent = 0;
        std::size_t firstChild = 0; ///< the children lie one behind the other
        std::size_t childCount = 0;
        ComponentRef component = {}; ///< of a kind only the kind
        std::size_t menu = 0;        ///< place among the menus' captions
    };
    static constexpr std::size_t root = 0; ///< the number of the node above all

    /// Without a filter, and empty.
    ComponentList();

    void SetOrder(Order order) { order_ = order; }
    void SetFilter(std::string_view filter);
    const std::string& Filter() const { return filter_; }
    /// Takes in the design with the present order and filter.
    void Rebuild(const ProjectModel& model);
    /// Whether the design's change makes other components or menus to be listed, so that the list must be rebuilt.
    bool IsOutdatedBy(const ProjectModel& model, const DesignChange& change) const;

    /// The nodes; every reference holds until the list is rebuilt.
    const std::vector<Node>& Nodes() const { return nodes_; }
    /// The component's node, unless it is not listed.
    std::optional<std::size_t> NodeOf(ComponentRef component) const;
    /// What the user reads, German: the node's name, and what it says.
    std::string NameOf(const ProjectModel& model, std::size_t node) const;
    std::string TextOf(const ProjectModel& model, std::size_t node) const;

    /// The listed component that the filter fits best: its whole name, its whole text, the beginning of either, any
    /// part; among equals the first one created.
    std::optional<ComponentRef> BestMatch(const ProjectModel& model) const;

  private:
    bool Matches(const Control& control) const;
    bool IsListed(ComponentRef component) const;
    void AddKinds(const ProjectModel& model);
    void AddInOrder(const ProjectModel& model);
    void AddMenus(const ProjectModel& model);
    void AddMenuTree(std::size_t bar, const std::list<cMenu>& menus);
    void AddFittingMenus(std::size_t bar, const std::list<cMenu>& menus);
    Node MenuNode(const cMenu& menu);
    void AddChildren(std::size_t parent, const std::vector<Node>& children);
    void AddComponents(std::size_t parent, const std::vector<ComponentRef>& components);

    Order order_ = Order::Kinds;
    std::string filter_; ///< in small letters
    std::vector<Node> nodes_;
    std::array<std::vector<std::size_t>, kindCount> nodeOf_; ///< by the component's index; 0 when it is not listed
    std::vector<std::string> menuCaptions_;
};

} // namespace pirol
