#pragma once

#include <string>
#include <string_view>

class QWidget;

namespace pirol {

/// Where in the handbook help leads while the keyboard is in this widget or one of its parts, instead of the window's
/// chapter; an empty anchor for nowhere in particular.
void SetHelpAnchor(QWidget* widget, std::string_view anchor);

/// The anchor of the widget, or of the nearest one around it in its window; empty for none. The widget may be null.
std::string HelpAnchorOf(const QWidget* widget);

} // namespace pirol
