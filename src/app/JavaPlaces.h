#pragma once

#include "app/Preferences.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// Where Java and the library SuM are on this machine.

/// A Java installation.
struct Jdk {
    std::filesystem::path home;
    std::string version; ///< "17.0.15"; empty when it does not say
    bool compiles = false;

    /// 8 for "1.8.0_292", 17 for "17.0.15", 0 when unknown.
    int Major() const;
    /// The program that runs Java.
    std::filesystem::path Program() const;
};

/// The filter of the dialog in which the user looks for Java's program.
extern const std::string_view javaFilter;

/// Older ones are refused.
constexpr int oldestJava = 8;

/// The places that do not depend on the preferences.
struct JavaSurroundings {
    std::filesystem::path javaHome = {};             ///< the variable JAVA_HOME
    std::vector<std::filesystem::path> path = {};    ///< the folders of the variable PATH
    std::vector<std::filesystem::path> parents = {}; ///< folders in which installations usually lie beside one another
    std::vector<std::filesystem::path> blueJ = {};   ///< folders in which BlueJ usually lies
    std::filesystem::path home = {};                 ///< the user's folder

    static JavaSurroundings OfSystem();
};

/// The installation that a path means: its folder, the folder "bin" in it, or a program there. Nothing when there is no
/// Java. Reads only small files.
std::optional<Jdk> JdkAt(const std::filesystem::path& path);

struct JdkChoice {
    std::optional<Jdk> jdk;
    std::string problem; ///< what the user is told when there is none, German
};

/// The first installation that can compile: that of the preferences alone when they name one; else BlueJ's own, that of
/// JAVA_HOME, those of PATH, and those in the usual places, the newest first.
JdkChoice ChooseJdk(const Preferences& preferences, const JavaSurroundings& surroundings);

/// What lies beside a tested program.
struct JavaLibraries {
    bool hasSum = false;                         ///< the library is there; else the substitute classes run
    std::filesystem::path sum;                   ///< the folder or archive that holds it
    std::vector<std::filesystem::path> archives; ///< it and all archives beside it, or those of BlueJ alone
};

/// Looks for the library at the path of the preferences, a folder or an archive, and then where BlueJ keeps libraries.
JavaLibraries FindLibraries(const Preferences& preferences, const JavaSurroundings& surroundings);

/// Whether a Java archive holds a file of that name. Reads its table of contents only; a broken archive holds nothing.
bool ArchiveHolds(const std::filesystem::path& archive, std::string_view name);

/// What the options tell about them, one German line each.
std::string JdkText(const JdkChoice& choice);
std::string LibraryText(const JavaLibraries& libraries);

} // namespace pirol
