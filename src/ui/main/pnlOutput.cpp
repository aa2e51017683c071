#include "ui/main/pnlOutput.h"

#include "base/FileAccess.h"
#include "base/Text.h"
#include "designer/MainLayout.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/Theme.h"

#include <QDir>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <climits>
#include <functional>
#include <utility>

namespace pirol {
namespace {

constexpr int linesShown = 7;
/// Older lines go.
constexpr int mostLines = 5000;
/// Of those that have come since the last look.
constexpr std::size_t mostTaken = 1000;
constexpr std::size_t mostLineBytes = 2000;
constexpr std::chrono::milliseconds pauseTime(40);

const char* StateText(RunState state) {
    switch (state) {
    case RunState::Compiling:
        return "Ausgabe: wird übersetzt …";
    case RunState::Running:
    case RunState::Shown:
        return "Ausgabe: das Programm läuft";
    case RunState::Ended:
        break;
    }
    return "Ausgabe";
}

QString LineText(const RunEvent& event) {
    const QString text = ToText(event.text);
    if (event.kind == RunEvent::Kind::Call)
        return "→ " + text;
    if (event.kind == RunEvent::Kind::Error && event.line != 0)
        return QString("Zeile %1: %2").arg(event.line).arg(text);
    return text;
}

} // namespace

/// The lines themselves. A line of the source that one of them names is chosen by a click or Enter.
class OutputBox : public QPlainTextEdit {
  public:
    explicit OutputBox(std::function<void(std::size_t)> choose) : choose_(std::move(choose)) {
        setReadOnly(true);
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        setUndoRedoEnabled(false);
        setMaximumBlockCount(mostLines);
        setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        viewport()->setMouseTracking(true);
    }

    void Begin() {
        clear();
        isOpen_ = false;
    }

    /// What is printed on a line that has not ended goes on there, as long as the line is readable.
    void Add(const RunEvent& event) {
        QTextCursor end(document());
        end.movePosition(QTextCursor::End);
        const bool goesOn = isOpen_ && event.kind == kind_ && end.block().length() < static_cast<int>(mostLineBytes);
        if (!goesOn && !document()->isEmpty())
            end.insertBlock();
        if (event.line != 0)
            end.block().setUserState(static_cast<int>(std::min<std::size_t>(event.line, INT_MAX)));
        end.insertText(LineText(event), Format(event));
        isOpen_ = event.isOpen;
        kind_ = event.kind;
    }

  protected:
    /// The same keys copy and choose components in the main window; here they are the text's.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride) {
            const auto* const key = static_cast<const QKeyEvent*>(event);
            if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll))
                event->accept();
        }
        return QPlainTextEdit::event(event);
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        QPlainTextEdit::mouseMoveEvent(event);
        const bool leads = NamedLine(cursorForPosition(event->pos())) > 0;
        viewport()->setCursor(leads ? Qt::PointingHandCursor : Qt::IBeamCursor);
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        QPlainTextEdit::mouseReleaseEvent(event);
        if (event->button() == Qt::LeftButton && !textCursor().hasSelection())
            Choose(cursorForPosition(event->pos()));
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            Choose(textCursor());
        else
            QPlainTextEdit::keyPressEvent(event);
    }

  private:
    static int NamedLine(const QTextCursor& cursor) { return cursor.block().userState(); }

    void Choose(const QTextCursor& cursor) {
        if (const int line = NamedLine(cursor); line > 0)
            choose_(static_cast<std::size_t>(line));
    }

    QTextCharFormat Format(const RunEvent& event) const {
        const tokens::Colours& colours = IsDark(palette()) ? tokens::dark : tokens::light;
        QTextCharFormat format;
        if (event.kind == RunEvent::Kind::Error || event.kind == RunEvent::Kind::Complaint)
            format.setForeground(ToColor(colours.error));
        if (event.kind == RunEvent::Kind::Call)
            format.setForeground(ToColor(colours.note));
        if (event.kind == RunEvent::Kind::Note)
            format.setForeground(palette().color(QPalette::PlaceholderText));
        format.setFontUnderline(event.line != 0);
        return format;
    }

    std::function<void(std::size_t)> choose_;
    RunEvent::Kind kind_ = RunEvent::Kind::State;
    bool isOpen_ = false;
};

pnlOutput::pnlOutput(std::unique_ptr<ProcessStarter> starter, QWidget* parent)
    : QWidget(parent), heading_(Named(new QToolButton, "cmdOutput", "Ausgabe")),
      cmdTest_(NewIconButton("cmdTest", "Testen", "run", "Übersetzt das Programm und lässt es laufen (F9)")),
      cmdStop_(NewIconButton("cmdStop", "Beenden", "stop", "Beendet das Programm (Umschalt+F9)")),
      box_(Named(new OutputBox([this](std::size_t line) { emit LineChosen(source_, line); }), "txtOutput",
                 "Ausgabe des Programms")),
      starter_(std::move(starter)) {
    heading_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    heading_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    heading_->setAutoRaise(true);
    heading_->setCheckable(true);
    heading_->setStatusTip("Zeigt die Ausgabe des getesteten Programms; ein Klick verbirgt sie wieder");
    SetOff(heading_);
    connect(heading_, &QToolButton::toggled, this, &pnlOutput::Fold);
    connect(cmdTest_, &QPushButton::clicked, this, &pnlOutput::TestWanted);
    connect(cmdStop_, &QPushButton::clicked, this, &pnlOutput::Stop);

    auto* const head = new QHBoxLayout;
    head->setContentsMargins(0, 0, 0, 0);
    head->setSpacing(tokens::hairGap);
    head->addWidget(heading_, 1);
    for (QWidget* widget : std::initializer_list<QWidget*>{cmdTest_, cmdStop_})
        head->addWidget(widget);
    for (QWidget* widget : std::initializer_list<QWidget*>{heading_, cmdTest_, cmdStop_}) {
        widget->setFixedHeight(rowHeight);
        widget->setFocusPolicy(widget == heading_ ? heading_->focusPolicy() : Qt::TabFocus);
    }
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addLayout(head);
    rows->addWidget(box_);
    box_->setFixedHeight(linesShown * box_->fontMetrics().lineSpacing() + 2 * box_->frameWidth() +
                         2 * static_cast<int>(box_->document()->documentMargin()));
    pause_.setSingleShot(true);
    pause_.setInterval(pauseTime);
    connect(&pause_, &QTimer::timeout, this, &pnlOutput::ShowTaken);
    ShowState(RunState::Ended);
    Fold(false);
    hide(); // the room is the canvas's until there is something to tell
}

pnlOutput::~pnlOutput() = default;

void pnlOutput::Test(RunRequest request) {
    source_ = request.source;
    if (request.folder.empty())
        request.folder = PathOf(QDir::homePath().toStdString());
    if (!run_) {
        show();
        heading_->setChecked(true); // who closes it later, wants it closed
        run_.emplace(
            *starter_, JavaSurroundings::OfSystem(), [this](const RunEvent& event) { Take(event); }, true);
    }
    run_->Stop();
    {
        const std::scoped_lock lock(mutex_);
        taken_.clear();
        leftOut_ = 0;
    }
    box_->Begin();
    run_->Start(std::move(request));
}

void pnlOutput::Stop() {
    if (run_)
        run_->Stop();
}

/// Called on the test's own thread.
void pnlOutput::Take(const RunEvent& event) {
    const std::scoped_lock lock(mutex_);
    RunEvent& last = taken_.emplace_back(event);
    last.text = Shortened(last.text, mostLineBytes);
    // What the window's own state depends on is never left out.
    if (taken_.size() > mostTaken) {
        const auto first = std::find_if(taken_.begin(), taken_.end(), [](const RunEvent& candidate) {
            return candidate.kind != RunEvent::Kind::State;
        });
        if (first != taken_.end())
            taken_.erase(first);
        ++leftOut_;
    }
    if (!std::exchange(isTold_, true))
        QMetaObject::invokeMethod(this, &pnlOutput::ShowTaken, Qt::QueuedConnection);
}

void pnlOutput::ShowTaken() {
    std::deque<RunEvent> events;
    std::size_t leftOut = 0;
    {
        const std::scoped_lock lock(mutex_);
        events.swap(taken_);
        leftOut = std::exchange(leftOut_, 0);
        isTold_ = !events.empty();
    }
    if (events.empty())
        return;
    pause_.start();
    box_->setUpdatesEnabled(false);
    if (leftOut != 0)
        box_->Add({.kind = RunEvent::Kind::Note, .text = Concatenate("… ", leftOut, " Zeilen ausgelassen …")});
    for (const RunEvent& event : events)
        Show(event);
    box_->setUpdatesEnabled(true);
    box_->moveCursor(QTextCursor::End);
}

void pnlOutput::Show(const RunEvent& event) {
    if (event.kind == RunEvent::Kind::State) {
        ShowState(event.state);
        return;
    }
    box_->Add(event);
    if (event.kind == RunEvent::Kind::Error)
        heading_->setChecked(true);
}

void pnlOutput::ShowState(RunState state) {
    heading_->setText(StateText(state));
    heading_->setAccessibleName(heading_->text());
    cmdStop_->setEnabled(state != RunState::Ended);
}

void pnlOutput::Fold(bool open) {
    heading_->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    box_->setVisible(open);
}

} // namespace pirol
