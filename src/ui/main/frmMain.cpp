#include "ui/main/frmMain.h"

#include "app/FileCommands.h"
#include "codegen/Hints.h"
#include "designer/MainLayout.h"
#include "ui/canvas/picContainer.h"
#include "ui/dialogs/frmLoading.h"
#include "ui/main/lstHints.h"
#include "ui/main/tbComponents.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"
#include "ui/properties/plProperties.h"

#include <QAction>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStatusBar>
#include <QVBoxLayout>

namespace pirol {
namespace {

/// The first window shows designed windows up to 800 x 600 whole.
constexpr QSize firstSize(1200, 720);

/// A bar of the canvas. While there is nothing to scroll it is an empty strip: the style has many gradients for a bar
/// that does nothing, and Qt starts threads to fill each of them.
class CanvasBar final : public QScrollBar {
  public:
    using QScrollBar::QScrollBar;

  private:
    void paintEvent(QPaintEvent* event) override {
        if (isEnabled())
            QScrollBar::paintEvent(event);
    }
};

QScrollBar* NewBar(const char* name, const QString& accessibleName, Qt::Orientation orientation, QWidget* parent) {
    return Named(new CanvasBar(orientation, parent), name, accessibleName);
}

QLabel* NewHeading(const char* name, const QString& text, QWidget* parent) {
    auto* label = Named(new QLabel(text, parent), name, text);
    label->setIndent(8);
    SetOff(label);
    return label;
}

void SetUp(QScrollBar* scrollBar, const MainLayout::Bar& bar, int room) {
    const QSignalBlocker quiet(scrollBar);
    scrollBar->setGeometry(ToRect(bar.box));
    scrollBar->setEnabled(bar.enabled);
    scrollBar->setRange(0, bar.maximum);
    scrollBar->setPageStep(std::max(room / scrollStep, 1));
    scrollBar->setValue(0);
}

/// As much of the text as the panel shows; a name can be longer than any window.
void SetText(QLabel* panel, const QString& text) {
    const QString shown = panel->fontMetrics().elidedText(text.left(200), Qt::ElideRight, panel->width());
    if (panel->text() != shown)
        panel->setText(shown);
}

} // namespace

frmMain::frmMain(cCommonDialog& dialogs, ProgramStarter& starter, const Preferences& preferences,
                 std::chrono::milliseconds hintDelay)
    : dialogs_(dialogs), starter_(starter), canvas_(document_) {
    setObjectName("frmMain");
    BuildSurface();
    BuildStatusBar();
    BuildMenus();
    hintTimer_.setSingleShot(true);
    hintTimer_.setInterval(hintDelay);
    connect(&hintTimer_, &QTimer::timeout, this, &frmMain::ShowHints);
    connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, this, [this] { lstHints_->Open(); });
    connect(new QShortcut(Qt::Key_Delete, this), &QShortcut::activated, this, &frmMain::DeleteSelected);
    FitToScreen(this, firstSize);
    SetPreferences(preferences);
    picContainer_->setFocus();
    document_.AddListener(*this);
    shownState_ = document_.StateNumber();
    LoadProperties();
    LayOut();
    ShowFileAndHistory();
    ShowStatus();
}

frmMain::~frmMain() {
    // An editor that is open hands over its value when it is hidden, and the design must still be there then.
    hide();
    document_.RemoveListener(*this);
}

void frmMain::SetPreferences(const Preferences& preferences) {
    preferences_ = preferences;
    picContainer_->SetGrid(preferences.GridStyle, ToColor(preferences.GridColor));
}

void frmMain::BuildSurface() {
    surface_ = new QWidget;
    surface_->installEventFilter(this);
    lstHints_ = new lstHints;
    connect(lstHints_, &lstHints::HintChosen, this, &frmMain::GoTo);
    auto* middle = new QWidget;
    auto* rows = new QVBoxLayout(middle);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(surface_, 1);
    rows->addWidget(lstHints_);
    setCentralWidget(middle);

    lblComponents_ = NewHeading("lblComponents", "Komponenten", surface_);
    lblWindow_ = NewHeading("lblWindow", {}, surface_);
    lblProperties_ = NewHeading("lblProperties", "Eigenschaften", surface_);

    tbComponents_ = new tbComponents(surface_);
    connect(tbComponents_, &tbComponents::ButtonClicked, this, &frmMain::ChooseKindByToolbar);

    picFrame_ = Named(new QWidget(surface_), "picFrame", "Rahmen der Entwurfsfläche");
    picFrame_->setAutoFillBackground(true);
    picFrame_->setBackgroundRole(QPalette::Midlight);
    viewport_ = new QWidget(picFrame_);
    picContainer_ = new picContainer(canvas_, document_.Model(), viewport_);
    connect(picContainer_, &picContainer::Handled, this, &frmMain::ShowStatus);
    connect(picContainer_, &picContainer::SelectionMovedByKey, this, &frmMain::ScrollToSelection);
    connect(picContainer_, &picContainer::EnterPressed, this, [this] { plProperties_->setFocus(Qt::TabFocusReason); });

    vScroll_ = NewBar("vScroll", "Entwurfsfläche senkrecht rollen", Qt::Vertical, picFrame_);
    hScroll_ = NewBar("hScroll", "Entwurfsfläche waagerecht rollen", Qt::Horizontal, picFrame_);
    for (QScrollBar* bar : {vScroll_, hScroll_})
        connect(bar, &QScrollBar::valueChanged, this, [this] { Run([this] { ShowScrolledCanvas(); }); });

    plProperties_ = new plProperties(surface_);
    connect(plProperties_, &plProperties::PropertyEdited, this, &frmMain::ChangeProperty);
    plProperties_->SetFileChooser([this](const std::string& filter, const std::string& path) {
        return dialogs_.ShowOpen({"Datei wählen", filter, FileDialogSetup::FileMustExist, path, "propertyDialog"});
    });
}

void frmMain::BuildStatusBar() {
    statusBar()->setObjectName("sbStatus");
    statusBar()->setFixedHeight(rowHeight);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setContentsMargins(6, 0, 0, 0);
    constexpr int widths[] = {0, 240, 140};
    for (int i = 0; i < 3; ++i) {
        panels_[i] = new QLabel;
        panels_[i]->setObjectName(QString("sbPanel%1").arg(i + 1));
        if (widths[i] != 0)
            panels_[i]->setFixedWidth(widths[i]);
    }
    // Status tips take the place of the first panel.
    panels_[0]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panels_[0]->installEventFilter(this);
    statusBar()->addWidget(panels_[0], 1);
    statusBar()->addPermanentWidget(panels_[1]);
    statusBar()->addPermanentWidget(panels_[2]);
}

// --- Laying out and scrolling -----------------------------------------------------------------------------------

bool frmMain::event(QEvent* event) {
    // While another program was in front, files may have come or gone.
    if (event->type() == QEvent::WindowActivate)
        hintTimer_.start();
    return QMainWindow::event(event);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == surface_ && event->type() == QEvent::Resize)
        LayOutAgain();
    if (watched == panels_[0] && event->type() == QEvent::Resize)
        ShowStatus();
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    // Where no part of the window wants it, Escape leads back to the canvas, as Enter leads away from it.
    if (event->key() == Qt::Key_Escape)
        picContainer_->setFocus(Qt::OtherFocusReason);
    else
        QMainWindow::keyPressEvent(event);
}

void frmMain::LayOut() {
    designedSize_ = QSize(Model().WindowWidth(), Model().WindowHeight());
    const MainLayout layout = LayOutMainWindow(surface_->width(), surface_->height() + rowHeight, designedSize_.width(),
                                               designedSize_.height());
    const QRect headings = ToRect(layout.headings);
    lblComponents_->setGeometry(headings.x(), headings.y(), layout.toolbar.width, headings.height());
    lblWindow_->setGeometry(layout.frame.left, headings.y(), layout.frame.width, headings.height());
    lblProperties_->setGeometry(layout.list.left, headings.y(), layout.list.width, headings.height());
    tbComponents_->setGeometry(ToRect(layout.toolbar));
    plProperties_->setGeometry(ToRect(layout.list));
    picFrame_->setGeometry(ToRect(layout.frame));
    viewport_->setGeometry(0, 0, layout.vertical.box.left, layout.horizontal.box.top);
    SetUp(vScroll_, layout.vertical, viewport_->height());
    SetUp(hScroll_, layout.horizontal, viewport_->width());
    picContainer_->setGeometry(ToRect(layout.canvas));
    lblWindow_->setText(QString("Fenster: B = %1 / H = %2").arg(designedSize_.width()).arg(designedSize_.height()));
}

/// A resized window shows the design's beginning; a list of hints that is opened or closed leaves the user where he is.
void frmMain::LayOutAgain() {
    const int left = hScroll_->value();
    const int top = vScroll_->value();
    LayOut();
    if (std::exchange(laidOutSize_, size()) != size())
        return;
    hScroll_->setValue(left);
    vScroll_->setValue(top);
}

void frmMain::ShowScrolledCanvas() {
    const int left = hScroll_->isEnabled() ? ScrolledPosition(hScroll_->value()) : picContainer_->x();
    const int top = vScroll_->isEnabled() ? ScrolledPosition(vScroll_->value()) : picContainer_->y();
    picContainer_->move(left, top);
}

void frmMain::ScrollToSelection() {
    const std::optional<ComponentRef> selected = canvas_.Selected();
    if (!selected)
        return;
    const Rectangle box = Model().VisibleBox(*selected);
    hScroll_->setValue(
        BarValueToShow(box.left, box.Right(), viewport_->width(), hScroll_->value(), hScroll_->maximum()));
    vScroll_->setValue(
        BarValueToShow(box.top, box.Bottom(), viewport_->height(), vScroll_->value(), vScroll_->maximum()));
}

// --- Bringing the window up to date -----------------------------------------------------------------------------

bool frmMain::Run(const std::function<void()>& operation) {
    return ReportErrors(this, operation);
}

/// Behind a report, too, the window shows the design as the failed operation left it.
void frmMain::DocumentChanged(const DocumentChange& change) {
    picContainer_->ShowChange(change);
    if (designedSize_ != QSize(Model().WindowWidth(), Model().WindowHeight()))
        LayOut();
    if (change.file || change.history)
        ShowFileAndHistory();
    if (change.design.menus || change.design.sql)
        RefreshCodeMenu();
    shownState_ = document_.StateNumber();
    if (change.design.Any())
        hintTimer_.start();
    if (change.properties) {
        LoadProperties();
        ShowStatus();
    }
}

void frmMain::ShowFileAndHistory() {
    setWindowModified(document_.IsChanged());
    const QString path = ToText(document_.FilePath());
    const QString title = (path.isEmpty() ? "Neues Projekt" : QFileInfo(path).fileName()) + "[*] - Pirol";
    if (windowTitle() != title)
        setWindowTitle(title);
    const auto show = [this](const char* command, bool enabled, const QString& caption, const std::string& label) {
        Command(command)->setEnabled(enabled);
        Command(command)->setText(label.empty() ? caption : caption + ": " + ToText(label).replace('&', "&&"));
    };
    show("mnuEditUndo", document_.CanUndo(), "&Rückgängig", document_.UndoLabel());
    show("mnuEditRedo", document_.CanRedo(), "&Wiederholen", document_.RedoLabel());
}

void frmMain::ShowStatus() {
    QString hint = "Rechteck aufziehen oder Einfg: neue Komponente    Tab: Komponente wählen";
    QString selection = "Kein Objekt gewählt";
    if (const std::optional<ComponentRef> selected = canvas_.Selected()) {
        const Control& control = Model().Element(*selected);
        hint = "Pfeile: verschieben    Umschalt+Pfeile: Größe    Eingabe: Eigenschaften    Entf: löschen";
        selection = QString("%1 (%2)").arg(ToText(control.ObjectName), ToText(RowOf(control.Kind()).menuLabel));
    }
    SetText(panels_[0], hint);
    SetText(panels_[1], selection);
    SetText(panels_[2], ToText(canvas_.StatusText()));
}

void frmMain::ShowHints() {
    // What counts is where a gesture ends.
    if (canvas_.IsInGesture())
        hintTimer_.start();
    else
        ReportErrors(this, [this] { lstHints_->ShowHints(FindHints(Model(), document_.FilePath(), options_)); });
}

void frmMain::GoTo(const Hint& hint) {
    if (!hint.component) {
        statusBar()->showMessage(ToText(WhereToMend(hint.subject)), messageTime);
        return;
    }
    Run([&] { document_.Select(hint.component); });
    ScrollToSelection();
    plProperties_->ShowProperty(hint.property);
    plProperties_->setFocus(Qt::OtherFocusReason);
}

/// The key deletes wherever the keyboard is, so the user is told what went.
void frmMain::DeleteSelected() {
    const std::optional<ComponentRef> selected = canvas_.Selected();
    if (!selected)
        return;
    const QString name = ToText(Model().Element(*selected).ObjectName).left(60);
    if (Run([this] { canvas_.DeleteSelected(); }))
        statusBar()->showMessage(name + " gelöscht. Strg+Z bringt die Komponente zurück.", messageTime);
}

/// Exports end without a window of their own.
void frmMain::SayExported(const std::string& path) {
    if (!path.empty())
        statusBar()->showMessage(QString("Exportiert: »%1«").arg(QFileInfo(ToText(path)).fileName()), messageTime);
}

// --- The operations of consequence ------------------------------------------------------------------------------

std::string frmMain::GenerateCode() {
    std::string source;
    Run([&] { source = pirol::GenerateCode(Model(), options_); });
    return source;
}

void frmMain::ReadPRLFile(const std::string& path) {
    Run([&] {
        frmLoading progress(this);
        LoadProject(path, document_, dialogs_, &progress);
    });
}

void frmMain::LoadProperties() {
    ReportErrors(this, [this] { plProperties_->ShowRows(pirol::LoadProperties(Model(), document_.Selected())); });
}

void frmMain::ChangeProperty(const std::string& key, const std::string& value) {
    std::string refusal;
    ReportErrorsLater(this, [&] { refusal = PropertyChanged(document_, key, value); });
    if (!refusal.empty())
        QTimer::singleShot(0, this, [this, refusal] { dialogs_.Information(refusal); });
    // Refused or not, the list shows what the component holds now.
    LoadProperties();
}

} // namespace pirol
