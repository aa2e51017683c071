#include "app/TestRun.h"

#include "app/ErrorReport.h"
#include "app/RunMessages.h"
#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/HashFunction.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/UserFolder.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace pirol {

/// Written by the build: the archive of what compiles and runs programs, and of the substitute classes.
std::string_view EmbeddedJava(std::string_view name);

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::string_view serverClass = "pirol_run.Server";
/// As long as nothing is printed, one looks this often whether something shall end.
constexpr std::chrono::milliseconds readingTime(250);
/// A line longer than this is told in pieces.
constexpr std::size_t longestLine = 16384;

/// The archive as a file that Java can read. Its name changes with its content, so that no other version of Pirol that
/// runs now is disturbed; what the file holds is looked at each time, as it is run.
fs::path JavaArchive() {
    const std::string_view archive = EmbeddedJava("pirol.jar");
    const fs::path folder = StateFolder() / "java";
    MakePrivateFolder(folder);
    const fs::path path = folder / PathOf(Concatenate("pirol-", HashFunction(std::string(archive)), ".jar"));
    if (!IsExistingFile(path) || ReadFileBytes(path) != archive)
        ReplaceFileBytes(path, archive);
    return path;
}

/// Compiling and opening one window once is no work for Java's better and slower compiler, and one thread is enough for
/// its memory. What compiling leaves behind is soon cleared away, so that a Java that waits stays small.
ProcessCall JavaCall(const Jdk& jdk, const fs::path& folder, const fs::path& archive, std::chrono::milliseconds idle) {
    return {jdk.Program(),
            {"-XX:+IgnoreUnrecognizedVMOptions", "-XX:TieredStopAtLevel=1", "-XX:+UseSerialGC", "-XX:-UsePerfData",
             "-Xshare:auto", "-Xmn12m", "-Xmx512m", "-cp", TextOf(archive), std::string(serverClass),
             std::to_string(idle.count())},
            folder};
}

void AppendField(std::string& out, std::string_view field) {
    const auto size = static_cast<std::uint32_t>(field.size());
    for (const unsigned shift : {24U, 16U, 8U, 0U})
        out += static_cast<char>(size >> shift & 0xFFU);
    out += field;
}

std::string RequestBytes(const JavaLibraries& libraries, std::string_view source) {
    std::string archives;
    for (const fs::path& archive : libraries.archives)
        Append(archives, TextOf(archive), "\n");
    std::string bytes;
    AppendField(bytes, libraries.hasSum ? "library" : "");
    AppendField(bytes, archives);
    // What Windows-1252 lacks is lost on the way into a file, and so it is here.
    AppendField(bytes, FromWindows1252(ToWindows1252(ReportingSource(source))));
    return bytes;
}

/// Undoes the escapes of a reported line's field.
std::string Unescaped(std::string_view field) {
    std::string text;
    text.reserve(field.size());
    for (std::size_t i = 0; i < field.size(); ++i) {
        constexpr std::string_view letters = "tnr";
        const bool isEscape = field[i] == '\\' && i + 1 < field.size();
        const std::size_t letter = isEscape ? letters.find(field[++i]) : letters.npos;
        text += letter == letters.npos ? field[i] : "\t\n\r"[letter];
    }
    return text;
}

std::size_t LineNumber(std::string_view text) {
    std::size_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// The line of the program that a printed line of a stack trace names, or 0.
std::size_t NamedLine(std::string_view text) {
    constexpr std::string_view mark = "(SuMAnwendung.java:";
    const std::size_t found = text.find(mark);
    return found == text.npos ? 0 : LineNumber(text.substr(found + mark.size()));
}

RunEvent StateEvent(RunState state) {
    return {.kind = RunEvent::Kind::State, .state = state};
}

RunEvent ErrorEvent(std::string text, std::size_t line = 0) {
    return {.kind = RunEvent::Kind::Error, .text = std::move(text), .line = line};
}

RunEvent NoteEvent(std::string text) {
    return {.kind = RunEvent::Kind::Note, .text = std::move(text)};
}

/// Names with other characters may be right in Java, but stay out of a text between quotes.
bool IsPlainName(std::string_view name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char character) {
        const auto code = static_cast<unsigned char>(character);
        return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') ||
               code == '_' || code == '$' || code >= 0x80;
    });
}

} // namespace

/// A Java that runs, and for what it was started.
struct TestRun::Java {
    std::unique_ptr<ChildProcess> process;
    ProcessCall call;
    bool isReady = false; ///< it waited for a test
};

struct TestRun::Test {
    explicit Test(RunRequest what) : request(std::move(what)) {}

    RunRequest request;
    // What follows is guarded by the run's mutex.
    bool isStopped = false; ///< nothing more is told
    bool hasEnded = false;
    ChildProcess* process = nullptr;
    std::optional<ProcessCall> call = {}; ///< how a Java for the same program is started; of the thread alone
    std::thread thread = {};
};

/// What one Java says about one test.
class TestRun::Listening {
  public:
    enum class Outcome {
        Ended,    ///< the program has run to its end, or there is none
        Rejected, ///< Java waits for another source
        Gone,     ///< it waited, and has ended before the source came
    };

    Listening(TestRun& run, Test& test, Java& java, const JavaLibraries& libraries)
        : run_(run), test_(test), java_(java), libraries_(libraries) {}

    Outcome ToTheEnd() {
        const Clock::time_point begin = Clock::now();
        std::string bytes;
        while (!isRejected_) {
            const ChildProcess::Reading reading = java_.process->Read(bytes, readingTime);
            TakeLines(bytes, reading == ChildProcess::Reading::End);
            if (reading == ChildProcess::Reading::End)
                return AtEnd();
            if (!hasBegun_ && !isRejected_ && Clock::now() - begin > run_.times_.patience) {
                run_.Tell(test_, ErrorEvent("Java antwortet nicht und wurde beendet."));
                java_.process->End();
                return Outcome::Ended;
            }
        }
        return Outcome::Rejected;
    }

  private:
    void TakeLines(std::string& bytes, bool isAll) {
        std::size_t begin = 0;
        for (std::size_t end; (end = bytes.find('\n', begin)) != bytes.npos; begin = end + 1)
            Take(std::string_view(bytes).substr(begin, end - begin));
        bytes.erase(0, begin);
        if (!bytes.empty() && (isAll || bytes.size() > longestLine)) {
            Take(bytes);
            bytes.clear();
        }
    }

    void Take(std::string_view line) {
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.size() < 2 || line[0] != '\1') {
            isTooOld_ = isTooOld_ || line.find("UnsupportedClassVersionError") != line.npos;
            Print(RunEvent::Kind::Complaint, line, false);
            return;
        }
        const std::vector<std::string_view> fields = Split(line.substr(2), '\t');
        const auto field = [&](std::size_t number) {
            return number < fields.size() ? Unescaped(fields[number]) : std::string();
        };
        TakeReport(line[1], field);
    }

    template <class Field>
    void TakeReport(char letter, const Field& field) {
        switch (letter) {
        case 'R':
            if (field(1).empty()) {
                run_.Tell(test_, ErrorEvent(Concatenate("Dieses Java (", field(0),
                                                        ") hat keinen Compiler. Zum Testen braucht Pirol ein JDK.")));
                java_.process->End();
            }
            break;
        case 'C':
            run_.Tell(test_, ErrorEvent(CompileErrorText(field(0), field(2), field(3)), LineNumber(field(1))));
            break;
        case 'X':
            isRejected_ = true;
            break;
        case 'S':
            hasBegun_ = true;
            run_.Tell(test_, NoteEvent(libraries_.hasSum ? Concatenate("Das Programm läuft mit SuM aus »",
                                                                       TextOf(libraries_.sum), "«.")
                                                         : "Das Programm läuft mit Pirols Ersatzklassen für SuM."));
            run_.Tell(test_, StateEvent(RunState::Running));
            break;
        case 'W':
            run_.Tell(test_, StateEvent(RunState::Shown));
            run_.MakeReady(test_);
            break;
        case 'H':
            run_.Tell(test_, {.kind = RunEvent::Kind::Call, .text = field(0)});
            break;
        case 'E':
            run_.Tell(test_, ErrorEvent(ExceptionText(field(0), field(2)), LineNumber(field(1))));
            break;
        case 'O':
        case 'o':
            Print(RunEvent::Kind::Output, field(0), letter == 'o');
            break;
        case 'F':
        case 'f':
            Print(RunEvent::Kind::Complaint, field(0), letter == 'f');
            break;
        default:
            break;
        }
    }

    void Print(RunEvent::Kind kind, std::string_view text, bool isOpen) {
        run_.Tell(test_, {.kind = kind, .text = std::string(text), .line = NamedLine(text), .isOpen = isOpen});
    }

    Outcome AtEnd() {
        const int status = java_.process->Status();
        if (hasBegun_) {
            run_.Tell(test_, NoteEvent(status == 0 ? "Das Programm ist beendet."
                                                   : Concatenate("Das Programm ist beendet (Status ", status, ").")));
            run_.MakeReady(test_);
            return Outcome::Ended;
        }
        // One that waited may have been given back just now.
        if (java_.isReady)
            return Outcome::Gone;
        run_.Tell(test_, ErrorEvent(isTooOld_ ? Concatenate("Dieses Java ist zu alt. Pirol braucht ein JDK ab Version ",
                                                            oldestJava, ".")
                                              : "Java hat sich beendet, bevor das Programm laufen konnte."));
        return Outcome::Ended;
    }

    TestRun& run_;
    Test& test_;
    Java& java_;
    const JavaLibraries& libraries_;
    bool hasBegun_ = false;
    bool isRejected_ = false;
    bool isTooOld_ = false;
};

TestRun::TestRun(ProcessStarter& starter, JavaSurroundings surroundings, Listener listener, bool keepsReady,
                 RunTimes times)
    : starter_(starter), surroundings_(std::move(surroundings)), listener_(std::move(listener)),
      keepsReady_(keepsReady), times_(times) {}

TestRun::~TestRun() {
    {
        const std::scoped_lock lock(mutex_);
        isClosing_ = true;
        for (Test& test : tests_)
            End(test);
    }
    for (Test& test : tests_)
        test.thread.join();
}

void TestRun::Start(RunRequest request) {
    const std::scoped_lock lock(mutex_);
    for (Test& test : tests_)
        End(test);
    // Those that have ended need nothing any more; their threads are at their last statement.
    tests_.remove_if([](Test& test) {
        if (test.hasEnded)
            test.thread.join();
        return test.hasEnded;
    });
    Test& test = tests_.emplace_back(std::move(request));
    listener_(StateEvent(RunState::Compiling));
    test.thread = std::thread([this, &test] {
        if (const std::optional<RuntimeError> error = ErrorOf([&] { Run(test); }))
            Tell(test, ErrorEvent(error->what()));
        Tell(test, StateEvent(RunState::Ended));
        const std::scoped_lock ending(mutex_);
        test.hasEnded = true;
        ended_.notify_all();
    });
}

void TestRun::Stop() {
    const std::scoped_lock lock(mutex_);
    if (tests_.empty() || tests_.back().hasEnded || tests_.back().isStopped)
        return;
    End(tests_.back());
    listener_(NoteEvent("Das Programm wurde beendet."));
    listener_(StateEvent(RunState::Ended));
}

void TestRun::Wait() {
    std::unique_lock lock(mutex_);
    ended_.wait(lock, [this] { return tests_.empty() || tests_.back().hasEnded; });
}

void TestRun::End(Test& test) {
    test.isStopped = true;
    if (test.process != nullptr)
        test.process->End();
}

void TestRun::Tell(const Test& test, const RunEvent& event) {
    const std::scoped_lock lock(mutex_);
    if (!test.isStopped)
        listener_(event);
}

void TestRun::Run(Test& test) {
    const JdkChoice choice = ChooseJdk(test.request.preferences, surroundings_);
    if (!choice.jdk) {
        Tell(test, ErrorEvent(choice.problem));
        return;
    }
    const JavaLibraries libraries = FindLibraries(test.request.preferences, surroundings_);
    test.call = JavaCall(*choice.jdk, test.request.folder, JavaArchive(), times_.idle);
    const std::string request = RequestBytes(libraries, test.request.source);
    std::unique_ptr<Java> ready = TakeReady(*test.call);
    if (ready == nullptr || !Try(test, std::move(ready), libraries, request))
        Try(test, StartJava(*test.call), libraries, request);
}

/// False when that Java was gone before it could do anything.
bool TestRun::Try(Test& test, std::unique_ptr<Java> java, const JavaLibraries& libraries, std::string_view request) {
    {
        const std::scoped_lock lock(mutex_);
        if (test.isStopped)
            return true;
        test.process = java->process.get();
    }
    java->process->Write(request);
    const Listening::Outcome outcome = Listening(*this, test, *java, libraries).ToTheEnd();
    const std::scoped_lock lock(mutex_);
    test.process = nullptr;
    if (outcome == Listening::Outcome::Rejected && keepsReady_ && !test.isStopped) {
        java->isReady = true;
        ready_ = std::move(java);
    }
    return outcome != Listening::Outcome::Gone;
}

std::unique_ptr<TestRun::Java> TestRun::StartJava(const ProcessCall& call) const {
    return std::make_unique<Java>(Java{starter_.Start(call), call});
}

/// The Java that waits, when it was started for the same; another one is given back.
std::unique_ptr<TestRun::Java> TestRun::TakeReady(const ProcessCall& call) {
    const std::scoped_lock lock(mutex_);
    std::unique_ptr<Java> java = std::move(ready_);
    return java != nullptr && java->call == call ? std::move(java) : nullptr;
}

void TestRun::MakeReady(const Test& test) {
    {
        const std::scoped_lock lock(mutex_);
        if (!keepsReady_ || isClosing_ || ready_ != nullptr)
            return;
    }
    ProcessCall call = *test.call;
    call.arguments.emplace_back("warm");
    std::unique_ptr<Java> java = StartJava(call);
    java->call = *test.call;
    java->isReady = true;
    const std::scoped_lock lock(mutex_);
    if (!isClosing_)
        ready_ = std::move(java);
}

std::string ReportingSource(std::string_view source) {
    constexpr std::string_view before = "    public void ";
    constexpr std::string_view behind = "()\r\n    {";
    std::string reporting;
    reporting.reserve(source.size() + source.size() / 4);
    while (true) {
        const std::size_t found = source.find(before);
        const std::size_t name = found == source.npos ? source.size() : found + before.size();
        const std::size_t end = source.find("()", name);
        if (end == source.npos)
            break;
        reporting += source.substr(0, end);
        const std::string_view handler = source.substr(name, end - name);
        source.remove_prefix(end);
        if (!source.starts_with(behind) || !IsPlainName(handler))
            continue;
        Append(reporting, behind, " pirol_run.Report.called(\"", handler, "\");");
        source.remove_prefix(behind.size());
    }
    reporting += source;
    return reporting;
}

} // namespace pirol
