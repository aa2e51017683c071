#pragma once

#include "controls/ComponentKind.h"
#include "controls/PropertyTable.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace pirol {

/// Tells a component from every other one, also from one that takes its name or its place later. No property: it does
/// not count when controls are compared.
struct SerialNumber {
    std::uint64_t value = 0;

    bool operator==(const SerialNumber&) const { return true; }
};

/// A design-time control: one component of the designed window with its properties. Positions and sizes are pixels of
/// the designed window. Public members carry the properties' own names; ControlTable says how each is shown and stored.
struct Control {
    std::string ObjectName; ///< becomes the Java field's name
    std::int16_t Left = 0;
    std::int16_t Top = 0;
    std::int16_t Width = 0;
    std::int16_t Height = 0;
    bool Visible = false; ///< false for the hidden template of each kind and for deleted components
    SerialNumber Serial;  ///< grows in the order in which components are made; 0 for a template

    virtual ~Control() = default;

    virtual const ControlTable& Table() const = 0;
    ComponentKind Kind() const { return Table().Kind(); }

    /// The declaration line of the component's field in the generated class.
    virtual std::string CreateHeaderText() const;
    /// The statements that create the component at the given position and register its handlers.
    virtual std::string CreateInitText(int left, int top) const = 0;
    /// The empty handler methods of the events that are on.
    virtual std::string CreateEventText() const;

    /// The component's line of the project file, CR LF included: its kind's number, the position, the size and the
    /// stored properties, separated by code 0; list items separated by code 1.
    std::string CreatePRLString(int left, int top) const;
    /// Fills name, position, size and stored properties from the fields of such a line, one after another.
    /// Raises RuntimeError::IndexOutOfRange when fields are missing, and what ToInt16 raises; the properties before the
    /// bad field have their new values then. Surplus fields are ignored.
    void LoadFromPRL(std::span<const std::string_view> fields);

    bool operator==(const Control&) const = default;

  protected:
    Control() = default;
    Control(const Control&) = default;
    Control(Control&&) = default;
    Control& operator=(const Control&) = default;
    Control& operator=(Control&&) = default;
    /// Left, top, width and height, separated by commas.
    std::string Box(int left, int top) const;
    /// The creation statement of the kind's Java class with the text between its parentheses.
    std::string Creation(std::string_view arguments) const;
    /// A statement that calls a method of this component.
    std::string Call(std::string_view method, std::string_view arguments) const;
    /// The registrations of the events that are on, in the order of the property list.
    std::string Registrations() const;
};

/// A control that can have the input focus in the running program.
struct FocusableControl : Control {
    bool EventGotFocus = false;
    bool EventLostFocus = false;

    bool operator==(const FocusableControl&) const = default;
};

} // namespace pirol
