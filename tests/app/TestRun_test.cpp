#include "app/RunMessages.h"
#include "app/TestRun.h"
#include "base/Text.h"
#include "Cases.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <deque>

namespace pirol {
namespace {

namespace fs = std::filesystem;

/// A Java that says what was written down for it, and then ends, or waits until it is ended.
class ScriptedProcess final : public ChildProcess {
  public:
    ScriptedProcess(std::string said, bool waits) : said_(std::move(said)), waits_(waits) {}

    bool Write(std::string_view) override { return true; }
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
    int Status() override { return isEnded_ ? -1 : 0; }

  private:
    std::string said_;
    const bool waits_;
    std::atomic<bool> isEnded_ = false;
};

class ScriptedStarter final : public ProcessStarter {
  public:
    std::unique_ptr<ChildProcess> Start(const ProcessCall& call) override {
        const std::scoped_lock lock(mutex_);
        calls.push_back(call.arguments.back() == "warm" ? "warm" : "cold");
        std::string said = scripts.empty() ? "" : scripts.front();
        if (!scripts.empty())
            scripts.pop_front();
        const bool waits = said.ends_with('~');
        return std::make_unique<ScriptedProcess>(said.substr(0, said.size() - (waits ? 1 : 0)), waits);
    }

    std::deque<std::string> scripts; ///< of the Javas in the order of their start; one that ends in "~" stays
    std::vector<std::string> calls;

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
            run.Start({"class", folder_ / "jdk", preferences_});
            run.Wait();
        }
        return told;
    }

    test::ScratchFolder folder_;
    JavaSurroundings surroundings_;
    Preferences preferences_;
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

TEST_F(TestRunTest, ARejectedSourceLeavesJavaWaiting) {
    const std::string rejected = "\1Ccompiler.err.cant.resolve.location\t3\tx\tcannot find symbol\n\1X\n";
    EXPECT_EQ(Told({("\1R17\tcompiler\n" + rejected + "~").c_str()}),
              "*1\nE3:Diesen Namen kennt Java nicht: »x«.\n*0\n");
    EXPECT_EQ(starter_.calls, std::vector<std::string>{"cold"});
    // The second test goes to the same Java; as that says nothing more, to a new one.
    EXPECT_EQ(Told({"\1R17\tcompiler\n\1X\n", "\1R17\tcompiler\n\1S\n"}, 2),
              "*1\n*0\n*1\n" + substitute + "*2\n:Das Programm ist beendet.\n*0\n");
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
    preferences_.JdkPath = TextOf(folder_ / "jvm/a/bin/java");
    EXPECT_EQ(chosen({}), "a 11") << "the user's choice";
    preferences_.JdkPath = TextOf(runtime);
    EXPECT_TRUE(chosen({}).find("JRE") != std::string::npos) << "no other one behind the user's back";
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
    surroundings_ = {.home = folder_ / "home"};
    fs::create_directories(folder_ / "home/.bluej");
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

TEST(ChildProcess, IsARealOne) {
    EXPECT_EQ(Printed("pwd; for w; do echo \"<$w>\"; done; echo wrong >&2; exit 3", {"a b", "\"ü'\\", ""}),
              "/\n<a b>\n<\"ü'\\>\n<>\nwrong\n|3");
    EXPECT_EQ(Printed("read line; echo got $line", {}, "it\n"), "got it\n|0");
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

    const std::unique_ptr<ChildProcess> deaf = SystemProcessStarter().Start({"/bin/sleep", {"1000"}, {}});
    std::thread end([&deaf] { deaf->End(); });
    EXPECT_FALSE(deaf->Write(std::string(10'000'000, 'x'))) << "that nobody reads";
    end.join();
    EXPECT_EQ(deaf->Status(), -1);
}
#endif

} // namespace
} // namespace pirol
