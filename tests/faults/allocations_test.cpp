// Within one program, every allocation of every operation fails in turn, alone and with all that follow. This runs
// under the sanitizers as well, which see what leaks on the way out.
//
//   allocations_test [STEP]      STEP: only every STEP-th allocation

#include "app/ErrorReport.h"
#include "Cases.h"
#include "faults/FailingMemory.h"
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

constexpr std::string_view registryText =
    "[Software\\Pirol]\n\"GridColor\"=dword:00000000\n\"GridStyle\"=dword:00000000\n\"BlueJPath\"=\"/alt\"\n";

void Prepare(const fs::path& folder) {
    fs::remove_all(folder);
    fs::create_directories(folder / "Pirol");
    const fs::path example = fs::path(PIROL_TEST_DATA) / "generate" / "all-events";
    fs::copy_file(example / "design.prl", folder / "design.prl");
    fs::copy_file(example / "expected.java", folder / "SuMAnwendung.java");
    fs::copy_file(fs::path(PIROL_TEST_DATA) / "generate" / "empty" / "design.prl", folder / "old.prl");
    fs::copy_file(example / "expected.java", folder / "old.java");
    std::ofstream(folder / "Pirol" / "registry.conf") << registryText;
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
    bool failedHard = false; ///< not even the error could be made
    long allocations = 0;
    Files files;
};

Run RunOnce(const fs::path& folder, void (test::Operations::*operation)(), long at, bool goesOn) {
    Prepare(folder);
    Run run;
    {
        test::Operations operations;
        operations.folder = folder.string();
        test::DisturbMemory(at, goesOn);
        try {
            run.error = ErrorOf([&] { (operations.*operation)(); });
        } catch (const std::bad_alloc&) {
            run.failedHard = true;
        }
        run.allocations = test::LeaveMemoryAlone();
    }
    run.files = FilesIn(folder);
    return run;
}

/// Preferences are stored one by one; each of them is the old or the new one.
bool AreWholePreferences(const std::string& text, const Run& undisturbed) {
    const std::vector<std::string_view> lines = Split(text, '\n');
    const std::vector<std::string_view> before = Split(registryText, '\n');
    const std::vector<std::string_view> after = Split(undisturbed.files.at("Pirol/registry.conf"), '\n');
    for (std::size_t line = 0; line < lines.size(); ++line)
        if (line >= before.size() || (lines[line] != before[line] && lines[line] != after[line]))
            return false;
    return lines.size() == before.size();
}

/// What is wrong; empty when the run is right.
std::string Complaint(const Run& run, const Files& before, const Run& undisturbed) {
    if (run.error && run.error->ErrorNumber() != RuntimeError::OutOfMemory)
        return run.error->what();
    if (run.files == undisturbed.files || ((run.error || run.failedHard) && run.files == before))
        return {};
    Files files = run.files;
    const std::string registry = std::exchange(files["Pirol/registry.conf"], std::string(registryText));
    if (files == before && AreWholePreferences(registry, undisturbed))
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
        RunOnce(folder, operation, 0, false); // tables that are made once do not count
        const Run undisturbed = RunOnce(folder, operation, 0, false);
        for (long at = 1; at <= undisturbed.allocations; at += step)
            for (const bool goesOn : {false, true}) {
                ++runs;
                const std::string complaint = Complaint(RunOnce(folder, operation, at, goesOn), before, undisturbed);
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
