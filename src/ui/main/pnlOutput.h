#pragma once

#include "app/TestRun.h"

#include <QTimer>
#include <QWidget>

#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

class QPushButton;
class QToolButton;

namespace pirol {

class OutputBox;

/// The output of the tested program under the canvas: a heading that says how far the test is, the buttons that begin
/// and end one, and below it what the program prints, the handlers that are called, and errors. However much the
/// program prints, only the last lines are kept. It appears with the first test.
class pnlOutput : public QWidget {
    Q_OBJECT

  public:
    explicit pnlOutput(std::unique_ptr<ProcessStarter> starter, QWidget* parent = nullptr);
    ~pnlOutput() override;

    /// Begins a test in place of the one that runs. A program without a folder works in the user's own.
    void Test(RunRequest request);
    void Stop();

  signals:
    void TestWanted();
    /// The user wants to see a line of the tested source.
    void LineChosen(const std::string& source, std::size_t line);

  private:
    void Take(const RunEvent& event);
    void ShowTaken();
    void Show(const RunEvent& event);
    void ShowState(RunState state);
    void Fold(bool open);

    QToolButton* heading_;
    QPushButton* cmdTest_;
    QPushButton* cmdStop_;
    OutputBox* box_;
    std::unique_ptr<ProcessStarter> starter_;
    std::string source_; ///< of the present test
    QTimer pause_;       ///< between two looks at what has come: a program may print without end

    std::mutex mutex_; ///< guards what the test's own thread leaves here
    std::deque<RunEvent> taken_;
    std::size_t leftOut_ = 0;
    bool isTold_ = false; ///< that something is there
    /// Made with the first test. The last member: it ends before what it tells things to.
    std::optional<TestRun> run_;
};

} // namespace pirol
