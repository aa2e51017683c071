// Preloaded into a program, makes one of its calls fail, or kills the program at one: the calls that open, read, write,
// rename or remove files below one folder, or those that ask for memory. Only what main does counts.
//
//   FAULTS_FOLDER    the folder; standard output counts with it
//   FAULTS_REPORT    a file that gets the names of all file calls and, at the end of main, the number of allocations
//   FAULTS_FILE      the number of the file call that shall fail, from 1
//   FAULTS_MEMORY    the number of the allocation that shall fail, from 1
//   FAULTS_ERROR     the error number of the file call that fails; 0 kills the program instead
//   FAULTS_LASTING   when set, all later calls fail too, but for those that remove files: a full disk lets that happen

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <new>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming): the names are the C library's
namespace {

std::atomic<bool> counts = false; ///< while main runs
std::atomic<long> fileCalls = 0;
std::atomic<long> allocations = 0;

// Read before main, while nothing counts.
const char* folder = nullptr;
int report = -1; ///< a descriptor
long failingFileCall = 0;
long failingAllocation = 0;
int error = 0;
bool lasting = false;

constexpr int mostFiles = 1024;
bool isOurs[mostFiles]; ///< by descriptor: a file below the folder

long NumberFrom(const char* variable) {
    const char* text = std::getenv(variable);
    return text == nullptr ? 0 : std::atol(text);
}

/// The function of that name that ours stands before.
template <class Function>
Function* Real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsOurs(const char* path) {
    return folder != nullptr && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool IsOurs(int descriptor) {
    return descriptor >= 0 && descriptor < mostFiles && isOurs[descriptor];
}

bool IsOurs(std::FILE* file) {
    return file != nullptr && IsOurs(fileno(file));
}

/// Writes a line of the report, without memory of its own.
void Report(const char* line) {
    if (report >= 0 && (write(report, line, std::strlen(line)) < 0 || write(report, "\n", 1) < 0))
        std::abort();
}

/// Whether it is the one that shall fail, or a later one where those fail, too.
bool IsChosen(long number, long chosen, bool lasts) {
    return chosen != 0 && (number == chosen || (lasts && number > chosen));
}

/// Counts a call about one of the files and says whether it is disturbed.
bool IsDisturbed(const char* name, bool ours, bool removes = false) {
    if (!counts || !ours)
        return false;
    const long number = ++fileCalls;
    Report(name);
    return IsChosen(number, failingFileCall, lasting && !removes);
}

/// Does not come back when the program is to be killed.
void Disturb() {
    if (error == 0)
        kill(getpid(), SIGKILL);
    errno = error;
}

/// Whether the call fails.
bool Fails(const char* name, bool ours, bool removes = false) {
    const bool fails = IsDisturbed(name, ours, removes);
    if (fails)
        Disturb();
    return fails;
}

/// Makes a call, or gives back what says that it failed.
template <class Result, class... Parameters, class... Arguments>
Result Guard(Result (*ours)(Parameters...), const char* name, bool counts, Result failure, Arguments... arguments) {
    return Fails(name, counts, name == std::string_view("unlink")) ? failure : Real(ours, name)(arguments...);
}

bool AllocationFails() {
    if (!counts)
        return false;
    const bool fails = IsChosen(++allocations, failingAllocation, lasting);
    if (fails)
        errno = ENOMEM;
    return fails;
}

/// Runs an operation on a stream whose file cannot be reached, so that the stream itself finds out and notes the error.
template <class Operation>
auto Unreachable(std::FILE* file, Operation operation) {
    const int descriptor = std::exchange(file->_fileno, -1);
    const auto result = operation();
    file->_fileno = descriptor;
    errno = error;
    return result;
}

int (*realMain)(int, char**, char**) = nullptr;

int CountedMain(int argumentCount, char** arguments, char** environment) {
    folder = std::getenv("FAULTS_FOLDER");
    if (const char* const path = std::getenv("FAULTS_REPORT"))
        report = open(path, O_WRONLY);
    failingFileCall = NumberFrom("FAULTS_FILE");
    failingAllocation = NumberFrom("FAULTS_MEMORY");
    error = static_cast<int>(NumberFrom("FAULTS_ERROR"));
    lasting = std::getenv("FAULTS_LASTING") != nullptr;
    isOurs[STDOUT_FILENO] = folder != nullptr;
    counts = true;
    const int status = realMain(argumentCount, arguments, environment);
    counts = false;
    char line[32];
    std::snprintf(line, sizeof line, "%ld", allocations.load());
    Report(line);
    return status;
}

} // namespace

extern "C" {

int __libc_start_main(int (*main)(int, char**, char**), int argumentCount, char** arguments, void (*init)(),
                      void (*fini)(), void (*rtldFini)(), void* stackEnd) {
    static auto* const real = Real(&__libc_start_main, "__libc_start_main");
    realMain = main;
    return real(CountedMain, argumentCount, arguments, init, fini, rtldFini, stackEnd);
}

// --- Streams ----------------------------------------------------------------------------------------------------

std::FILE* fopen(const char* path, const char* mode) {
    static auto* const real = Real(&fopen, "fopen");
    if (Fails("fopen", IsOurs(path)))
        return nullptr;
    std::FILE* file = real(path, mode);
    if (file != nullptr && fileno(file) < mostFiles)
        isOurs[fileno(file)] = IsOurs(path);
    return file;
}

std::size_t fread(void* data, std::size_t size, std::size_t count, std::FILE* file) {
    static auto* const real = Real(&fread, "fread");
    if (Fails("fread", IsOurs(file)))
        return Unreachable(file, [&] { return real(data, size, count, file); });
    return real(data, size, count, file);
}

/// What fails was half written.
std::size_t fwrite(const void* data, std::size_t size, std::size_t count, std::FILE* file) {
    static auto* const real = Real(&fwrite, "fwrite");
    static auto* const realFlush = Real(&fflush, "fflush");
    if (!IsDisturbed("fwrite", IsOurs(file)))
        return real(data, size, count, file);
    const std::size_t written = real(data, size, count / 2, file);
    realFlush(file);
    Disturb();
    Unreachable(file, [&] {
        real(static_cast<const char*>(data) + size * written, size, count - written, file);
        return realFlush(file);
    });
    return written;
}

int fflush(std::FILE* file) {
    static auto* const real = Real(&fflush, "fflush");
    if (Fails("fflush", IsOurs(file)))
        return Unreachable(file, [&] {
            real(file);
            return EOF;
        });
    return real(file);
}

int fclose(std::FILE* file) {
    static auto* const real = Real(&fclose, "fclose");
    const int descriptor = fileno(file);
    const bool ours = IsOurs(file);
    const bool fails = Fails("fclose", ours);
    const int result = real(file);
    if (ours)
        isOurs[descriptor] = false;
    if (fails)
        errno = error;
    return fails ? EOF : result;
}

// --- Descriptors and names --------------------------------------------------------------------------------------

int open(const char* path, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list rest;
        va_start(rest, flags);
        mode = va_arg(rest, mode_t);
        va_end(rest);
    }
    static auto* const real = Real(&open, "open");
    if (Fails("open", IsOurs(path)))
        return -1;
    const int descriptor = real(path, flags, mode);
    if (descriptor >= 0 && descriptor < mostFiles)
        isOurs[descriptor] = IsOurs(path);
    return descriptor;
}

ssize_t read(int descriptor, void* data, std::size_t size) {
    static auto* const real = Real(&read, "read");
    return Fails("read", IsOurs(descriptor)) ? -1 : real(descriptor, data, size);
}

/// What fails was half written, but for an interruption, which comes before the first byte.
ssize_t write(int descriptor, const void* data, std::size_t size) {
    static auto* const real = Real(&write, "write");
    if (!IsDisturbed("write", IsOurs(descriptor)))
        return real(descriptor, data, size);
    if (error != EINTR && real(descriptor, data, size / 2) < 0)
        std::abort();
    Disturb();
    return -1;
}

int ftruncate(int descriptor, off_t size) noexcept {
    static auto* const real = Real(&ftruncate, "ftruncate");
    return Fails("ftruncate", IsOurs(descriptor)) ? -1 : real(descriptor, size);
}

int close(int descriptor) {
    static auto* const real = Real(&close, "close");
    const bool ours = IsOurs(descriptor);
    const bool fails = Fails("close", ours);
    const int result = real(descriptor);
    if (ours)
        isOurs[descriptor] = false;
    if (fails)
        errno = error;
    return fails ? -1 : result;
}

int fstat(int descriptor, struct stat* status) noexcept {
    static auto* const real = Real(&fstat, "fstat");
    return Fails("fstat", IsOurs(descriptor)) ? -1 : real(descriptor, status);
}

int fchmod(int descriptor, mode_t mode) noexcept {
    static auto* const real = Real(&fchmod, "fchmod");
    return Fails("fchmod", IsOurs(descriptor)) ? -1 : real(descriptor, mode);
}

int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
    static auto* const real = Real(&fchown, "fchown");
    return Fails("fchown", IsOurs(descriptor)) ? -1 : real(descriptor, owner, group);
}

int flock(int descriptor, int operation) noexcept {
    return Guard(&flock, "flock", folder != nullptr, -1, descriptor, operation);
}

int fsync(int descriptor) {
    return Guard(&fsync, "fsync", IsOurs(descriptor), -1, descriptor);
}

int stat(const char* path, struct stat* status) noexcept {
    return Guard(&stat, "stat", IsOurs(path), -1, path, status);
}

char* realpath(const char* path, char* resolved) noexcept {
    return Guard(&realpath, "realpath", IsOurs(path), static_cast<char*>(nullptr), path, resolved);
}

int fchmodat(int folderDescriptor, const char* path, mode_t mode, int flags) noexcept {
    return Guard(&fchmodat, "fchmodat", IsOurs(path), -1, folderDescriptor, path, mode, flags);
}

int mkdir(const char* path, mode_t mode) noexcept {
    return Guard(&mkdir, "mkdir", IsOurs(path), -1, path, mode);
}

int rename(const char* from, const char* to) noexcept {
    return Guard(&rename, "rename", IsOurs(from), -1, from, to);
}

int unlink(const char* path) noexcept {
    return Guard(&unlink, "unlink", IsOurs(path), -1, path);
}

// --- Memory -----------------------------------------------------------------------------------------------------

void* malloc(std::size_t size) {
    static auto* const real = Real(&malloc, "malloc");
    return AllocationFails() ? nullptr : real(size);
}

void* calloc(std::size_t count, std::size_t size) {
    static auto* const real = Real(&calloc, "calloc");
    return AllocationFails() ? nullptr : real(count, size);
}

void* realloc(void* memory, std::size_t size) {
    static auto* const real = Real(&realloc, "realloc");
    return AllocationFails() ? nullptr : real(memory, size);
}

} // extern "C"

/// The sanitizers' own asks for memory past malloc.
void* operator new(std::size_t size) {
    void* const memory = malloc(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)
