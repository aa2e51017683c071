#pragma once

class QWidget;

namespace pirol {

/// Makes the system's title of a window dark or light. Where the desktop does so by itself, nothing happens.
void ShowTitleDark(const QWidget& window, bool isDark);

} // namespace pirol
