#include "controls/ComponentKind.h"

namespace pirol {
namespace {

std::optional<ComponentKind> Find(std::string_view KindRow::*column, std::string_view text) {
    for (const KindRow& row : kindRows)
        if (row.*column == text)
            return row.kind;
    return std::nullopt;
}

} // namespace

std::optional<ComponentKind> KindByNumber(int number) {
    if (number < 1 || number > static_cast<int>(kindCount))
        return std::nullopt;
    return static_cast<ComponentKind>(number);
}

std::optional<ComponentKind> KindByKey(std::string_view key) {
    return Find(&KindRow::key, key);
}

std::optional<ComponentKind> KindByControl(std::string_view control) {
    return Find(&KindRow::control, control);
}

std::optional<ComponentKind> KindByJavaClass(std::string_view javaClass) {
    return Find(&KindRow::javaClass, javaClass);
}

} // namespace pirol
