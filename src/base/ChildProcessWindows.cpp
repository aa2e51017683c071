// Processes of Windows.
#ifdef _WIN32

#include "base/ChildProcess.h"
#include "base/RuntimeError.h"

#include <windows.h>
#include <algorithm>
#include <atomic>
#include <mutex>
#include <optional>
#include <utility>

namespace pirol {
namespace {

[[noreturn]] void ThrowError() {
    throw RuntimeError::OfFile(std::error_code(static_cast<int>(GetLastError()), std::system_category()));
}

class Handle {
  public:
    Handle() = default;
    explicit Handle(HANDLE handle) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {
        if (handle_ == nullptr)
            ThrowError();
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Handle() {
        if (handle_ != nullptr)
            CloseHandle(handle_);
    }
    HANDLE Get() const { return handle_; }

  private:
    HANDLE handle_ = nullptr;
};

std::wstring Wide(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

/// One word of a command line, so that the program takes it apart as it was: backslashes are doubled only where a
/// double quote follows.
void AppendQuoted(std::wstring& line, std::wstring_view word) {
    line += line.empty() ? L"\"" : L" \"";
    std::size_t backslashes = 0;
    for (const wchar_t character : word) {
        if (character == L'"')
            line.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        line += character;
    }
    line.append(backslashes, L'\\');
    line += L'"';
}

/// A pipe whose reading end is ours and can be waited for with a limit, which only pipes with a name allow.
struct Pipe {
    Handle read;
    Handle write;
};

constexpr DWORD pipeBytes = 65536;

SECURITY_ATTRIBUTES Inheritable() {
    return {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
}

Pipe NewOutputPipe() {
    static std::atomic<unsigned> number = 0;
    const std::wstring name = L"\\\\.\\pipe\\Pirol-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                              std::to_wstring(++number) + L"-" + std::to_wstring(GetTickCount64());
    Pipe pipe;
    pipe.read = Handle(
        CreateNamedPipeW(name.c_str(), PIPE_ACCESS_INBOUND | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
                         PIPE_TYPE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS, 1, pipeBytes, pipeBytes, 0, nullptr));
    SECURITY_ATTRIBUTES inheritable = Inheritable();
    pipe.write = Handle(CreateFileW(name.c_str(), GENERIC_WRITE, 0, &inheritable, OPEN_EXISTING, 0, nullptr));
    return pipe;
}

Pipe NewInputPipe() {
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    SECURITY_ATTRIBUTES inheritable = Inheritable();
    if (CreatePipe(&read, &write, &inheritable, pipeBytes) == 0)
        ThrowError();
    Pipe pipe;
    pipe.read = Handle(read);
    pipe.write = Handle(write);
    SetHandleInformation(write, HANDLE_FLAG_INHERIT, 0);
    return pipe;
}

/// All processes in it end when the last handle of it is closed, and so also when this program is killed.
Handle NewJob() {
    Handle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

/// What a new process inherits: these handles and no others, however many are open.
class Inheritance {
  public:
    Inheritance(HANDLE input, HANDLE output) : handles_{input, output} {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        memory_.resize(size);
        if (InitializeProcThreadAttributeList(List(), 1, 0, &size) == 0)
            ThrowError();
        UpdateProcThreadAttribute(List(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_, sizeof handles_, nullptr,
                                  nullptr);
    }
    Inheritance(const Inheritance&) = delete;
    Inheritance& operator=(const Inheritance&) = delete;
    ~Inheritance() { DeleteProcThreadAttributeList(List()); }
    LPPROC_THREAD_ATTRIBUTE_LIST List() { return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.data()); }

  private:
    HANDLE handles_[2];
    std::vector<char> memory_;
};

class WindowsProcess final : public ChildProcess {
  public:
    WindowsProcess(Handle job, Handle process, Handle input, Handle output)
        : job_(std::move(job)), process_(std::move(process)), input_(std::move(input)), output_(std::move(output)),
          arrived_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    WindowsProcess(const WindowsProcess&) = delete;
    WindowsProcess& operator=(const WindowsProcess&) = delete;
    ~WindowsProcess() override {
        WindowsProcess::End();
        if (isReading_) {
            CancelIo(output_.Get());
            DWORD count = 0;
            GetOverlappedResult(output_.Get(), &request_, &count, TRUE);
        }
    }

    bool Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            DWORD count = 0;
            if (WriteFile(input_.Get(), bytes.data(),
                          static_cast<DWORD>(std::min<std::size_t>(bytes.size(), pipeBytes)), &count, nullptr) == 0)
                return false;
            bytes.remove_prefix(count);
        }
        return true;
    }

    Reading Read(std::string& out, std::chrono::milliseconds longest) override {
        if (!isReading_) {
            request_ = {};
            request_.hEvent = arrived_.Get();
            isReading_ = ReadFile(output_.Get(), bytes_, sizeof bytes_, nullptr, &request_) != 0 ||
                         GetLastError() == ERROR_IO_PENDING;
            if (!isReading_)
                return Reading::End;
        }
        if (WaitForSingleObject(arrived_.Get(), static_cast<DWORD>(longest.count())) == WAIT_TIMEOUT)
            return Reading::Nothing;
        isReading_ = false;
        DWORD count = 0;
        if (GetOverlappedResult(output_.Get(), &request_, &count, TRUE) == 0 || count == 0)
            return Reading::End;
        out.append(bytes_, count);
        return Reading::Bytes;
    }

    void End() override {
        isForced_ = WaitForSingleObject(process_.Get(), 0) == WAIT_TIMEOUT;
        TerminateJobObject(job_.Get(), 1);
    }

    int Status() override {
        WaitForSingleObject(process_.Get(), INFINITE);
        DWORD status = 0;
        GetExitCodeProcess(process_.Get(), &status);
        return isForced_ ? -1 : static_cast<int>(status);
    }

  private:
    Handle job_;
    Handle process_;
    Handle input_;
    Handle output_;
    Handle arrived_; ///< set when the reading that is under way has ended
    OVERLAPPED request_ = {};
    bool isReading_ = false;
    char bytes_[16384] = {};
    std::atomic<bool> isForced_ = false;
};

} // namespace

std::unique_ptr<ChildProcess> SystemProcessStarter::Start(const ProcessCall& call) {
    Pipe input = NewInputPipe();
    Pipe output = NewOutputPipe();
    Handle job = NewJob();
    Inheritance inheritance(input.read.Get(), output.write.Get());

    STARTUPINFOEXW start = {};
    start.StartupInfo.cb = sizeof start;
    start.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    start.StartupInfo.hStdInput = input.read.Get();
    start.StartupInfo.hStdOutput = output.write.Get();
    start.StartupInfo.hStdError = output.write.Get();
    start.lpAttributeList = inheritance.List();

    std::wstring line;
    AppendQuoted(line, call.program.native());
    for (const std::string& argument : call.arguments)
        AppendQuoted(line, Wide(argument));
    PROCESS_INFORMATION started = {};
    // Suspended until it is in the job, so that nothing it starts is outside.
    if (CreateProcessW(call.program.c_str(), line.data(), nullptr, nullptr, TRUE,
                       CREATE_NO_WINDOW | CREATE_SUSPENDED | EXTENDED_STARTUPINFO_PRESENT, nullptr,
                       call.folder.empty() ? nullptr : call.folder.c_str(), &start.StartupInfo, &started) == 0)
        ThrowError();
    Handle process(started.hProcess);
    const Handle thread(started.hThread);
    if (AssignProcessToJobObject(job.Get(), process.Get()) == 0) {
        TerminateProcess(process.Get(), 1);
        ThrowError();
    }
    ResumeThread(thread.Get());
    return std::make_unique<WindowsProcess>(std::move(job), std::move(process), std::move(input.write),
                                            std::move(output.read));
}

} // namespace pirol

#endif
