#include "app/JavaPlaces.h"

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/UserFolder.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <charconv>
#include <fstream>

namespace pirol {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
constexpr std::string_view javaProgram = "java.exe";
constexpr std::string_view compilerProgram = "javac.exe";
constexpr char pathSeparator = ';';
#else
constexpr std::string_view javaProgram = "java";
constexpr std::string_view compilerProgram = "javac";
constexpr char pathSeparator = ':';
#endif
constexpr std::string_view libraryClass = "sum/ereignis/EBAnwendung.class";
/// Files that tell something are small; what is larger is something else.
constexpr std::uintmax_t mostTextBytes = std::uintmax_t{1} << 20U;
/// Of installations and archives in one folder.
constexpr std::size_t mostEntries = 1000;

bool IsFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

bool IsFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

/// A small file's text; empty when there is none.
std::string SmallText(const fs::path& path) {
    std::error_code error;
    if (!IsFile(path) || fs::file_size(path, error) > mostTextBytes)
        return {};
    try {
        return ReadFileBytes(path);
    } catch (const RuntimeError&) {
        return {};
    }
}

/// The lines without their ends, which differ from system to system.
std::vector<std::string_view> Lines(std::string_view text) {
    std::vector<std::string_view> lines = Split(text, '\n');
    for (std::string_view& line : lines)
        if (line.ends_with('\r'))
            line.remove_suffix(1);
    return lines;
}

/// The value of a line NAME="VALUE" of an installation's file "release".
std::string_view ReleaseValue(std::string_view text, std::string_view name) {
    for (const std::string_view line : Lines(text)) {
        const std::string_view value = line.starts_with(name) ? line.substr(name.size()) : std::string_view();
        if (value.size() >= 3 && value.starts_with("=\"") && value.ends_with('"'))
            return value.substr(2, value.size() - 3);
    }
    return {};
}

bool HasModule(std::string_view modules, std::string_view name) {
    const std::string within = Concatenate(" ", modules, " ");
    return within.find(Concatenate(" ", name, " ")) != within.npos;
}

/// An installation's folder when there is a Java in it. The Java inside a JDK of the old shape cannot compile; the JDK
/// around it can.
fs::path HomeAt(const fs::path& path) {
    std::error_code error;
    fs::path real = fs::canonical(path, error);
    if (error)
        return {};
    if (IsFile(real))
        real = real.parent_path();
    if (real.filename() == "bin")
        real = real.parent_path();
    const auto holdsJava = [](const fs::path& home) { return IsFile(home / "bin" / javaProgram); };
    if (real.filename() == "jre" && holdsJava(real.parent_path()))
        return real.parent_path();
    return holdsJava(real) ? real : fs::path();
}

std::vector<fs::path> Entries(const fs::path& folder) {
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end && entries.size() < mostEntries;
         entry.increment(error))
        entries.push_back(entry->path());
    std::sort(entries.begin(), entries.end());
    return entries;
}

std::vector<fs::path> PathFolders() {
    const std::string all = TextOf(PathOfVariable("PATH"));
    std::vector<fs::path> folders;
    for (const std::string_view piece : Split(all, pathSeparator))
        if (fs::path folder = PathOf(piece); folder.is_absolute())
            folders.push_back(std::move(folder));
    return folders;
}

/// The folders of BlueJ: the one of its program, and the usual ones.
std::vector<fs::path> BlueJFolders(const Preferences& preferences, const JavaSurroundings& surroundings) {
    std::vector<fs::path> folders;
    std::error_code error;
    if (const fs::path program = PathOf(preferences.BlueJPath); IsFile(program)) {
        folders.push_back(program.parent_path());
        folders.push_back(fs::canonical(program, error).parent_path());
    }
    folders.insert(folders.end(), surroundings.blueJ.begin(), surroundings.blueJ.end());
    return folders;
}

/// Undoes what a Java properties file does to a value: a backslash before a character, and \uXXXX.
std::string PropertyValue(std::string_view written) {
    constexpr std::size_t digitCount = 4;
    std::string value;
    for (std::size_t i = 0; i < written.size(); ++i) {
        const bool isEscape = written[i] == '\\' && i + 1 < written.size();
        if (isEscape)
            ++i;
        const std::string_view digits = written.substr(i + 1, digitCount);
        unsigned code = 0;
        if (isEscape && written[i] == 'u' && digits.size() == digitCount &&
            std::from_chars(digits.data(), digits.data() + digitCount, code, 16).ptr == digits.data() + digitCount) {
            value += code < 0x100 ? FromWindows1252(std::string(1, static_cast<char>(code))) : std::string("?");
            i += digitCount;
        } else {
            value += written[i];
        }
    }
    return value;
}

/// The libraries that the user has named in BlueJ.
std::vector<fs::path> UserLibraries(const JavaSurroundings& surroundings) {
    std::vector<fs::path> found;
    for (const char* folder : {".bluej", "bluej"}) {
        const std::string text = SmallText(surroundings.home / folder / "bluej.properties");
        for (const std::string_view line : Lines(text)) {
            const std::size_t equals = line.find('=');
            if (line.starts_with("bluej.userlibrary.") && equals != line.npos)
                found.push_back(PathOf(PropertyValue(Trim(line.substr(equals + 1)))));
        }
    }
    return found;
}

bool IsArchive(const fs::path& path) {
    return LowerCase(TextOf(path.extension())) == ".jar" && IsFile(path);
}

std::vector<fs::path> ArchivesIn(const fs::path& folder) {
    std::vector<fs::path> archives = Entries(folder);
    std::erase_if(archives, [](const fs::path& path) { return !IsArchive(path); });
    return archives;
}

std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t count) {
    std::uint32_t number = 0;
    for (std::size_t i = count; i-- > 0;)
        number = number << 8U | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

std::string ReadAt(std::ifstream& file, std::uintmax_t offset, std::size_t size) {
    std::string bytes(size, '\0');
    file.seekg(static_cast<std::streamoff>(offset));
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    return file ? bytes : std::string();
}

/// Looks at one place: a folder of classes, an archive, or a folder of archives.
bool HoldsLibrary(const fs::path& place) {
    return IsFolder(place) ? IsFile(place / libraryClass) : IsArchive(place) && ArchiveHolds(place, libraryClass);
}

/// The library and all that lies beside it, such as drivers of databases.
JavaLibraries Found(const fs::path& place) {
    JavaLibraries libraries{true, place, {place}};
    for (fs::path& archive : ArchivesIn(IsFolder(place) ? place : place.parent_path()))
        if (archive != place)
            libraries.archives.push_back(std::move(archive));
    return libraries;
}

std::string TooOld(const Jdk& jdk) {
    return Concatenate("Java ", jdk.version, " in »", TextOf(jdk.home),
                       "« ist zu alt. Pirol braucht ein JDK ab Version ", oldestJava, ".");
}

std::string CannotCompile(const Jdk& jdk) {
    return Concatenate("In »", TextOf(jdk.home),
                       "« ist ein Java ohne Compiler (JRE). Zum Testen braucht Pirol ein JDK.");
}

/// What is wrong with an installation; empty when it can be used. One that does not tell its version is tried.
std::string Fault(const Jdk& jdk) {
    if (jdk.Major() != 0 && jdk.Major() < oldestJava)
        return TooOld(jdk);
    return jdk.compiles ? std::string() : CannotCompile(jdk);
}

constexpr std::string_view whereToGetOne =
    "Installieren Sie ein JDK, oder wählen Sie es unter »Datei, Optionen« aus. BlueJ bringt eines mit.";

std::vector<fs::path> JdkPlaces(const Preferences& preferences, const JavaSurroundings& surroundings) {
    std::vector<fs::path> places;
    for (const fs::path& folder : BlueJFolders(preferences, surroundings))
        places.push_back(folder / "jdk");
    places.push_back(surroundings.javaHome);
    for (const fs::path& folder : surroundings.path)
        places.push_back(folder / javaProgram);
    std::vector<Jdk> usual;
    for (const fs::path& parent : surroundings.parents)
        for (const fs::path& entry : Entries(parent))
            if (std::optional<Jdk> jdk = JdkAt(entry))
                usual.push_back(std::move(*jdk));
    std::stable_sort(usual.begin(), usual.end(), [](const Jdk& a, const Jdk& b) { return a.Major() > b.Major(); });
    for (Jdk& jdk : usual)
        places.push_back(std::move(jdk.home));
    return places;
}

} // namespace

#ifdef _WIN32
const std::string_view javaFilter = "java.exe|java.exe";
#else
const std::string_view javaFilter = "java|java";
#endif

int Jdk::Major() const {
    const std::string_view digits = std::string_view(version).substr(version.starts_with("1.") ? 2 : 0);
    int major = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), major);
    return major;
}

fs::path Jdk::Program() const {
    return home / "bin" / javaProgram;
}

JavaSurroundings JavaSurroundings::OfSystem() {
    JavaSurroundings all;
    all.javaHome = PathOfVariable("JAVA_HOME");
    all.path = PathFolders();
#ifdef _WIN32
    all.home = PathOfVariable("USERPROFILE");
    for (const char* variable : {"ProgramFiles", "ProgramW6432", "ProgramFiles(x86)", "LOCALAPPDATA"})
        if (fs::path programs = PathOfVariable(variable); programs.is_absolute()) {
            if (std::string_view(variable) == "LOCALAPPDATA")
                programs /= "Programs";
            for (const char* maker : {"Java", "Eclipse Adoptium", "Microsoft", "Zulu", "BellSoft", "Amazon Corretto",
                                      "AdoptOpenJDK", "OpenJDK", "Semeru"})
                all.parents.push_back(programs / maker);
            all.blueJ.push_back(programs / "BlueJ");
        }
#else
    all.home = PathOfVariable("HOME");
    all.parents = {"/usr/lib/jvm", "/usr/java", "/opt", "/usr/local", all.home / ".jdks"};
    all.blueJ = {"/usr/share/bluej", "/opt/bluej", "/usr/lib/bluej"};
#endif
    return all;
}

std::optional<Jdk> JdkAt(const fs::path& path) {
    const fs::path home = path.empty() ? path : HomeAt(path);
    if (home.empty())
        return std::nullopt;
    const std::string release = SmallText(home / "release");
    const std::string_view modules = ReleaseValue(release, "MODULES");
    Jdk jdk{home, std::string(ReleaseValue(release, "JAVA_VERSION")), false};
    // Newer ones tell their modules, and the compiler may be there without a program of its own.
    jdk.compiles = modules.empty() ? IsFile(home / "bin" / compilerProgram) || IsFile(home / "lib" / "tools.jar")
                                   : HasModule(modules, "jdk.compiler") && HasModule(modules, "java.desktop");
    return jdk;
}

JdkChoice ChooseJdk(const Preferences& preferences, const JavaSurroundings& surroundings) {
    if (!preferences.JdkPath.empty()) {
        std::optional<Jdk> jdk = JdkAt(PathOf(preferences.JdkPath));
        if (!jdk)
            return {{}, Concatenate("In »", preferences.JdkPath, "« ist kein Java. ", whereToGetOne)};
        if (std::string fault = Fault(*jdk); !fault.empty())
            return {{}, Concatenate(fault, " ", whereToGetOne)};
        return {std::move(jdk), {}};
    }
    std::string problem;
    for (const fs::path& place : JdkPlaces(preferences, surroundings)) {
        std::optional<Jdk> jdk = JdkAt(place);
        if (!jdk)
            continue;
        const std::string fault = Fault(*jdk);
        if (fault.empty())
            return {std::move(jdk), {}};
        if (problem.empty())
            problem = fault;
    }
    return {{}, Concatenate(problem.empty() ? "Es ist kein JDK zu finden." : problem, " ", whereToGetOne)};
}

bool ArchiveHolds(const fs::path& archive, std::string_view name) {
    // The table of contents stands at the end, and its place in the record behind it. That record ends the file but for
    // a comment.
    constexpr std::size_t recordBytes = 22;
    constexpr std::size_t longestComment = 65535;
    constexpr std::uint32_t mostTableBytes = std::uint32_t{64} << 20U;
    std::error_code error;
    const std::uintmax_t size = fs::file_size(archive, error);
    std::ifstream file(archive, std::ios::binary);
    if (error || !file || size < recordBytes)
        return false;
    const auto tailBytes = static_cast<std::size_t>(std::min<std::uintmax_t>(size, recordBytes + longestComment));
    const std::string tail = ReadAt(file, size - tailBytes, tailBytes);
    const std::size_t record = tail.rfind("PK\5\6");
    if (record == tail.npos || tail.size() - record < recordBytes)
        return false;
    const std::uint32_t tableBytes = Number(tail, record + 12, 4);
    const std::uint32_t table = Number(tail, record + 16, 4);
    if (tableBytes > std::min<std::uintmax_t>(mostTableBytes, size) || table > size - tableBytes)
        return false;
    return ReadAt(file, table, tableBytes).find(name) != std::string::npos;
}

JavaLibraries FindLibraries(const Preferences& preferences, const JavaSurroundings& surroundings) {
    std::vector<fs::path> places;
    JavaLibraries others;
    const auto addFolder = [&](const fs::path& folder) {
        places.push_back(folder);
        for (const fs::path& archive : ArchivesIn(folder)) {
            places.push_back(archive);
            others.archives.push_back(archive);
        }
    };
    if (const fs::path chosen = PathOf(preferences.SumPath); !chosen.empty()) {
        places.push_back(chosen);
        places.push_back(chosen.parent_path());
        addFolder(IsFolder(chosen) ? chosen : chosen.parent_path());
    }
    for (const fs::path& folder : BlueJFolders(preferences, surroundings))
        for (const char* below : {"lib/userlib", "userlib"})
            addFolder(folder / below);
    for (const fs::path& library : UserLibraries(surroundings)) {
        places.push_back(library);
        others.archives.push_back(library);
    }
    const auto found = std::find_if(places.begin(), places.end(), HoldsLibrary);
    return found == places.end() ? others : Found(*found);
}

std::string JdkText(const JdkChoice& choice) {
    if (!choice.jdk)
        return choice.problem;
    return Concatenate("Verwendet wird Java ", choice.jdk->version, " in »", TextOf(choice.jdk->home), "«.");
}

std::string LibraryText(const JavaLibraries& libraries) {
    return libraries.hasSum ? Concatenate("SuM gefunden: »", TextOf(libraries.sum), "«.")
                            : std::string("SuM ist nicht zu finden; Programme laufen mit Pirols Ersatzklassen.");
}

} // namespace pirol
