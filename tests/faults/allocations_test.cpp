// Within one program, every allocation of every operation fails in turn, alone and with all that follow. This runs
// under the sanitizers as well, which see what leaks on the way out.
//
//   allocations_test [STEP]      STEP: only every STEP-th allocation

#include "app/ErrorReport.h"
#include "Cases.h"
#include "faults/Operations.h"
#include "model/Conversions.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <new>

namespace {

using namespace pirol;
namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

/// The allocation that fails, counted from 1; 0 for none.
struct Fault {
    long number = 0;
    bool goesOn = false; ///< all later ones fail, too
};

Fault fault;
long allocations = 0;

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    const bool fails =
        fault.number != 0 && (allocations == fault.number || (fault.goesOn && allocations > fault.number));
    void* const memory = fails ? nullptr : std::malloc(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

// Inlined beside another's `new` it would look like a mismatch to the compiler.
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace {

constexpr const char* registryName = "Pirol/registry.conf";
constexpr std::string_view registryText =
    "[Software\\Pirol]\n\"GridColor\"=dword:00000000\n\"GridStyle\"=dword:00000000\n\"BlueJPath\"=\"/alt\"\n";

void Prepare(const fs::path& folder) {
    fs::remove_all(folder);
    fs::create_directories(folder / "Pirol");
    const fs::path examples = fs::path(PIROL_TEST_DATA) / "generate";
    fs::copy_file(examples / "all-events" / "design.prl", folder / "design.prl");
    fs::copy_file(examples / "empty" / "design.prl", folder / "old.prl");
    for (const char* const name : {"SuMAnwendung.java", "old.java"})
        fs::copy_file(examples / "all-events" / "expected.java", folder / name);
    std::ofstream(folder / registryName) << registryText;
}

Files FilesIn(const fs::path& folder) {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files[fs::relative(entry.path(), folder).string()] = ReadFileBytes(entry.path());
    return files;
}

struct Run {
    std::optional<RuntimeError> error;
    long allocations = 0;
    Files files;
};

Run RunOnce(const fs::path& folder, void (test::Operations::*operation)(), Fault disturbing = {}) {
    Prepare(folder);
    Run run;
    {
        test::Operations operations;
        operations.folder = folder.string();
        allocations = 0;
        fault = disturbing;
        try {
            run.error = ErrorOf([&] { (operations.*operation)(); });
        } catch (const std::bad_alloc&) {
            fault = {}; // not even the error could be made
            run.error = RuntimeError(RuntimeError::OutOfMemory);
        }
        run.allocations = allocations;
        fault = {};
    }
    run.files = FilesIn(folder);
    return run;
}

/// Preferences are stored one by one; each of them is the old or the new one.
bool AreWholePreferences(const std::string& text, const std::string& after) {
    const std::vector<std::string_view> lines = Split(text, '\n');
    const std::vector<std::string_view> olds = Split(registryText, '\n');
    const std::vector<std::string_view> news = Split(after, '\n');
    bool whole = lines.size() == olds.size();
    for (std::size_t line = 0; whole && line < lines.size(); ++line)
        whole = lines[line] == olds[line] || lines[line] == news[line];
    return whole;
}

/// What is wrong; empty when the run is right.
std::string Complaint(const Run& run, const Files& before, const Run& undisturbed) {
    if (run.error && run.error->ErrorNumber() != RuntimeError::OutOfMemory)
        return run.error->what();
    if (run.files == undisturbed.files || (run.error && run.files == before))
        return {};
    Files files = run.files;
    const std::string registry = std::exchange(files[registryName], std::string(registryText));
    if (files == before && AreWholePreferences(registry, undisturbed.files.at(registryName)))
        return {};
    std::string names = run.error ? "error, but files:" : "files:";
    for (const auto& [name, bytes] : run.files)
        names += " " + name + " (" + std::to_string(bytes.size()) + ")";
    return names;
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    const long step = argumentCount > 1 ? std::atol(arguments[1]) : 1;
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "files";
    setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
    setenv("XDG_STATE_HOME", folder.c_str(), 1);
    Prepare(folder);
    const Files before = FilesIn(folder);
    long runs = 0;
    long wrong = 0;
    for (const auto& [name, operation] : test::allOperations) {
        RunOnce(folder, operation); // tables that are made once do not count
        const Run undisturbed = RunOnce(folder, operation);
        for (long at = 1; at <= undisturbed.allocations; at += step)
            for (const bool goesOn : {false, true}) {
                ++runs;
                const std::string complaint = Complaint(RunOnce(folder, operation, {at, goesOn}), before, undisturbed);
                if (complaint.empty())
                    continue;
                ++wrong;
                std::cout << name << ", allocation " << at << (goesOn ? " and later ones: " : ": ") << complaint
                          << '\n';
            }
        std::cout << name << ": " << undisturbed.allocations << " allocations" << std::endl;
    }
    std::cout << runs << " runs, " << wrong << " of them wrong" << std::endl;
    return wrong == 0 ? 0 : 1;
}
