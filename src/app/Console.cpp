#include "app/Console.h"

#include <algorithm>

// Here alone, because its macros rename functions of ours.
#ifdef _WIN32
#include <windows.h>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#endif

namespace pirol {

#ifdef _WIN32

/// Windows gives main the words in the system's code page, so characters outside it are lost. The command line itself
/// holds them all.
std::vector<std::string> CallWords(int /*argumentCount*/, char** /*arguments*/) {
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> words;
    for (int index = 1; index < count; ++index) {
        const std::u8string word = std::filesystem::path(wide[index]).u8string();
        words.emplace_back(word.begin(), word.end());
    }
    LocalFree(wide);
    return words;
}

PlainOutput::PlainOutput() : codePageBefore_(GetConsoleOutputCP()) {
    // Otherwise every line end gets a second CR.
    for (std::FILE* stream : {stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

PlainOutput::~PlainOutput() {
    SetConsoleOutputCP(codePageBefore_);
}

#else

std::vector<std::string> CallWords(int argumentCount, char** arguments) {
    return {arguments + std::min(argumentCount, 1), arguments + argumentCount};
}

PlainOutput::PlainOutput() = default;
PlainOutput::~PlainOutput() = default;

#endif

} // namespace pirol
