#include "ui/dialogs/frmProgramStarter.h"

#include "base/RuntimeError.h"
#include "ui/parts/FormParts.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <QProcess>
#endif

namespace pirol {

#ifdef _WIN32

void frmProgramStarter::Start(const std::string& program, const std::string& folder, Window window) {
    std::wstring line = ToText(CommandLine(program, folder)).toStdWString();
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = window == Window::Minimised ? SW_SHOWMINIMIZED : SW_SHOWNORMAL;
    PROCESS_INFORMATION process = {};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process) == 0)
        throw RuntimeError::OfFile({static_cast<int>(GetLastError()), std::system_category()});
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

#else

/// The system passes words, not a line, and leaves it to the window manager how a window opens.
void frmProgramStarter::Start(const std::string& program, const std::string& folder, Window) {
    const QStringList arguments = folder.empty() ? QStringList() : QStringList(ToText(folder));
    if (!QProcess::startDetached(ToText(program), arguments))
        throw RuntimeError(RuntimeError::PermissionDenied);
}

#endif

} // namespace pirol
