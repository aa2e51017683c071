#pragma once

#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "codegen/JavaGenerator.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace pirol::test {

/// The folders of cases below tests/data, sorted by name.
inline std::vector<std::filesystem::path> CaseFolders(const char* area) {
    std::vector<std::filesystem::path> folders;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(PIROL_TEST_DATA) / area))
        folders.push_back(entry.path());
    std::sort(folders.begin(), folders.end());
    return folders;
}

/// The options of a case's options.txt, as the command-line tool takes them.
inline CodeOptions OptionsIn(const std::filesystem::path& folder) {
    const std::string options = ReadFileBytes(folder / "options.txt");
    return {.menu = options.find("--menu") != std::string::npos,
            .database = options.find("--sql") != std::string::npos};
}

/// A folder for the files of one test, empty at first and removed at the end.
class ScratchFolder {
  public:
    ScratchFolder() {
        std::random_device random;
        do
            path_ = std::filesystem::temp_directory_path() / ("pirol-test-" + std::to_string(random()));
        while (!std::filesystem::create_directory(path_));
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() { std::filesystem::remove_all(path_); }

    std::filesystem::path operator/(const char* name) const { return path_ / name; }

  private:
    std::filesystem::path path_;
};

/// The error in which an operation ends, in one line; empty when it succeeds.
template <class Operation>
std::string ErrorOf(Operation&& operation) {
    try {
        operation();
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return {};
}

/// The number of the error in which an operation ends; 0 when it succeeds.
template <class Operation>
int ErrorNumberOf(Operation&& operation) {
    try {
        operation();
    } catch (const RuntimeError& error) {
        return error.ErrorNumber();
    }
    return 0;
}

/// What an operation returns, or "Fehler" and the number of the error in which it ends.
template <class Operation>
std::string OutcomeOf(Operation&& operation) {
    std::string outcome;
    const int number = ErrorNumberOf([&] { outcome = operation(); });
    return number == 0 ? outcome : "Fehler " + std::to_string(number);
}

} // namespace pirol::test
