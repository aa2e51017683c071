#include "ui/main/EndWatch.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#include <utility>

#ifndef _WIN32
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace pirol {

EndWatch::EndWatch(std::function<void(const std::string&)> tell) : tell_(std::move(tell)) {
    // Some session managers ask for the one, some for the other; the program may be gone right after the answer.
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &EndWatch::EndOfSession, Qt::DirectConnection);
    connect(qGuiApp, &QGuiApplication::saveStateRequest, this, &EndWatch::EndOfSession, Qt::DirectConnection);
    WatchSignals();
}

void EndWatch::EndOfSession(QSessionManager& manager) {
    manager.setRestartHint(QSessionManager::RestartNever);
    tell_("Sitzung beendet");
}

#ifdef _WIN32

// Windows tells the end of a session only.

EndWatch::~EndWatch() = default;

void EndWatch::WatchSignals() {}

void EndWatch::EndBySignal() {}

#else

namespace {

constexpr int watched[] = {SIGTERM, SIGHUP};

/// Hardly anything is allowed in a signal's handler; a byte in a pipe leads to the event loop.
int writtenEnd = -1;

void PassOn(int signal) {
    const int before = errno;
    const char byte = static_cast<char>(signal);
    [[maybe_unused]] const ssize_t count = write(writtenEnd, &byte, 1);
    errno = before;
}

} // namespace

void EndWatch::WatchSignals() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    pipe_ = ends[0];
    writtenEnd = ends[1];
    connect(new QSocketNotifier(pipe_, QSocketNotifier::Read, this), &QSocketNotifier::activated, this,
            &EndWatch::EndBySignal);
    struct sigaction action = {};
    action.sa_handler = PassOn;
    // A second signal ends a program that does not come to it.
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (const int signal : watched) {
        struct sigaction before = {};
        // Who started the program may have it live on when he leaves.
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
            sigaction(signal, &action, nullptr);
    }
}

EndWatch::~EndWatch() {
    for (const int signal : watched)
        std::signal(signal, SIG_DFL);
    close(pipe_);
    close(std::exchange(writtenEnd, -1));
}

void EndWatch::EndBySignal() {
    char signal = 0;
    if (read(pipe_, &signal, 1) != 1)
        return;
    tell_("Pirol vom System beendet");
    // The parent shall see by what the program ended.
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

#endif

} // namespace pirol
