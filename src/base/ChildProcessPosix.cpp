// Processes of systems that know fork and signals.
#ifndef _WIN32

#include "base/ChildProcess.h"
#include "base/FileAccess.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

extern char** environ; // NOLINT(readability-redundant-declaration): not everywhere a header has it

namespace pirol {
namespace {

[[noreturn]] void ThrowError(int code) {
    throw RuntimeError::OfFile(std::error_code(code, std::generic_category()));
}

class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    ~Descriptor() {
        if (number_ >= 0)
            close(number_);
    }
    int Number() const { return number_; }

  private:
    int number_ = -1;
};

/// Two ends of a line: bytes go from the first to the second. Sockets, because writing to a closed pipe is a signal
/// that would end this program. Neither end is inherited by accident.
std::array<Descriptor, 2> NewLine() {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        ThrowError(errno);
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

/// How the new program begins: with our lines, in its folder, as the leader of its own group, and without the signal
/// settings of this program.
class Beginning {
  public:
    Beginning(const ProcessCall& call, int input, int output) {
        posix_spawn_file_actions_init(&files_);
        posix_spawn_file_actions_adddup2(&files_, input, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&files_, output, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&files_, output, STDERR_FILENO);
        if (!call.folder.empty())
            posix_spawn_file_actions_addchdir_np(&files_, call.folder.c_str());
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setpgroup(&attributes_, 0);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    Beginning(const Beginning&) = delete;
    Beginning& operator=(const Beginning&) = delete;
    ~Beginning() {
        posix_spawn_file_actions_destroy(&files_);
        posix_spawnattr_destroy(&attributes_);
    }

    pid_t Run(const ProcessCall& call, char** environment) const {
        std::vector<std::string> words{TextOf(call.program)};
        words.insert(words.end(), call.arguments.begin(), call.arguments.end());
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        pid_t process = 0;
        if (const int error =
                posix_spawn(&process, call.program.c_str(), &files_, &attributes_, arguments.data(), environment);
            error != 0)
            ThrowError(error);
        return process;
    }

  private:
    posix_spawn_file_actions_t files_{};
    posix_spawnattr_t attributes_{};
};

class PosixProcess final : public ChildProcess {
  public:
    PosixProcess(pid_t process, Descriptor input, Descriptor output)
        : process_(process), input_(std::move(input)), output_(std::move(output)) {}
    PosixProcess(const PosixProcess&) = delete;
    PosixProcess& operator=(const PosixProcess&) = delete;
    ~PosixProcess() override {
        End();
        Status();
    }

    bool Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            // Asked again now and then, as what a stranger has inherited may stay open when the process has ended.
            pollfd ready{input_.Number(), POLLOUT, 0};
            if (poll(&ready, 1, pauseMilliseconds) == 0) {
                if (HasEnded())
                    return false;
                continue;
            }
            const ssize_t count = send(input_.Number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
            if (count < 0 && errno != EINTR && errno != EAGAIN)
                return false;
            bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
        }
        return true;
    }

    Reading Read(std::string& out, std::chrono::milliseconds longest) override {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point until = Clock::now() + longest;
        while (true) {
            const auto rest = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
            pollfd ready{output_.Number(), POLLIN, 0};
            const int wait = static_cast<int>(std::clamp<std::int64_t>(rest.count(), 0, pauseMilliseconds));
            if (poll(&ready, 1, wait) > 0) {
                char bytes[16384];
                const ssize_t count = read(output_.Number(), bytes, sizeof bytes);
                if (count == 0 || (count < 0 && errno != EINTR))
                    return Reading::End;
                out.append(bytes, count < 0 ? 0 : static_cast<std::size_t>(count));
                if (count > 0)
                    return Reading::Bytes;
            } else if (HasEnded()) {
                return Reading::End;
            } else if (Clock::now() >= until) {
                return Reading::Nothing;
            }
        }
    }

    void End() override {
        const std::scoped_lock lock(mutex_);
        if (!status_)
            kill(-process_, SIGKILL);
    }

    int Status() override {
        while (!HasEnded())
            poll(nullptr, 0, 10);
        const std::scoped_lock lock(mutex_);
        return WIFEXITED(*status_) ? WEXITSTATUS(*status_) : -1;
    }

  private:
    static constexpr int pauseMilliseconds = 100;

    /// Its number is free for others once its status has been fetched, so that is done under the lock that killing
    /// takes.
    bool HasEnded() {
        const std::scoped_lock lock(mutex_);
        int status = 0;
        if (!status_ && waitpid(process_, &status, WNOHANG) != 0) {
            status_ = status;
            kill(-process_, SIGKILL); // what it has started and left behind
        }
        return status_.has_value();
    }

    std::mutex mutex_;
    pid_t process_;
    std::optional<int> status_;
    Descriptor input_;
    Descriptor output_;
};

bool IsUtf8(const char* locale) {
    const std::string_view name = locale == nullptr ? "" : locale;
    return name.find("UTF-8") != name.npos || name.find("utf8") != name.npos;
}

/// The variable that decides about the encoding of file names.
const char* LocaleOfNames() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* value = std::getenv(variable); value != nullptr && *value != '\0')
            return value;
    return nullptr;
}

/// This program takes file names as UTF-8 everywhere. Others would lose umlauts where the locale is none of UTF-8.
std::vector<char*> Environment() {
    static char allNames[] = "LC_ALL=C.UTF-8";
    std::vector<char*> lines;
    const bool replaces = !IsUtf8(LocaleOfNames());
    for (char** line = environ; *line != nullptr; ++line)
        if (!replaces || !std::string_view(*line).starts_with("LC_ALL="))
            lines.push_back(*line);
    if (replaces)
        lines.push_back(allNames);
    lines.push_back(nullptr);
    return lines;
}

} // namespace

std::unique_ptr<ChildProcess> SystemProcessStarter::Start(const ProcessCall& call) {
    std::array<Descriptor, 2> input = NewLine();
    std::array<Descriptor, 2> output = NewLine();
    const pid_t process = Beginning(call, input[1].Number(), output[1].Number()).Run(call, Environment().data());
    return std::make_unique<PosixProcess>(process, std::move(input[0]), std::move(output[0]));
}

} // namespace pirol

#endif
