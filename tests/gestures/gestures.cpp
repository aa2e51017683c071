// Random gestures of a user on the real main window, its menus and its dialogs:
//   gestures [--seed N] [--events N] [--trace]
// After each batch of events the design must obey the rules of every design, and the window must show it. The same seed
// makes the same events, and --trace writes them. Prints seed and number of events; a broken rule ends it with
// status 1.

#include "designer/Clipboard.h"
#include "FakeDialogs.h"
#include "gestures/DesignRules.h"
#include "ui/canvas/picContainer.h"
#include "ui/main/frmMain.h"
#include "ui/parts/FormParts.h"
#include "ui/properties/plProperties.h"
#include "ui/properties/PropertyListModel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCommandLineParser>
#include <QDialog>
#include <QDir>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/qtestkeyboard.h>
#include <QtTest/qtestmouse.h>
#include <QWheelEvent>

#include <iostream>
#include <random>

namespace pirol {
namespace {

constexpr int eventsBetweenChecks = 200;

/// The same numbers on every system for a seed.
class Chance {
  public:
    explicit Chance(std::uint64_t seed) : engine_(seed) {}

    int Below(int limit) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(limit)); }
    int Between(int least, int most) { return least + Below(most - least + 1); }
    bool OneIn(int times) { return Below(times) == 0; }
    template <class List>
    const auto& Of(const List& list) {
        return list[static_cast<decltype(std::size(list))>(Below(static_cast<int>(std::size(list))))];
    }

  private:
    std::mt19937_64 engine_;
};

/// The user's answers to the dialogs of the desktop; all files lie in one folder.
class AnyAnswer : public test::FakeDialogs {
  public:
    AnyAnswer(Chance& chance, QString folder) : chance_(chance), folder_(std::move(folder)) {}

    std::string ShowOpen(const FileDialogSetup&) override {
        QStringList files = QDir(folder_).entryList(QDir::Files) + QDir(PIROL_EXAMPLES).entryList({"*.prl"});
        files << "missing.prl"
              << ".";
        const QString name = chance_.Of(files);
        const QString own = QDir(folder_).filePath(name);
        return Answer(QFile::exists(own) ? own : QDir(PIROL_EXAMPLES).filePath(name));
    }
    std::string ShowSave(const FileDialogSetup&) override {
        constexpr const char* names[] = {"a.prl", "b.prl",  "SuMAnwendung.java", "c.txt",
                                         "d.pdf", "Export", "no/such/e.prl"};
        return Answer(QDir(folder_).filePath(chance_.Of(names)));
    }
    std::optional<std::uint32_t> ShowColor(std::uint32_t) override { return std::uint32_t(chance_.Below(1 << 24)); }
    bool Question(std::string_view) override { return chance_.OneIn(2); }

  private:
    std::string Answer(const QString& path) { return chance_.OneIn(4) ? std::string() : path.toStdString(); }

    Chance& chance_;
    QString folder_;
};

/// The keys that the user presses, as Qt writes them; some more often than others.
constexpr const char* keyStrokes =
    "Tab Shift+Backtab Left Right Up Down Shift+Left Shift+Right Shift+Up Shift+Down Alt+Up Alt+Down Home End PgDown "
    "Ins Del Del Backspace Return Return Esc Space F2 F3 F4 F6 Ctrl+A Ctrl+C Ctrl+V Ctrl+X Ctrl+D Ctrl+Space Alt+Left "
    "Alt+Down Ctrl+Left Ctrl+Shift+Right Ctrl+Shift+G Ctrl+Z Ctrl+Z Ctrl+Y Ctrl+Shift+Z "
    "Ctrl+F Ctrl++ Ctrl+- Ctrl+0 Ctrl+2 Ctrl+L Ctrl+H PgUp Alt+D Alt+O "
    "A B 1 0 9 - , ; ) \" ' \\ Ä € Ж";

/// What a keyboard types with it.
QString SignOf(QKeyCombination stroke) {
    static const QMap<int, char16_t> special = {{Qt::Key_Tab, '\t'},
                                                {Qt::Key_Backspace, '\b'},
                                                {Qt::Key_Return, '\r'},
                                                {Qt::Key_Escape, 0x1B},
                                                {Qt::Key_Delete, 0x7F}};
    if (stroke.key() >= Qt::Key_Escape)
        return special.contains(stroke.key()) ? QString(QChar(special[stroke.key()])) : QString();
    const QChar sign(static_cast<char16_t>(stroke.key()));
    const bool controls = stroke.keyboardModifiers() == Qt::ControlModifier && sign.isLetter();
    return controls ? QString(QChar(sign.unicode() & 0x1F)) : QString(sign.toLower());
}

/// The user. Dialogs run event loops of their own, so each event arranges the next one before it happens.
class User : public QObject {
  public:
    User(std::uint64_t seed, int events, bool trace, const QString& folder)
        : chance_(seed), events_(events), trace_(trace), dialogs_(chance_, folder) {
        main_.show();
        Next();
    }

    int Done() const { return done_; }

  private:
    void Next() {
        QTimer::singleShot(0, this, [this] { Live(); });
    }

    void Live() {
        Next();
        // While a project is being read nobody can do anything but answer a report.
        const auto* loading = main_.findChild<QDialog*>("frmLoading");
        if (loading != nullptr && loading->isVisible() && QApplication::activeModalWidget() == nullptr)
            return;
        if (done_ == events_ || !broken_.empty())
            return End();
        if (!main_.isVisible())
            main_.show();
        ++done_;
        checkIsDue_ = checkIsDue_ || done_ % eventsBetweenChecks == 0;
        ++depth_;
        Act();
        --depth_;
        // What a dialog interrupted must have come to its end, too.
        const bool atRest =
            depth_ == 0 && QApplication::activeModalWidget() == nullptr && !main_.CurrentDocument().IsInGesture();
        if (checkIsDue_ && atRest && broken_.empty()) {
            checkIsDue_ = false;
            Check();
        }
    }

    void End() {
        if (QWidget* modal = QApplication::activeModalWidget())
            modal->close();
        else
            QApplication::exit(broken_.empty() ? 0 : 1);
    }

    void Require(bool holds, const std::string& rule) {
        if (holds || !broken_.empty())
            return;
        broken_ = rule;
        std::cerr << "Broken rule after event " << done_ << ": " << rule << '\n';
    }

    void Log(const std::string& event) {
        if (trace_)
            std::cerr << done_ << ": " << event << std::endl;
    }

    // --- What the user does -------------------------------------------------------------------------------------

    /// The window that takes the user's input.
    QWidget* Window() {
        if (QWidget* popup = QApplication::activePopupWidget())
            return popup;
        if (QWidget* modal = QApplication::activeModalWidget())
            return modal;
        const QWidgetList all = QApplication::topLevelWidgets();
        QWidgetList others;
        std::copy_if(all.begin(), all.end(), std::back_inserter(others), [this](const QWidget* window) {
            return window->isVisible() && window != &main_ && window->windowType() != Qt::ToolTip;
        });
        return others.isEmpty() || !chance_.OneIn(20) ? &main_ : chance_.Of(others);
    }

    void Act() {
        QWidget* window = Window();
        const bool onMain = window == &main_;
        const int what = chance_.Below(100);
        // Whoever duplicates all again and again has more components than anybody checks.
        constexpr std::size_t mostComponents = 1500;
        if (onMain && main_.Model().CreationOrder().size() > mostComponents && held_ == Qt::NoButton)
            return main_.findChild<QAction*>("mnuFileNew")->trigger();
        if (onMain && what == 0)
            return SpoilClipboard();
        if (!onMain && what < 6)
            return Key(window, "Esc");
        if (what < 40)
            return Key(window, chance_.Of(QString(keyStrokes).split(' ')));
        if (onMain && what < 46)
            return Command();
        if (onMain && what < 48)
            return Resize();
        if (onMain && what < 50)
            return Wheel(window, CanvasPosition());
        if (onMain && what < 54 && held_ == Qt::NoButton)
            return ClickProperty();
        const QPoint position = onMain && !chance_.OneIn(4) ? CanvasPosition() : Position(*window);
        if (held_ == Qt::NoButton)
            return what < 60 ? Move(window, position) : Press(window, position);
        return chance_.OneIn(3) ? Release(window, position) : Move(window, position);
    }

    QPoint RandomIn(const QRect& area) {
        return {area.x() + chance_.Below(std::max(area.width(), 1)),
                area.y() + chance_.Below(std::max(area.height(), 1))};
    }

    /// Mostly on something that one can use.
    QPoint Position(const QWidget& window) {
        QWidgetList usable;
        for (QWidget* widget : window.findChildren<QWidget*>())
            if (widget->isVisible() && widget->isEnabled() && widget->window() == &window &&
                (widget->focusPolicy() != Qt::NoFocus || widget->inherits("QScrollBar")))
                usable << widget;
        if (usable.isEmpty() || chance_.OneIn(4))
            return RandomIn(window.rect());
        const QWidget* widget = chance_.Of(usable);
        return widget->mapTo(&window, RandomIn(widget->rect()));
    }

    /// On the canvas or around it, often on a component or on its handle.
    QPoint CanvasPosition() {
        const std::vector<ComponentRef>& components = canvas_->VisibleComponents();
        const QRect designed(0, 0, main_.Model().WindowWidth(), main_.Model().WindowHeight());
        QPoint position = RandomIn(designed.adjusted(-30, -30, 30, 30));
        if (!components.empty() && chance_.OneIn(2)) {
            const Rectangle box = main_.Model().VisibleBox(chance_.Of(components));
            const int reach = chance_.OneIn(2) ? chance_.Between(1, 16) : chance_.Below(std::max(box.width, 1));
            position = {box.Right() - reach, box.Bottom() - std::min(reach, box.height)};
        }
        const CanvasView& view = canvas_->View();
        const QPoint inMain = canvas_->mapTo(&main_, QPoint(view.ToScreen(position.x()), view.ToScreen(position.y())));
        return main_.rect().contains(inMain) ? inMain : RandomIn(main_.rect());
    }

    void Key(QWidget* window, const QString& name) {
        Log("key " + name.toStdString());
        const QKeyCombination stroke = QKeySequence(name)[0];
        const QPointer<QWindow> target = window->windowHandle();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            if (!target.isNull())
                qt_handleKeyEvent(target, type, stroke.key(), stroke.keyboardModifiers(), SignOf(stroke));
    }

    void Mouse(QWidget* window, QEvent::Type type, const QPoint& position, Qt::MouseButton button) {
        time_ += chance_.OneIn(4) ? 10 : 600; // some clicks are double clicks
        QWindow* target = window->windowHandle();
        if (target != nullptr)
            qt_handleMouseEvent(target, position, window->mapToGlobal(position), held_, button, type, modifiers_,
                                time_);
    }

    static std::string At(const QWidget* window, const QPoint& position) {
        return std::to_string(position.x()) + "," + std::to_string(position.y()) + " in " +
               window->metaObject()->className();
    }

    void Move(QWidget* window, const QPoint& position) {
        Log("move to " + At(window, position));
        Mouse(window, QEvent::MouseMove, position, Qt::NoButton);
    }

    void Press(QWidget* window, const QPoint& position) {
        Log("press " + At(window, position));
        held_ = chance_.OneIn(12) ? Qt::RightButton : chance_.OneIn(20) ? Qt::MiddleButton : Qt::LeftButton;
        constexpr Qt::KeyboardModifiers modifiers[] = {Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                                       Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
        modifiers_ = chance_.Of(modifiers);
        const bool isFirst = !InGesture();
        Mouse(window, QEvent::MouseButtonPress, position, held_);
        if (isFirst)
            pressed_ = main_.Canvas().Selected();
    }

    void Wheel(QWidget* window, const QPoint& position) {
        Log("wheel " + At(window, position));
        constexpr Qt::KeyboardModifiers held[] = {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier};
        QWidget* const below = window->childAt(position);
        if (below == nullptr)
            return;
        const QPoint global = window->mapToGlobal(position);
        QWheelEvent wheel(below->mapFromGlobal(global), global, {}, {0, chance_.OneIn(2) ? 120 : -120}, held_,
                          chance_.Of(held), Qt::NoScrollPhase, false);
        QApplication::sendEvent(below, &wheel);
    }

    void Release(QWidget* window, const QPoint& position) {
        Log("release " + At(window, position));
        const DesignCanvas& canvas = main_.Canvas();
        const bool moving = canvas.IsMoving();
        // Handles outside a component put their own sides on the grid, and the others stay.
        const bool resizing = canvas.IsResizing() && canvas.CurrentKind() != DesignCanvas::pointerTool;
        const bool drawing = canvas.IsDrawing();
        const std::size_t components = main_.Model().CreationOrder().size();
        const int before = done_;
        Mouse(window, QEvent::MouseButtonRelease, position, std::exchange(held_, Qt::NoButton));
        // Where a report was shown, the gesture ended otherwise.
        if (done_ != before || InGesture() || !canvas.SnapsToGrid())
            return;
        const bool placed = drawing && main_.Model().CreationOrder().size() > components;
        if (const std::optional<ComponentRef> selected = main_.Canvas().Selected()) {
            const Rectangle box = main_.Model().VisibleBox(*selected);
            // A key may have selected another one meanwhile.
            const bool isMoved = placed || (moving && selected == pressed_);
            Require(!isMoved || (box.left % 10 == 0 && box.top % 10 == 0),
                    "positions are on the grid after the release");
            const bool sized = resizing || (placed && !IsMultimedia(selected->kind));
            Require(!sized || (box.width % 10 == 0 && box.height % 10 == 0), "sizes are on the grid after the release");
        }
    }

    void Command() {
        QList<QAction*> commands;
        for (QAction* action : main_.findChildren<QAction*>(QRegularExpression("^mnu")))
            if (action->isEnabled() && action->menu() == nullptr)
                commands << action;
        QAction* command = chance_.Of(commands);
        // A design must live for a while to become interesting.
        static const QRegularExpression endsTheDesign("New|Open|Import|End");
        if (endsTheDesign.match(command->objectName()).hasMatch() && !chance_.OneIn(4))
            return;
        Log("command " + command->objectName().toStdString());
        command->trigger();
    }

    /// On a row of the property list: its caption, its value, or the button at its end that opens a dialog.
    void ClickProperty() {
        const QModelIndex category = properties_->model()->index(chance_.Below(4), 0);
        const int rows = properties_->model()->rowCount(category);
        if (rows == 0)
            return;
        const QRect row = properties_->visualRect(properties_->model()->index(chance_.Below(rows), 1, category));
        const int x = chance_.OneIn(2) ? row.right() - 8 : RandomIn(row).x();
        const QPoint position = properties_->viewport()->mapTo(&main_, QPoint(x, row.center().y()));
        Press(&main_, position);
        if (QApplication::activeModalWidget() == nullptr)
            Release(&main_, position);
    }

    /// Another program has put something there that looks like components.
    void SpoilClipboard() {
        Log("spoil the clipboard");
        const QString type = ToText(componentsType);
        const QMimeData* const before = QGuiApplication::clipboard()->mimeData(); // null at first
        QByteArray bytes = before != nullptr ? before->data(type) : QByteArray();
        for (int i = 0; i < 3 && !bytes.isEmpty(); ++i)
            bytes[chance_.Below(static_cast<int>(bytes.size()))] = static_cast<char>(chance_.Between(32, 126));
        auto* const data = new QMimeData;
        data->setData(type, chance_.OneIn(2) ? bytes : bytes.left(chance_.Below(2000)));
        QGuiApplication::clipboard()->setMimeData(data);
    }

    void Resize() {
        const QSize size(chance_.Between(200, 1400), chance_.Between(150, 900));
        Log("resize to " + std::to_string(size.width()) + " x " + std::to_string(size.height()));
        main_.resize(size);
    }

    // --- The history --------------------------------------------------------------------------------------------

    /// What a step leads back to: the design and the file's name with or without the star.
    struct Seen {
        ProjectModel model;
        QString title;
        bool isModified;
        bool operator==(const Seen&) const = default;
    };
    Seen Present() const { return {main_.Model(), main_.windowTitle(), main_.isWindowModified()}; }

    /// All steps back and on again meet the same designs in the same order, and the star is right at each.
    void CheckHistory() {
        Document& document = main_.CurrentDocument();
        properties_->FinishEditing(); // as the commands do
        std::vector<Seen> states = {Present()};
        for (; document.CanUndo(); states.push_back(Present()))
            document.Undo();
        Require(states.size() <= Document::mostSteps + 1, "the history keeps its limit");
        if (states.size() <= Document::mostSteps && !forgot_)
            Require(states.back().model == ProjectModel(), "undoing all gives the first design");
        else
            forgot_ = true;
        for (std::size_t step = states.size(); step-- > 0;) {
            const Seen now = Present();
            Require(now == states[step], "a step leads back to where it came from");
            Require(now.isModified == document.IsChanged() && CanvasShows(now.model), "the window follows the history");
            document.Redo();
        }
    }

    bool CanvasShows(const ProjectModel& model) const {
        const CanvasView& view = canvas_->View();
        return canvas_->size() == QSize(view.ToScreen(model.WindowWidth()), view.ToScreen(model.WindowHeight()));
    }

    // --- What must be so ----------------------------------------------------------------------------------------

    bool InGesture() { return main_.Canvas().IsInGesture(); }

    void Check() {
        const ProjectModel& model = main_.Model();
        const std::string broken = BrokenRule(model);
        Require(broken.empty(), broken);
        Require(CanvasShows(model), "the canvas has the window's size");
        const Selection& selected = main_.Canvas().AllSelected();
        Require(selected == selected.VisibleIn(model) && (selected.IsEmpty() || selected.Contains(*selected.Leader())),
                "what is selected can be seen");
        Require(ShownRows() == LoadProperties(model, selected), "the property list shows the selected component");
        Require(!main_.Canvas().IsPressed(), "a gesture lasts while it is pressed");
        CheckHistory();
        for (int point = 0; point < 20; ++point) {
            const QPoint position = RandomIn({0, 0, model.WindowWidth(), model.WindowHeight()});
            const CanvasHit hit = main_.Canvas().HitTest(position.x(), position.y());
            std::optional<ComponentRef> topmost;
            for (const ComponentRef component : model.CreationOrder())
                if (model.VisibleBox(component).Contains(position.x(), position.y()))
                    topmost = component;
            // The handles around the selected one lie above all others.
            Require(hit.area == CanvasHit::Area::Handle ? hit.component == main_.Canvas().Selected()
                    : topmost ? hit.area != CanvasHit::Area::Canvas && hit.component == *topmost
                              : hit.area == CanvasHit::Area::Canvas,
                    "the topmost component is found");
        }
    }

    std::vector<PropertyPanelRow> ShownRows() {
        const auto* list = static_cast<const PropertyListModel*>(properties_->model());
        std::vector<PropertyPanelRow> rows;
        for (int category = 0; category < list->rowCount(); ++category) {
            const QModelIndex parent = list->index(category, 0);
            rows.push_back(list->RowAt(parent));
            for (int row = 0; row < list->rowCount(parent); ++row)
                rows.push_back(list->RowAt(list->index(row, 0, parent)));
        }
        return rows;
    }

    Chance chance_;
    int events_;
    bool trace_;
    AnyAnswer dialogs_;
    test::FakeStarter starter_;
    frmMain main_{dialogs_, starter_};
    picContainer* canvas_ = main_.findChild<picContainer*>();
    plProperties* properties_ = main_.findChild<plProperties*>();
    Qt::MouseButton held_ = Qt::NoButton;
    Qt::KeyboardModifiers modifiers_;
    int time_ = 0;
    int depth_ = 0; ///< of event loops within each other
    std::optional<ComponentRef> pressed_;
    int done_ = 0;
    bool checkIsDue_ = false;
    bool forgot_ = false; ///< the history has begun to lose its oldest steps
    std::string broken_;
};

} // namespace
} // namespace pirol

int main(int argumentCount, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The platform without a screen says again and again what it does not support.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::cerr << text.toStdString() << std::endl;
    });
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser line;
    line.addHelpOption();
    line.addOptions({{"seed", "The events' seed.", "N", "1"},
                     {"events", "How many events.", "N", "20000"},
                     {"trace", "Write every event to standard error."}});
    line.process(application);

    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    qputenv("XDG_STATE_HOME", folder.path().toUtf8());
    const QString seed = line.value("seed");
    pirol::User user(seed.toULongLong(), line.value("events").toInt(), line.isSet("trace"), folder.path());
    const int status = QApplication::exec();
    std::cout << "seed " << seed.toStdString() << ": " << user.Done() << " events\n";
    return status;
}
