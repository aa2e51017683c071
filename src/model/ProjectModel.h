#pragma once

#include "base/PagedArray.h"
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

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace pirol {

/// Addresses one element of a kind's array. Element 0 is the kind's hidden template; placed components start at 1.
struct ComponentRef {
    ComponentKind kind;
    std::size_t index;

    auto operator<=>(const ComponentRef&) const = default; // NOLINT(modernize-use-nullptr): no pointer here
};

struct DesignChange;

/// The whole design: window, components, menu bar and SQL settings. An ordinary value that can be copied and compared.
/// Copies share what does not differ, so that copying costs next to nothing and comparing a copy with its original
/// costs what has changed since. A reference to a part holds until the design is copied or changed.
class ProjectModel {
  public:
    static constexpr std::int16_t defaultWidth = 640;
    static constexpr std::int16_t defaultHeight = 480;

    ProjectModel();

    // The designed window, in pixels, and who made it.
    std::int16_t WindowWidth() const { return window_->width; }
    std::int16_t WindowHeight() const { return window_->height; }
    const std::string& Author() const { return window_->author; }
    void SetWindowSize(std::int16_t width, std::int16_t height);
    void SetAuthor(std::string_view author);

    /// The number of elements of a kind, the hidden template and hidden elements included.
    std::size_t ElementCount(ComponentKind kind) const;
    /// Raises RuntimeError::IndexOutOfRange when there is no such element. Constant time.
    const Control& Element(ComponentRef component) const;
    /// All elements but the templates in the order in which they were created, hidden ones included.
    const PagedArray<ComponentRef>& CreationOrder() const { return creationOrder_; }
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
    /// Appends a visible element as the user places it: named and captioned with the number of elements its array held,
    /// at the given position. Multimedia kinds keep their own size, all others take the rectangle's.
    /// Raises RuntimeError::Overflow when the rectangle leaves the 16-bit range.
    ComponentRef PlaceComponent(ComponentKind kind, const Rectangle& box);
    /// An element to be changed. Raises RuntimeError::IndexOutOfRange when there is no such element.
    Control& EditElement(ComponentRef component);
    /// The running number that a control of some kinds keeps from its placement; 0 for all others. Setting it changes
    /// nothing for those.
    int PlacementNumber(ComponentRef component) const;
    void SetPlacementNumber(ComponentRef component, int number);
    /// Hides a component. When no element of its kind is visible any more they are all removed, so that the kind's
    /// numbering starts again at 1; for sliders and progress bars it never does.
    void DeleteComponent(ComponentRef component);

    const MenuBar& Menus() const { return *menus_; }
    MenuBar& EditMenus() { return menus_.Edit(); }
    const SQLSettings& Sql() const { return *sql_; }
    SQLSettings& EditSql() { return sql_.Edit(); }

    /// Makes the design empty. The SQL settings stay: a new project goes on with the database of the last one.
    void Reset();

    /// The memory, roughly and in bytes, of what this design does not share with the other one.
    std::size_t UnsharedBytes(const ProjectModel& other) const;

    bool operator==(const ProjectModel& other) const;
    friend DesignChange Differences(const ProjectModel& before, const ProjectModel& after);

  private:
    struct Window {
        std::int16_t width = defaultWidth;
        std::int16_t height = defaultHeight;
        std::string author;

        bool operator==(const Window&) const = default;
    };

    using Elements =
        std::tuple<PagedArray<dEtikett>, PagedArray<dButton>, PagedArray<dText>, PagedArray<dZeichenbereich>,
                   PagedArray<dZeilenbereich>, PagedArray<dPassword>, PagedArray<dSchalter>, PagedArray<dOptionsgruppe>,
                   PagedArray<dAuswahl>, PagedArray<dRegler>, PagedArray<dFortschritt>, PagedArray<dTabelle>,
                   PagedArray<dBild>, PagedArray<dMusik>, PagedArray<dVideo>>;
    static_assert(std::tuple_size_v<Elements> == kindCount);

    CopyOnWrite<Window> window_;
    Elements elements_;
    PagedArray<ComponentRef> creationOrder_;
    CopyOnWrite<MenuBar> menus_;
    CopyOnWrite<SQLSettings> sql_;
};

} // namespace pirol
