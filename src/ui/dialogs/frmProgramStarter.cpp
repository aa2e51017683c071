#include "ui/dialogs/frmProgramStarter.h"

#include "base/RuntimeError.h"
#include "ui/parts/FormParts.h"

#ifdef _WIN32
#include <windows.h>
#include <shellapi.h>
#else
#include <QEventLoop>
#include <QProcess>
#include <QTimer>
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

bool frmProgramStarter::Open(const std::string& file) {
    constexpr INT_PTR worst = 32; // up to here the answer is an error
    const std::wstring path = ToText(file).toStdWString();
    return reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, nullptr, path.c_str(), nullptr, nullptr, SW_SHOWNORMAL)) >
           worst;
}

#else

/// The system passes words, not a line, and leaves it to the window manager how a window opens.
void frmProgramStarter::Start(const std::string& program, const std::string& folder, Window) {
    const QStringList arguments = folder.empty() ? QStringList() : QStringList(ToText(folder));
    if (!QProcess::startDetached(ToText(program), arguments))
        throw RuntimeError(RuntimeError::PermissionDenied);
}

/// Some desktops end the call at once, others only with the program that it starts; that one goes on when we end.
bool frmProgramStarter::Open(const std::string& file) {
    constexpr int patience = 5000;
    auto* const process = new QProcess;
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    QEventLoop wait;
    QObject::connect(process, &QProcess::finished, &wait, &QEventLoop::quit);
    QObject::connect(process, &QProcess::errorOccurred, &wait, &QEventLoop::quit);
    QTimer::singleShot(patience, &wait, &QEventLoop::quit);
    process->start("xdg-open", {ToText(file)});
    if (process->state() != QProcess::NotRunning)
        wait.exec(QEventLoop::ExcludeUserInputEvents);
    if (process->state() != QProcess::NotRunning)
        return true; // deleting the object would end what it has started
    const bool opened = process->error() == QProcess::UnknownError && process->exitStatus() == QProcess::NormalExit &&
                        process->exitCode() == 0;
    process->deleteLater();
    return opened;
}

#endif

} // namespace pirol
