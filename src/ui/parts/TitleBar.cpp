#include "ui/parts/TitleBar.h"

#include <QWidget>

#ifdef _WIN32
#include <windows.h>
#include <dwmapi.h>
#endif

namespace pirol {

#ifdef _WIN32
void ShowTitleDark(const QWidget& window, bool isDark) {
    constexpr DWORD immersiveDarkMode = 20; // from Windows 10 on; others refuse it, and nothing is lost
    const BOOL value = isDark ? TRUE : FALSE;
    DwmSetWindowAttribute(reinterpret_cast<HWND>(window.winId()), immersiveDarkMode, &value, sizeof(value));
}
#else
void ShowTitleDark(const QWidget&, bool) {}
#endif

} // namespace pirol
