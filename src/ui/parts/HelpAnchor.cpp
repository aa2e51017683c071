#include "ui/parts/HelpAnchor.h"

#include "ui/parts/FormParts.h"

#include <QVariant>

namespace pirol {
namespace {

constexpr const char* anchorProperty = "helpAnchor";

} // namespace

void SetHelpAnchor(QWidget* widget, std::string_view anchor) {
    widget->setProperty(anchorProperty, ToText(anchor));
}

std::string HelpAnchorOf(const QWidget* widget) {
    for (; widget != nullptr && !widget->isWindow(); widget = widget->parentWidget())
        if (const QString anchor = widget->property(anchorProperty).toString(); !anchor.isEmpty())
            return anchor.toStdString();
    return {};
}

} // namespace pirol
