#pragma once

#include "base/Rectangle.h"
#include "controls/ComponentKind.h"
#include "controls/Control.h"
#include "controls/dAuswahl.h"
#include "controls/dBild.h"
#include "controls/dButton.h"
#include "controls/dEtikett.h"
#include "controls/dFortschritt.h"
#include "controls/dMusik.h"
#include "controls/dOptionsgruppe.h"
#include "controls/dPassword.h"
#include "controls/dRegler.h"
#include "controls/dSchalter.h"
#include "controls/dTabelle.h"
#include "controls/dText.h"
#include "controls/dVideo.h"
#include "controls/dZeichenbereich.h"
#include "controls/dZeilenbereich.h"
#include "menu/MenuBar.h"
#include "sql/SQLModule.h"

#include <array>
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace pirol {

/// Addresses one element of a kind's array. Element 0 is the kind's hidden template; placed components start at 1.
struct ComponentRef {
    ComponentKind kind;
    std::size_t index;

    auto operator<=>(const ComponentRef&) const = default; // NOLINT(modernize-use-nullptr): no pointer here
};

/// What an operation of the model changed.
struct Change {
    enum class What { Component, Window, Menus, Sql, Everything };

    What what;
    ComponentRef component = {}; ///< of a changed component
    Rectangle before = {};       ///< where that component was; where it is now the component itself tells
};

/// The whole design: window, components, menu bar and SQL settings. An ordinary value that can be copied and compared;
/// changed mark, file path and pending announcements are no part of the comparison.
class ProjectModel {
  public:
    static constexpr std::int16_t defaultWidth = 640;
    static constexpr std::int16_t defaultHeight = 480;

    ProjectModel();

    // The designed window, in pixels, and who made it.
    std::int16_t WindowWidth() const { return windowWidth_; }
    std::int16_t WindowHeight() const { return windowHeight_; }
    const std::string& Author() const { return author_; }
    void SetWindowSize(std::int16_t width, std::int16_t height);
    void SetAuthor(std::string_view author);

    /// The number of elements of a kind, the hidden template and hidden elements included.
    std::size_t ElementCount(ComponentKind kind) const;
    /// Raises RuntimeError::IndexOutOfRange when there is no such element. Constant time.
    const Control& Element(ComponentRef component) const;
    /// All elements but the templates in the order in which they were created, hidden ones included.
    const std::vector<ComponentRef>& CreationOrder() const { return creationOrder_; }
    /// Where the element lies; an empty rectangle when it is hidden or gone.
    Rectangle VisibleBox(ComponentRef component) const;

    /// Calls `function(const Control&)` for every visible component, kind by kind, each in creation order.
    template <class Function>
    void ForEachVisible(Function&& function) const {
        const auto visit = [&function](const auto& elements) {
            for (std::size_t index = 1; index < elements.size(); ++index)
                if (elements[index].Visible)
                    function(static_cast<const Control&>(elements[index]));
        };
        std::apply([&visit](const auto&... arrays) { (visit(arrays), ...); }, elements_);
    }

    /// Appends a visible element with its control's defaults.
    ComponentRef AddElement(ComponentKind kind);
    /// Makes room for elements that will be added, so many of each kind. A hint that spares memory; it changes nothing.
    void ReserveElements(const std::array<std::size_t, kindCount>& counts);
    /// Appends a visible element as the user places it: named and captioned with the number of elements its array held,
    /// at the given position. Multimedia kinds keep their own size, all others take the rectangle's.
    /// Raises RuntimeError::Overflow when the rectangle leaves the 16-bit range.
    ComponentRef PlaceComponent(ComponentKind kind, const Rectangle& box);
    /// Gives an element for changing it and announces that.
    Control& EditElement(ComponentRef component);
    /// The running number that a control of some kinds keeps from its placement; 0 for all others. Setting it changes
    /// nothing for those.
    int PlacementNumber(ComponentRef component) const;
    void SetPlacementNumber(ComponentRef component, int number);
    /// Hides a component. When no element of its kind is visible any more they are all removed, so that the kind's
    /// numbering starts again at 1; for sliders and progress bars it never does.
    void DeleteComponent(ComponentRef component);

    const MenuBar& Menus() const { return menus_; }
    MenuBar& EditMenus();
    const SQLSettings& Sql() const { return sql_; }
    SQLSettings& EditSql();

    /// Makes the design empty. The SQL settings stay: a new project goes on with the database of the last one.
    void Reset();

    /// Whether the design was changed since it was last loaded, saved or emptied, and the file it belongs to (UTF-8,
    /// empty for none). Both only inform: no command asks because of them.
    bool IsChanged() const { return changed_; }
    const std::string& FilePath() const { return filePath_; }
    void MarkUnchanged(std::string_view filePath);

    /// What changed since the last call, each operation once; a single Everything when there was too much to list.
    std::vector<Change> TakeChanges() { return std::exchange(changes_, {}); }

    bool operator==(const ProjectModel& other) const;

  private:
    void Announce(const Change& change);

    using Elements =
        std::tuple<std::vector<dEtikett>, std::vector<dButton>, std::vector<dText>, std::vector<dZeichenbereich>,
                   std::vector<dZeilenbereich>, std::vector<dPassword>, std::vector<dSchalter>,
                   std::vector<dOptionsgruppe>, std::vector<dAuswahl>, std::vector<dRegler>, std::vector<dFortschritt>,
                   std::vector<dTabelle>, std::vector<dBild>, std::vector<dMusik>, std::vector<dVideo>>;
    static_assert(std::tuple_size_v<Elements> == kindCount);

    std::int16_t windowWidth_ = defaultWidth;
    std::int16_t windowHeight_ = defaultHeight;
    std::string author_;
    Elements elements_;
    std::vector<ComponentRef> creationOrder_;
    MenuBar menus_;
    SQLSettings sql_;

    bool changed_ = false;
    std::string filePath_;
    std::vector<Change> changes_;
};

} // namespace pirol
