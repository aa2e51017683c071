// Stands in for BlueJ's program on Windows: writes how it was started, its window's state and its whole command line,
// into start.txt beside itself, in UTF-8.
#include <windows.h>
#include <filesystem>
#include <fstream>

int main() {
    STARTUPINFOW startup = {};
    GetStartupInfoW(&startup);
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::u8string line = std::filesystem::path(GetCommandLineW()).u8string();
    std::ofstream out(std::filesystem::path(program).parent_path() / "start.txt", std::ios::binary);
    out << startup.wShowWindow << ' ' << std::string(line.begin(), line.end());
}
