#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// The types of a field in a list's rows: tString, tNumber and tBoolean of the row descriptors.
enum class FieldType { String, Number, Boolean };

struct FieldDescriptor {
    std::string label;
    FieldType type;
    std::string initialValue; ///< in the form that SetCell gives a value

    bool operator==(const FieldDescriptor&) const = default;
};

/// What the rows of a list property look like.
struct RowDescriptor {
    std::string label; ///< what one row is called
    std::vector<FieldDescriptor> fields;

    bool operator==(const RowDescriptor&) const = default;
};

/// Reads a descriptor "label|field|type|default|field|type|default...". Raises RuntimeError::IndexOutOfRange when there
/// is no field or the last one is not complete, RuntimeError::TypeMismatch for an unknown type, and what ToInt16 raises
/// for the default of a number.
RowDescriptor ParseRowDescriptor(std::string_view text);

/// The rows of a list property while they are edited; nothing reaches the design before the list is written back.
class ListEditorModel {
  public:
    /// Takes the list as a property holds it: the values of all rows one after another, separated by code 0.
    /// Raises what ParseRowDescriptor raises, and RuntimeError::IndexOutOfRange when the last row is not complete.
    ListEditorModel(std::string_view descriptor, std::string_view list);

    const RowDescriptor& Descriptor() const { return descriptor_; }
    std::size_t RowCount() const { return rows_.size(); }
    /// The value of a cell: numbers in decimal, flags as FlagText.
    /// Like all operations that take a row or column, raises RuntimeError::IndexOutOfRange when there is none.
    const std::string& Cell(std::size_t row, std::size_t column) const;
    /// Raises what ToInt16 raises for a number. Line breaks and the codes 0 and 1 become blanks.
    void SetCell(std::size_t row, std::size_t column, std::string_view value);

    /// Appends a row of default values and gives its place. A name that another row has already gets a number behind
    /// it, and a row with a position goes below the last one.
    std::size_t AddRow();
    void RemoveRow(std::size_t row);
    /// Exchange a row with its neighbour and give its new place; the first and the last one stay.
    std::size_t MoveUp(std::size_t row);
    std::size_t MoveDown(std::size_t row);

    /// The list as a property holds it.
    std::string ListText() const;

  private:
    using Row = std::vector<std::string>;

    void CheckRow(std::size_t row) const;
    std::string FreeName(std::size_t column, const std::string& name) const;
    void PutBelowLastRow(Row& row) const;

    RowDescriptor descriptor_;
    std::vector<Row> rows_;
};

} // namespace pirol
