#include "app/RunMessages.h"
#include "app/TestRun.h"
#include "base/Text.h"
#include "Cases.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <csignal>
#include <cstdlib>
#include <deque>
#include <optional>

namespace pirol {
namespace {

namespace fs = std::filesystem;

/// A Java that says what was written down for it, and then ends, or waits until it is ended.
class ScriptedProcess final : public ChildProcess {
  public:
    ScriptedProcess(std::string said, bool waits, int status, std::string& written)
        : said_(std::move(said)), waits_(waits), status_(status), written_(written) {}

    bool Write(std::string_view bytes) override {
        written_ = bytes;
        return true;
    }
    Reading Read(std::string& out, std::chrono::milliseconds) override {
        // In small pieces, as lines may come.
        out += said_.substr(0, 7);
        const bool hasSaid = !said_.empty();
        said_.erase(0, 7);
        if (hasSaid)
            return Reading::Bytes;
        std::this_thread::yield();
        return waits_ && !isEnded_ ? Reading::Nothing : Reading::End;
    }
    void End() override { isEnded_ = true; }
    int Status() override { return isEnded_ ? -1 : status_; }

  private:
    std::string said_;
    const bool waits_;
    const int status_;
    std::string& written_;
    std::atomic<bool> isEnded_ = false;
};

class ScriptedStarter final : public ProcessStarter {
  public:
    std::unique_ptr<ChildProcess> Start(const ProcessCall& call) override {
        const std::scoped_lock lock(mutex_);
        calls.push_back(call.arguments.back() == "warm" ? "warm" : "cold");
        lastCall = call;
        std::string said = scripts.empty() ? "" : scripts.front();
        if (!scripts.empty())
            scripts.pop_front();
        const bool waits = said.ends_with('~');
        const bool fails = said.ends_with('!');
        return std::make_unique<ScriptedProcess>(said.substr(0, said.size() - (waits || fails ? 1 : 0)), waits,
                                                 fails ? 3 : 0, written);
    }

    /// Of the Javas in the order of their start; one that ends in "~" stays, one that ends in "!" ends with status 3.
    std::deque<std::string> scripts;
    std::vector<std::string> calls;
    ProcessCall lastCall;
    std::string written; ///< to the last one that something was written to

  private:
    std::mutex mutex_;
};

class TestRunTest : public testing::Test {
  protected:
    TestRunTest() {
        // Nothing but this folder counts.
        setenv("XDG_STATE_HOME", (folder_ / "state").c_str(), 1);
        surroundings_.javaHome = AddJava("jdk", "17.0.1", "java.base jdk.compiler java.desktop");
    }
    ~TestRunTest() override { unsetenv("XDG_STATE_HOME"); }

    fs::path AddJava(const std::string& name, const std::string& version, const std::string& modules) {
        const fs::path home = folder_ / name.c_str();
        fs::create_directories(home / "bin");
        ReplaceFileBytes(home / "bin" / "java", "");
        ReplaceFileBytes(home / "release", "JAVA_VERSION=\"" + version + "\"\r\nMODULES=\"" + modules + "\"\n");
        return home;
    }

    static std::string Text(const RunEvent& event) {
        if (event.kind == RunEvent::Kind::State)
            return std::string("*").append(std::to_string(static_cast<int>(event.state)));
        constexpr const char* letters[] = {"", "o", "f", "c", "E", ""};
        return Concatenate(letters[static_cast<int>(event.kind)], event.line == 0 ? "" : std::to_string(event.line),
                           ":", event.text, event.isOpen ? "_" : "");
    }

    /// What is told of tests that begin one after another when the Javas say this.
    std::string Told(std::initializer_list<const char*> scripts, int tests = 1,
                     std::chrono::milliseconds patience = std::chrono::minutes(1)) {
        starter_.scripts = {scripts.begin(), scripts.end()};
        starter_.calls.clear();
        std::string told;
        TestRun run(starter_, surroundings_, [&told](const RunEvent& event) { told += Text(event) + "\n"; }, true,
                    {std::chrono::minutes(10), patience});
        for (int i = 0; i < tests; ++i) {
            run.Start({source_, folder_ / "jdk", preferences_});
            run.Wait();
        }
        return told;
    }

    test::ScratchFolder folder_;
    JavaSurroundings surroundings_;
    Preferences preferences_;
    std::string source_ = "class";
    ScriptedStarter starter_;
};

const std::string substitute = ":Das Programm läuft mit Pirols Ersatzklassen für SuM.\n";

TEST_F(TestRunTest, TellsWhatTheProgramDoes) {
    EXPECT_EQ(
        Told({"\1R17\tcompiler\nPicked up x\n\1S\n\1W\n\1HhatKnopfGeklickt\n\1oName\n\1O: a\\tb\\\\\n"
              "\1Fat SuMAnwendung.x(SuMAnwendung.java:12)\n\1Ejava.lang.NullPointerException\t7\tnull\tat ...\n"}),
        "*1\nf:Picked up x\n" + substitute +
            "*2\n*3\nc:hatKnopfGeklickt\no:Name_\no:: a\tb\\\nf12:at SuMAnwendung.x(SuMAnwendung.java:12)\n"
            "E7:Eine Variable hat noch kein Objekt (null). (NullPointerException)\n:Das Programm ist beendet.\n*0\n");
    EXPECT_EQ(starter_.calls, (std::vector<std::string>{"cold", "warm"}));
}

TEST_F(TestRunTest, TellsEveryLineAsItStands) {
    EXPECT_EQ(Told({"\1R17\tcompiler\r\n\1S\n\1f(SuMAnwendung.java:8)\n\1oa\\n\\r\\x\\\n\1\n\1Zx\n\nx\r\nlast!"}),
              "*1\n" + substitute +
                  "*2\nf8:(SuMAnwendung.java:8)_\no:a\n\rx\\_\nf:\1\nf:\nf:x\nf:last\n"
                  ":Das Programm ist beendet (Status 3).\n*0\n");
    // It comes by sevens, and a line is told in pieces as soon as it is longer than 16384.
    for (const auto& [blanks, first] : {std::pair<std::size_t, std::size_t>{2, 16385}, {3, 16391}}) {
        const std::string told = Told({(std::string(blanks, '\n') + std::string(20'000, 'y')).c_str()});
        EXPECT_EQ(told.find_first_not_of('y', told.find('y')) - told.find('y'), first);
    }
}

TEST_F(TestRunTest, GivesJavaWhatItNeeds) {
    fs::create_directories(folder_ / "sum/sum/ereignis");
    ReplaceFileBytes(folder_ / "sum/sum/ereignis/EBAnwendung.class", "");
    ReplaceFileBytes(folder_ / "sum/treiber.JAR", "");
    preferences_.SumPath = TextOf(folder_ / "sum");
    const std::string sum = preferences_.SumPath;
    EXPECT_EQ(Told({"\1R17\tc\n\1S\n"}),
              "*1\n:Das Programm läuft mit SuM aus »" + sum + "«.\n*2\n:Das Programm ist beendet.\n*0\n");
    const std::string archives = sum + "\n" + sum + "/treiber.JAR\n";
    const auto field = [](const std::string& text) {
        return std::string("\0\0\0", 3) + static_cast<char>(text.size()) + text;
    };
    EXPECT_EQ(starter_.written, field("library") + field(archives) + field("class"));
    EXPECT_EQ(starter_.lastCall.program, folder_ / "jdk/bin/java");
    EXPECT_EQ(starter_.lastCall.folder, folder_ / "jdk");
    const std::vector<std::string>& words = starter_.lastCall.arguments;
    ASSERT_GT(words.size(), 4U);
    EXPECT_EQ(words.end()[-3] + " " + words.end()[-2] + " " + words.end()[-1], "pirol_run.Server 600000 warm");
    const fs::path archive = PathOf(words.end()[-4]);
    EXPECT_EQ(archive.parent_path(), folder_ / "state/pirol/java");
    EXPECT_TRUE(ReadFileBytes(archive).starts_with("PK"));
    ReplaceFileBytes(archive, "spoilt");
    source_ = std::string(70'000, 'a') + "€Ł"; // which Windows-1252 lacks
    preferences_.SumPath.clear();
    Told({""});
    EXPECT_TRUE(ReadFileBytes(archive).starts_with("PK"));
    EXPECT_EQ(starter_.written.substr(0, 12), std::string("\0\0\0\0\0\0\0\0\0\1\x11\x74", 12)) << "70004 bytes";
    EXPECT_TRUE(starter_.written.ends_with("aa€?"));
}

TEST_F(TestRunTest, ARejectedSourceLeavesJavaWaiting) {
    const std::string rejected = "\1Ccompiler.err.cant.resolve.location\t3\tx\tcannot find symbol\n\1X\n";
    EXPECT_EQ(Told({("\1R17\tcompiler\n" + rejected + "~").c_str()}),
              "*1\nE3:Diesen Namen kennt Java nicht: »x«.\n*0\n");
    EXPECT_EQ(starter_.calls, std::vector<std::string>{"cold"});
    // The second test goes to the same Java; as that says nothing more, to a new one.
    EXPECT_EQ(Told({"\1R17\tcompiler\n\1X\n", "\1R17\tcompiler\n\1S\n"}, 2),
              "*1\n*0\n*1\n" + substitute + "*2\n:Das Programm ist beendet.\n*0\n");
}

TEST_F(TestRunTest, AWaitingJavaIsForTheSameProgramOnly) {
    for (const bool keepsReady : {false, true}) {
        const std::string shown = "\1R17\tcompiler\n\1S\n\1W\n";
        starter_.scripts = {shown, keepsReady ? "~" : shown, shown, "~"};
        starter_.calls.clear();
        std::string told;
        TestRun run(
            starter_, surroundings_, [&told](const RunEvent& event) { told += Text(event); }, keepsReady);
        for (const char* const folder : {"jdk", "jdk/bin"}) {
            run.Start({"class", folder_ / folder, {}});
            run.Wait();
        }
        EXPECT_EQ(starter_.calls, keepsReady ? (std::vector<std::string>{"cold", "warm", "cold", "warm"})
                                             : (std::vector<std::string>{"cold", "cold"}));
        EXPECT_EQ(std::count(told.begin(), told.end(), '3'), 2) << told;
    }
}

TEST_F(TestRunTest, SaysWhyAProgramCannotRun) {
    EXPECT_EQ(Told({"\1R17\t\n~"}), "*1\nE:Dieses Java (17) hat keinen Compiler. Zum Testen braucht Pirol ein JDK.\n"
                                    "E:Java hat sich beendet, bevor das Programm laufen konnte.\n*0\n");
    EXPECT_EQ(Told({"java.lang.UnsupportedClassVersionError: 52\n"}),
              "*1\nf:java.lang.UnsupportedClassVersionError: 52\n"
              "E:Dieses Java ist zu alt. Pirol braucht ein JDK ab Version 8.\n*0\n");
    EXPECT_EQ(Told({"~"}, 1, std::chrono::milliseconds(0)), "*1\nE:Java antwortet nicht und wurde beendet.\n*0\n");
    const std::string endless(50000, 'x');
    const std::string told = Told({endless.c_str()});
    EXPECT_EQ(std::count(told.begin(), told.end(), 'x'), 50000) << "in pieces that fit";
    preferences_.JdkPath = TextOf(folder_ / "nothing");
    EXPECT_TRUE(Told({}).starts_with("*1\nE:In »" + preferences_.JdkPath + "« ist kein Java."));
}

TEST_F(TestRunTest, StoppingAndReplacingTellNothingMoreOfTheFormer) {
    starter_.scripts = {"\1R17\tcompiler\n\1S\n\1W\n~", "~", "\1R17\tcompiler\n\1S\n~"};
    std::string told;
    std::mutex mutex;
    std::condition_variable shown;
    TestRun run(
        starter_, surroundings_,
        [&](const RunEvent& event) {
            const std::scoped_lock lock(mutex);
            told += Text(event) + "\n";
            shown.notify_all();
        },
        true);
    EXPECT_EQ(RunTimes().patience, std::chrono::minutes(1));
    EXPECT_EQ(RunTimes().idle, std::chrono::minutes(10));
    run.Stop(); // nothing runs
    run.Start({"class", folder_ / "jdk", {}});
    {
        std::unique_lock lock(mutex);
        EXPECT_TRUE(shown.wait_for(lock, std::chrono::seconds(20), [&] { return told.ends_with("*3\n"); })) << told;
    }
    run.Stop();
    run.Start({"class", folder_ / "jdk", {}});
    run.Stop();
    run.Stop();
    EXPECT_EQ(told,
              "*1\n" + substitute + "*2\n*3\n:Das Programm wurde beendet.\n*0\n*1\n:Das Programm wurde beendet.\n*0\n");
}

TEST_F(TestRunTest, ChoosesTheFirstJavaThatCompiles) {
    const auto chosen = [this](const JavaSurroundings& surroundings) {
        const JdkChoice choice = ChooseJdk(preferences_, surroundings);
        return choice.jdk ? TextOf(choice.jdk->home.filename()) + " " + std::to_string(choice.jdk->Major())
                          : choice.problem;
    };
    const std::string all = "java.base jdk.compiler java.desktop";
    const fs::path old = AddJava("alt", "1.7.0_80", "");
    const fs::path runtime = AddJava("jre17", "17", "java.base java.desktop");
    AddJava("jvm/a", "11.0.2", all);
    AddJava("jvm/b", "21", all);
    AddJava("jvm/c", "1.8.0_292", "");
    ReplaceFileBytes(folder_ / "jvm/c/bin/javac", "");
    AddJava("Blue J/jdk", "17.0.9", all);
    ReplaceFileBytes(folder_ / "Blue J/bluej", "");

    EXPECT_EQ(chosen({.javaHome = runtime, .parents = {folder_ / "jvm"}}), "b 21") << "the newest of those together";
    EXPECT_EQ(chosen({.path = {folder_ / "jvm/c/bin", folder_ / "jvm/a/bin"}}), "c 8") << "the first of the path";
    EXPECT_TRUE(chosen({.javaHome = old}).starts_with("Java 1.7.0_80 in »"));
    EXPECT_TRUE(chosen({.javaHome = runtime}).find("Java ohne Compiler (JRE)") != std::string::npos);
    EXPECT_TRUE(chosen({}).starts_with("Es ist kein JDK zu finden."));
    preferences_.BlueJPath = TextOf(folder_ / "Blue J/bluej");
    EXPECT_EQ(chosen({.javaHome = folder_ / "jvm/a"}), "jdk 17") << "BlueJ's own";
    AddJava("link/jdk", "18", all);
    fs::create_symlink(folder_ / "Blue J/bluej", folder_ / "link/bluej");
    preferences_.BlueJPath = TextOf(folder_ / "link/bluej");
    EXPECT_EQ(chosen({}), "jdk 18") << "beside the link";
    fs::remove_all(folder_ / "link/jdk");
    EXPECT_EQ(chosen({}), "jdk 17") << "behind the link";
    fs::create_directories(folder_ / "other/jdk");
    EXPECT_EQ(chosen({.path = {folder_ / "jvm/a/bin"}, .blueJ = {folder_ / "other"}}), "jdk 17");
    preferences_.BlueJPath.clear();
    AddJava("other/jdk", "19", all);
    EXPECT_EQ(chosen({.javaHome = folder_ / "jvm/a", .blueJ = {folder_ / "other"}}), "jdk 19") << "where it usually is";
    AddJava("alt/jre8", "8", "");
    EXPECT_TRUE(chosen({.path = {old / "bin"}, .parents = {folder_ / "alt"}}).starts_with("Java 1.7.0_80 in »"))
        << "of the first one";
    ReplaceFileBytes(folder_ / "alt/jre8/bin/javac", "");
    EXPECT_EQ(chosen({.parents = {folder_ / "alt"}}), "jre8 8") << "just new enough";
    preferences_.JdkPath = TextOf(folder_ / "jvm/a/bin/java");
    EXPECT_EQ(chosen({}), "a 11") << "the user's choice";
    preferences_.JdkPath = TextOf(runtime);
    EXPECT_TRUE(chosen({}).find("JRE") != std::string::npos) << "no other one behind the user's back";
}

/// What a folder with these files and this file "release" is: where a Java begins, its version, whether it compiles.
TEST_F(TestRunTest, KnowsAJavaByItsFiles) {
    int number = 0;
    EXPECT_EQ(test::Deviations("javas",
                               [&](const test::TableRow& row) {
                                   const fs::path root = folder_ / ("java" + std::to_string(++number)).c_str();
                                   for (const std::string_view file : Split(row[0], ' ')) {
                                       fs::create_directories((root / file).parent_path());
                                       CreateFileBytes(root / file, file.ends_with("release") ? row[1] : "");
                                   }
                                   const std::optional<Jdk> jdk = JdkAt(row[2] == "none" ? fs::path() : root / row[2]);
                                   if (!jdk)
                                       return test::Answer("none");
                                   return test::Answer(Concatenate(TextOf(fs::relative(jdk->home, root)), " ",
                                                                   jdk->version, " ", jdk->Major(),
                                                                   jdk->compiles ? " compiles" : ""));
                               }),
              "");
}

TEST_F(TestRunTest, LooksAroundInTheSystem) {
    const std::pair<const char*, std::string> variables[] = {
        {"JAVA_HOME", "/a/jdk"}, {"PATH", "/a/bin:b::/c d"}, {"HOME", TextOf(folder_ / "")}};
    std::vector<std::optional<std::string>> before;
    for (const auto& [name, value] : variables) {
        const char* const old = std::getenv(name);
        before.push_back(old != nullptr ? std::optional<std::string>(old) : std::nullopt);
        setenv(name, value.c_str(), 1);
    }
    const JavaSurroundings system = JavaSurroundings::OfSystem();
    for (std::size_t i = 0; i < before.size(); ++i)
        before[i] ? setenv(variables[i].first, before[i]->c_str(), 1) : unsetenv(variables[i].first);
    EXPECT_EQ(system.javaHome, "/a/jdk");
    EXPECT_EQ(system.path, (std::vector<fs::path>{"/a/bin", "/c d"}));
    EXPECT_EQ(system.home, folder_ / "");
    EXPECT_EQ(system.parents.back(), folder_ / ".jdks");
    EXPECT_EQ(system.blueJ.front(), "/usr/share/bluej");

    EXPECT_EQ(JdkText({Jdk{"/j", "17.0.1", true}, ""}), "Verwendet wird Java 17.0.1 in »/j«.");
    EXPECT_EQ(JdkText({{}, "keines"}), "keines");
    EXPECT_EQ(LibraryText({true, "/s", {}}), "SuM gefunden: »/s«.");
    EXPECT_EQ(LibraryText({}), "SuM ist nicht zu finden; Programme laufen mit Pirols Ersatzklassen.");
}

/// An archive with one empty file in its table of contents.
std::string Archive(const std::string& name) {
    const auto number = [](std::size_t value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i)
            text += static_cast<char>(value >> (8 * i) & 0xFFU);
        return text;
    };
    const std::string table = "PK\1\2" + std::string(24, '\0') + number(name.size(), 2) + std::string(16, '\0') + name;
    return "stuff" + table + "PK\5\6" + std::string(8, '\0') + number(table.size(), 4) + number(5, 4) + number(0, 2);
}

TEST_F(TestRunTest, FindsTheLibraryWhereBlueJKeepsIt) {
    const auto found = [this] {
        const JavaLibraries libraries = FindLibraries(preferences_, surroundings_);
        std::string text = libraries.hasSum ? "SuM" : "none";
        for (const fs::path& archive : libraries.archives)
            text += " " + TextOf(archive.filename());
        return text;
    };
    fs::create_directories(folder_ / "bluej/lib/userlib");
    surroundings_.blueJ = {folder_ / "bluej"};
    ReplaceFileBytes(folder_ / "bluej/lib/userlib/treiber.jar", Archive("org/Driver.class"));
    ReplaceFileBytes(folder_ / "bluej/lib/userlib/liesmich.txt", "");
    fs::create_directory(folder_ / "bluej/lib/userlib/ordner.jar");
    EXPECT_EQ(found(), "none treiber.jar");
    const std::string sum = Archive("sum/ereignis/EBAnwendung.class");
    ReplaceFileBytes(folder_ / "bluej/lib/userlib/sum.jar", sum);
    EXPECT_EQ(found(), "SuM sum.jar treiber.jar");
    // Whatever is cut off or spoilt, nothing is found and nothing else happens.
    for (std::size_t size = 0; size < sum.size() - 2; ++size) {
        ReplaceFileBytes(folder_ / "broken.jar", sum.substr(0, size) + (size % 2 == 0 ? "" : std::string(30, '\xFF')));
        EXPECT_FALSE(ArchiveHolds(folder_ / "broken.jar", "sum/ereignis/EBAnwendung.class")) << size;
    }
    // What stands before and behind does not matter, as long as it is no second end.
    const auto holds = [this](const std::string& bytes) {
        ReplaceFileBytes(folder_ / "odd.jar", bytes);
        return ArchiveHolds(folder_ / "odd.jar", "sum/ereignis/EBAnwendung.class");
    };
    EXPECT_TRUE(holds(sum + std::string(65535, ' ')));
    EXPECT_FALSE(holds(sum + std::string(65536, ' '))) << "no comment is so long";
    std::string far = std::string(0x010203, ' ') + sum.substr(5);
    far.replace(far.size() - 6, 4, std::string("\3\2\1\0", 4));
    EXPECT_TRUE(holds(far)) << "numbers of several bytes";
    far.replace(far.size() - 6, 4, std::string("\3\2\1\1", 4));
    EXPECT_FALSE(holds(far)) << "a table behind the file's end";
    EXPECT_TRUE(holds(Archive(std::string(300, ' ') + "sum/ereignis/EBAnwendung.class")));
    EXPECT_FALSE(holds(std::string("PK\5\6", 4) + std::string(18, '\0'))) << "an empty one";

    surroundings_ = {.home = folder_ / "home"};
    fs::create_directories(folder_ / "home/.bluej");
    EXPECT_EQ(test::Deviations("bluej-libraries",
                               [&](const test::TableRow& row) {
                                   ReplaceFileBytes(folder_ / "home/.bluej/bluej.properties", row[0]);
                                   std::string paths;
                                   for (const fs::path& path : FindLibraries(preferences_, surroundings_).archives)
                                       paths += TextOf(path) + ";";
                                   return test::Answer(paths);
                               }),
              "");
    fs::create_directories(folder_ / "S\xC3\xBC M/sum/ereignis");
    ReplaceFileBytes(folder_ / "S\xC3\xBC M/sum/ereignis/EBAnwendung.class", "");
    ReplaceFileBytes(folder_ / "home/.bluej/bluej.properties",
                     "a=b\nbluej.userlibrary.1.location=" + TextOf(folder_ / "S\\u00fc\\ M") + "\r\n");
    EXPECT_EQ(found(), "SuM S\xC3\xBC M");
    surroundings_ = {};
    preferences_.SumPath = TextOf(folder_ / "bluej/lib/userlib/treiber.jar");
    EXPECT_EQ(found(), "SuM sum.jar treiber.jar") << "beside what was chosen";
}

TEST(RunMessages, AreGerman) {
    EXPECT_EQ(test::Deviations("java-messages",
                               [](const test::TableRow& row) {
                                   return test::Answer(row[0].starts_with("compiler.")
                                                           ? CompileErrorText(row[0], row[1], row[2])
                                                           : ExceptionText(row[0], row[2]));
                               }),
              "");
}

TEST(ReportingSource, ReportsHandlersAndKeepsLines) {
    const std::string head = "class S\r\n{\r\n    S()\r\n    {\r\n    }\r\n";
    const auto method = [](const std::string& name, const std::string& report) {
        return "    public void " + name + "()\r\n    {" + report + "\r\n    }\r\n";
    };
    EXPECT_EQ(ReportingSource(head + method("hatAGeklickt", "") + method("a\"b", "") + method("x", "") + "}"),
              head + method("hatAGeklickt", " pirol_run.Report.called(\"hatAGeklickt\");") + method("a\"b", "") +
                  method("x", " pirol_run.Report.called(\"x\");") + "}");
    for (int code = 1; code < 256; ++code) {
        const char sign = static_cast<char>(code);
        const bool isPlain = code >= 0x80 || sign == '_' || sign == '$' || (code < 0x80 && std::isalnum(code) != 0);
        const std::string name = std::string("x") + sign;
        const std::string report = isPlain ? " pirol_run.Report.called(\"" + name + "\");" : "";
        EXPECT_EQ(ReportingSource(head + method(name, "")), head + method(name, report)) << code;
    }
    for (const char* odd :
         {"", "    public void ", "    public void x(", "    public void x()", "    public void x()\r\n    "})
        EXPECT_EQ(ReportingSource(odd), odd);
}

#ifndef _WIN32
/// What a shell prints, and how it ends.
std::string Printed(const std::string& script, const std::vector<std::string>& words, std::string_view input = {}) {
    ProcessCall call{"/bin/sh", {"-c", script, "sh"}, "/"};
    call.arguments.insert(call.arguments.end(), words.begin(), words.end());
    const std::unique_ptr<ChildProcess> process = SystemProcessStarter().Start(call);
    if (!input.empty())
        process->Write(input);
    std::string text;
    while (process->Read(text, std::chrono::seconds(20)) == ChildProcess::Reading::Bytes)
        continue;
    return text + "|" + std::to_string(process->Status());
}

TEST(ChildProcess, LeavesTheDescriptorsOfThisProgramAsTheyAre) {
    const auto open = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    const auto before = open();
    Printed("exit", {});
    EXPECT_EQ(open(), before);
}

TEST(ChildProcess, HasNeitherTheSignalsNorTheLocaleOfThisProgram) {
    sigset_t term;
    sigset_t before;
    sigemptyset(&term);
    sigaddset(&term, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &term, &before);
    EXPECT_EQ(Printed("kill -TERM $$; echo alive", {}), "|-1") << "blocked";
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    const auto handler = std::signal(SIGTERM, SIG_IGN);
    EXPECT_EQ(Printed("kill -TERM $$; echo alive", {}), "|-1") << "ignored";
    std::signal(SIGTERM, handler);

    // The one that decides is the first that is not empty; where it is none of UTF-8, another one is set.
    const char* const names[] = {"LC_ALL", "LC_CTYPE", "LANG"};
    const std::pair<std::array<const char*, 3>, const char*> cases[] = {
        {{"C", "", "de_DE.UTF-8"}, "C.UTF-8"},
        {{nullptr, nullptr, "de_DE.UTF-8"}, ""},
        {{"", "de_DE.utf8", "C"}, ""},
        {{nullptr, "C", "de_DE.UTF-8"}, "C.UTF-8"},
        {{nullptr, nullptr, nullptr}, "C.UTF-8"},
        {{"de_DE.UTF-8", "C", "C"}, "de_DE.UTF-8"},
        {{"de_DE.ISO-8859-1", "C", "C"}, "C.UTF-8"},
    };
    std::array<std::optional<std::string>, 3> old;
    for (std::size_t i = 0; i < old.size(); ++i)
        if (const char* const value = std::getenv(names[i]))
            old[i] = value;
    for (const auto& [values, seen] : cases) {
        for (std::size_t i = 0; i < old.size(); ++i)
            values[i] != nullptr ? setenv(names[i], values[i], 1) : unsetenv(names[i]);
        EXPECT_EQ(
            Printed("echo \"$LC_ALL\"; env | grep -c ^LC_ALL= || true", {}).substr(0, std::string(seen).size() + 1),
            std::string(seen) + "\n");
    }
    for (std::size_t i = 0; i < old.size(); ++i)
        old[i] ? setenv(names[i], old[i]->c_str(), 1) : unsetenv(names[i]);
}

TEST(ChildProcess, IsARealOne) {
    EXPECT_EQ(Printed("pwd; for w; do echo \"<$w>\"; done; echo wrong >&2; exit 3", {"a b", "\"ü'\\", ""}),
              "/\n<a b>\n<\"ü'\\>\n<>\nwrong\n|3");
    EXPECT_EQ(Printed("read line; echo got $line", {}, "it\n"), "got it\n|0");
    // One that takes its time before it reads, and one that never does, whose input a stranger holds.
    EXPECT_EQ(Printed("sleep 0.15; head -c 1000000 | wc -c", {}, std::string(1'000'000, 'x')), "1000000\n|0");
    const std::unique_ptr<ChildProcess> gone =
        SystemProcessStarter().Start({"/bin/sh", {"-c", "setsid sleep 1 &"}, {}});
    EXPECT_FALSE(gone->Write(std::string(10'000'000, 'x')));
    // What it leaves behind goes with it, though that holds its output open.
    const std::string left = Printed("sleep 1000 & echo $!", {});
    const int leftProcess = std::stoi(left);
    for (int i = 0; i < 2000 && kill(leftProcess, 0) == 0; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_FALSE(fs::exists("/proc/" + std::to_string(leftProcess) + "/exe"));
    EXPECT_EQ(test::ErrorOf([] {
                  SystemProcessStarter().Start({"/no/such", {}, {}});
              }),
              "Fehler 53: Datei nicht gefunden");

    const std::unique_ptr<ChildProcess> mute = SystemProcessStarter().Start({"/bin/sleep", {"1000"}, {}});
    std::string nothing;
    for (const int milliseconds : {0, 1, 120})
        EXPECT_EQ(mute->Read(nothing, std::chrono::milliseconds(milliseconds)), ChildProcess::Reading::Nothing);
    mute->End();
    EXPECT_EQ(mute->Read(nothing, std::chrono::seconds(20)), ChildProcess::Reading::End);

    const std::unique_ptr<ChildProcess> deaf = SystemProcessStarter().Start({"/bin/sleep", {"1000"}, {}});
    std::thread end([&deaf] { deaf->End(); });
    EXPECT_FALSE(deaf->Write(std::string(10'000'000, 'x'))) << "that nobody reads";
    end.join();
    EXPECT_EQ(deaf->Status(), -1);
}
#endif

} // namespace
} // namespace pirol
