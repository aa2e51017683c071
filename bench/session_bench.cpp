// Replays a session in the main window with a large design and prints for each act the longest time in which the
// window's event loop stood still: as the clock says, and as processor time, which other programs do not lengthen.
// Exits with 1 when one of the acts takes more processor time than the limit; opening is printed, but has no limit.
//
//   session-bench [COMPONENTS]      100,000 when none is given; opening twice as many is measured beside it

#include "base/FileAccess.h"
#include "FakeDialogs.h"
#include "project/ProjectFile.h"
#include "ui/dialogs/frmProgramStarter.h"
#include "ui/main/DesignKeeper.h"
#include "ui/main/frmMain.h"
#include "ui/parts/RunBeside.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <stdexcept>
#include <thread>

namespace {

using namespace pirol;

constexpr double limit = 50;
constexpr int rest = 700;         ///< milliseconds after each act, in which hints are found and designs kept
constexpr double mostTimes = 2.5; ///< as long as opening half as many

double Milliseconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

/// Sends an event to the window's thread every millisecond and measures how long each is on its way.
class Ticker : public QObject {
  public:
    struct Stall {
        double clock = 0;
        double processor = 0;
    };

    Ticker() : sender_([this] { Send(); }) { Take(); }
    ~Ticker() override {
        ends_ = true;
        sender_.join();
    }

    /// The longest since the last call.
    Stall Take() {
        lastProcessor_ = Milliseconds(CLOCK_THREAD_CPUTIME_ID);
        return std::exchange(longest_, {});
    }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        const double processor = Milliseconds(CLOCK_THREAD_CPUTIME_ID);
        longest_.clock = std::max(longest_.clock, Milliseconds(CLOCK_MONOTONIC) - sent_);
        longest_.processor = std::max(longest_.processor, processor - lastProcessor_);
        lastProcessor_ = processor;
        isUnderWay_ = false;
        return true;
    }

  private:
    void Send() {
        while (!ends_) {
            if (!isUnderWay_.exchange(true)) {
                sent_ = Milliseconds(CLOCK_MONOTONIC);
                QCoreApplication::postEvent(this, new QEvent(QEvent::User));
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    Stall longest_;
    double lastProcessor_ = 0;
    std::atomic<double> sent_ = 0;
    std::atomic<bool> isUnderWay_ = false;
    std::atomic<bool> ends_ = false;
    std::thread sender_;
};

/// As bench/make_design.py lays them out.
std::string ProjectOf(int components) {
    ProjectModel model;
    for (int index = 0; index < components; ++index)
        model.PlaceComponent(*KindByNumber(1 + index % 15), {index % 50 * 10, index / 50 % 3000 * 10, 120, 40});
    return GeneratePRLCode(model);
}

void Wait(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Answers from lists, and waits as the program does.
struct Dialogs : test::FakeDialogs {
    void Wait(const std::function<void()>& work) override { RunBeside(work); }
};

struct Session {
    explicit Session(const QString& folder)
        : window(dialogs, starter),
          keeper(window, dialogs, PathOf((folder + "/recovery").toStdString()),
                 {.afterChange = std::chrono::milliseconds(300), .betweenChecks = std::chrono::milliseconds(300)}) {
        window.resize(1200, 720);
        window.show();
        window.activateWindow();
        canvas = window.findChild<QWidget*>("picContainer");
    }

    enum class Kind { Changes, OnlyShows, Opens };

    template <class Act>
    void Do(const char* name, Kind kind, Act&& act) {
        Wait(rest);
        ticker.Take();
        const std::uint64_t before = window.CurrentDocument().StateNumber();
        QTimer::singleShot(0, &window, std::forward<Act>(act));
        Wait(rest);
        const Ticker::Stall stall = ticker.Take();
        if ((window.CurrentDocument().StateNumber() != before) == (kind == Kind::OnlyShows))
            throw std::runtime_error(std::string("This did not do what it should: ") + name);
        std::printf("| %s | %.1f ms | %.1f ms |\n", name, stall.clock, stall.processor);
        std::fflush(stdout);
        if (kind != Kind::Opens)
            longest = {std::max(longest.clock, stall.clock), std::max(longest.processor, stall.processor)};
    }

    void Choose(const char* command) { window.findChild<QAction*>(command)->trigger(); }
    /// For commands that show a dialog, which is closed after a while.
    void ChooseAndClose(const char* command) {
        QTimer closing;
        closing.callOnTimeout([&closing] {
            if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                closing.stop();
                dialog->reject();
            }
        });
        closing.start(rest / 2);
        Choose(command);
    }
    void Mouse(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QCoreApplication::postEvent(canvas, new QMouseEvent(type, at, canvas->mapToGlobal(at), button, buttons, {}));
    }
    void Drag(QPoint from, QPoint to) {
        Mouse(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        for (int step = 1; step <= 20; ++step)
            Mouse(QEvent::MouseMove, from + (to - from) * step / 20, Qt::NoButton, Qt::LeftButton);
        Mouse(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    }
    void Key(QWidget* target, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
        QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, key, modifiers, text));
        QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, key, modifiers, text));
    }
    /// The property in that row of the first category gets another value.
    void ChangeProperty(int row, const QString& value) {
        QAbstractItemModel& list = *window.findChild<QTreeView*>("plProperties")->model();
        list.setData(list.index(row, 1, list.index(0, 0)), value);
    }

    Dialogs dialogs;
    frmProgramStarter starter;
    frmMain window;
    DesignKeeper keeper;
    QWidget* canvas;
    Ticker ticker;
    Ticker::Stall longest;
};

/// Processor time in milliseconds until the window shows the project.
double Open(Session& session, const std::string& path) {
    session.Choose("mnuFileNew");
    Wait(rest);
    const double begin = Milliseconds(CLOCK_THREAD_CPUTIME_ID);
    session.window.ReadPRLFile(path);
    QApplication::processEvents();
    return Milliseconds(CLOCK_THREAD_CPUTIME_ID) - begin;
}

void Replay(Session& session, const std::string& path, const std::string& saved) {
    auto* const window = &session.window;
    QWidget* const canvas = session.canvas;
    using enum Session::Kind;
    session.Do("open", Opens, [&] { window->ReadPRLFile(path); });
    session.Do("select with the mouse", OnlyShows, [&] { session.Drag({603, 240}, {603, 240}); });
    session.Do("drag", Changes, [&] { session.Drag({305, 203}, {255, 103}); });
    session.Do("draw a component", Changes, [&] { session.Drag({610, 2}, {639, 38}); });
    session.Do("move with a key", Changes, [&] { session.Key(canvas, Qt::Key_Right); });
    session.Do("select with Tab", OnlyShows, [&] { session.Key(canvas, Qt::Key_Tab, "\t"); });
    session.Do("insert", Changes, [&] { session.Key(canvas, Qt::Key_Insert); });
    session.Do("change a name", Changes, [&] { session.ChangeProperty(0, "hatNeuerName"); });
    session.Do("delete", Changes, [&] { window->Canvas().DeleteSelected(); });
    session.Do("undo", Changes, [&] { session.Choose("mnuEditUndo"); });
    session.Do("redo", Changes, [&] { session.Choose("mnuEditRedo"); });
    session.Do("hide the grid", OnlyShows, [&] { session.Choose("mnuViewShowGrid"); });
    session.Do("make the designed window larger", Changes, [&] {
        window->CurrentDocument().Edit("Größer", [](ProjectModel& model) { model.SetWindowSize(2000, 3000); });
    });
    session.Do("scroll", OnlyShows, [&] { window->findChild<QScrollBar*>("vScroll")->setValue(100); });
    session.Do("open the list of hints", OnlyShows, [&] { window->findChild<QAbstractButton*>("cmdHints")->click(); });
    session.Do("show the source", OnlyShows, [&] { session.ChooseAndClose("mnuCodeGenerate"); });
    session.Do("save", OnlyShows, [&] {
        session.dialogs.paths = {saved};
        session.Choose("mnuFileSave");
    });
    session.Do("export the source", OnlyShows, [&] {
        session.dialogs.paths = {saved + ".java"};
        session.Choose("mnuProjectExportJava");
    });
    session.Do("change it again", Changes, [&] { session.Key(canvas, Qt::Key_Insert); });
    session.Do("new", Changes, [&] { session.Choose("mnuFileNew"); });
    session.Do("undo new", Changes, [&] { session.Choose("mnuEditUndo"); });
    session.Do("redo new", Changes, [&] { session.Choose("mnuEditRedo"); });
    session.Do("earlier designs", OnlyShows, [&] { session.ChooseAndClose("mnuFileKeptDesigns"); });
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    const int components = argumentCount > 1 ? std::atoi(arguments[1]) : 100'000;
    const QTemporaryDir folder;
    const auto write = [&](int count) {
        const std::string path = folder.filePath(QString::number(count) + ".prl").toStdString();
        CreateFileBytes(PathOf(path), ProjectOf(count));
        return path;
    };
    const std::string path = write(components);
    const std::string larger = write(2 * components);

    Session session(folder.path());
    std::printf("| %d components | longest stall | of it processor time |\n|---|---|---|\n", components);
    Replay(session, path, folder.filePath("saved.prl").toStdString());
    std::printf("| **all but opening** | **%.1f ms** | **%.1f ms** |\n\n", session.longest.clock,
                session.longest.processor);
    const double once = std::min(Open(session, path), Open(session, path));
    const double twice = std::min(Open(session, larger), Open(session, larger));
    std::printf("Opening: %.0f ms of processor time; twice as many: %.0f ms, %.2f times (limit %.1f)\n", once, twice,
                twice / once, mostTimes);
    return session.longest.processor <= limit && twice <= mostTimes * once ? 0 : 1;
}
