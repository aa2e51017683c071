#pragma once

#include "app/JavaPlaces.h"
#include "app/Preferences.h"
#include "base/ChildProcess.h"

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace pirol {

/// What becomes of a tested program.
enum class RunState {
    Ended,     ///< nothing runs
    Compiling, ///< Java is being found, started, or at work on the source
    Running,   ///< the program has begun
    Shown,     ///< its window is there
};

/// One thing that a test tells.
struct RunEvent {
    enum class Kind {
        State,
        Output,    ///< the program printed it
        Complaint, ///< the program, or Java itself, printed it on standard error
        Call,      ///< the name of a handler that is called
        Error,     ///< an error of the compiler, something thrown, or what keeps the program from running; German
        Note,      ///< what happens, German
    };

    Kind kind = Kind::State;
    std::string text = {};            ///< one line, UTF-8 as far as the program's own is
    std::size_t line = 0;             ///< of the source, which begins with 1; 0 for none
    bool isOpen = false;              ///< the printed line has not ended yet
    RunState state = RunState::Ended; ///< of the kind State

    bool operator==(const RunEvent&) const = default;
};

/// What shall be tested.
struct RunRequest {
    std::string source;           ///< as generated, UTF-8
    std::filesystem::path folder; ///< in which the program works
    Preferences preferences;      ///< which Java and which library
};

/// How long things may take.
struct RunTimes {
    std::chrono::milliseconds idle = std::chrono::minutes(10);     ///< until a waiting Java is given back
    std::chrono::milliseconds patience = std::chrono::seconds(60); ///< until a Java that says nothing counts as hanging
};

/// Tests programs: compiles and runs them in a Java of their own, one at a time. While a program runs the next Java
/// starts and makes itself ready. Nothing that is asked of it waits; what happens is told from a thread of its own, in
/// order, and nothing more of a test that has been ended. All programs end with it.
class TestRun {
  public:
    using Listener = std::function<void(const RunEvent&)>;

    /// With `keepsReady` a Java waits for the next test. The listener must not call this object.
    TestRun(ProcessStarter& starter, JavaSurroundings surroundings, Listener listener, bool keepsReady,
            RunTimes times = {});
    TestRun(const TestRun&) = delete;
    TestRun& operator=(const TestRun&) = delete;
    ~TestRun();

    /// Begins a test, in place of the one that runs.
    void Start(RunRequest request);
    /// Ends the program that runs, which is told as its end; nothing happens when there is none.
    void Stop();
    /// Waits for the end of the test that runs.
    void Wait();

  private:
    struct Java;
    struct Test;
    class Listening;

    void Run(Test& test);
    bool Try(Test& test, std::unique_ptr<Java> java, const JavaLibraries& libraries, std::string_view request);
    std::unique_ptr<Java> StartJava(const ProcessCall& call) const;
    std::unique_ptr<Java> TakeReady(const ProcessCall& call);
    void MakeReady(const Test& test);
    void Tell(const Test& test, const RunEvent& event);
    static void End(Test& test);

    ProcessStarter& starter_;
    const JavaSurroundings surroundings_;
    const Listener listener_;
    const bool keepsReady_;
    const RunTimes times_;

    std::mutex mutex_; ///< guards what follows, and tells one thing after another
    std::condition_variable ended_;
    std::unique_ptr<Java> ready_;
    bool isClosing_ = false;
    std::list<Test> tests_; ///< the last one is the present one
};

/// The source with a report at the beginning of each handler, so that one sees which are called. Lines stay where they
/// are. Linear in the length.
std::string ReportingSource(std::string_view source);

} // namespace pirol
