#include "ui/main/frmMain.h"

#include "app/FileCommands.h"
#include "app/WindowPlace.h"
#include "codegen/Hints.h"
#include "designer/MainLayout.h"
#include "ui/canvas/picFrame.h"
#include "ui/dialogs/frmLoading.h"
#include "ui/main/cboZoom.h"
#include "ui/main/HintSearch.h"
#include "ui/main/lstComponents.h"
#include "ui/main/lstHints.h"
#include "ui/main/PanelEdge.h"
#include "ui/main/tbComponents.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"
#include "ui/parts/RunBeside.h"
#include "ui/parts/Tokens.h"
#include "ui/properties/plProperties.h"

#include <QAction>
#include <QDockWidget>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr int positionWidth = 150;

/// The first window shows designed windows up to 800 x 600 whole.
constexpr QSize firstSize(1200, 800);

QLabel* NewHeading(const char* name, const QString& text, QWidget* parent) {
    auto* label = Named(new QLabel(text, parent), name, text);
    label->setIndent(8);
    SetOff(label);
    return label;
}

/// As much of the text as the panel shows; a name can be longer than any window.
void SetText(QLabel* panel, const QString& text) {
    const QString shown = panel->fontMetrics().elidedText(text.left(200), Qt::ElideRight, panel->width());
    if (panel->text() != shown)
        panel->setText(shown);
}

/// Between two looks of the property list at what is dragged.
constexpr std::chrono::milliseconds liveDelay(40);

} // namespace

frmMain::frmMain(cCommonDialog& dialogs, ProgramStarter& starter, const Preferences& preferences,
                 std::chrono::milliseconds hintDelay)
    : dialogs_(dialogs), starter_(starter), canvas_(document_) {
    setObjectName("frmMain");
    BuildSurface();
    BuildStatusBar();
    BuildMenus();
    ShowSelectionCommands();
    hintTimer_.setSingleShot(true);
    hintTimer_.setInterval(hintDelay);
    connect(&hintTimer_, &QTimer::timeout, this, &frmMain::ShowHints);
    liveTimer_.setSingleShot(true);
    liveTimer_.setInterval(liveDelay);
    connect(&liveTimer_, &QTimer::timeout, this, &frmMain::LoadProperties);
    connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, this, [this] { lstHints_->Open(); });
    FitToScreen(this, firstSize);
    SetPreferences(preferences);
    picContainer_->setFocus();
    document_.AddListener(*this);
    shownState_ = document_.StateNumber();
    LoadProperties();
    LayOut();
    ShowFileAndHistory();
    BuildToolBar(); // when all its commands are as they will be shown
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
    hintSearch_ = new HintSearch(this);
    connect(hintSearch_, &HintSearch::Found, lstHints_, &lstHints::ShowHints);
    connect(hintSearch_, &HintSearch::Failed, this,
            [this](const RuntimeError& error) { Run([&error] { throw error; }); });
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
    connect(tbComponents_, &tbComponents::PlaceWanted, this, [this](int kind) { picContainer_->PlaceInMiddle(kind); });
    connect(tbComponents_, &tbComponents::Dragged, this,
            [this](int kind, const QPoint& global) { picContainer_->DragOver(kind, global); });
    connect(tbComponents_, &tbComponents::Dropped, this,
            [this](int kind, const QPoint& global) { picContainer_->Drop(kind, global); });

    picFrame_ = new picFrame(canvas_, document_.Model(), surface_);
    picContainer_ = picFrame_->Canvas();
    connect(picFrame_, &picFrame::ZoomChanged, this, &frmMain::ShowZoom);
    connect(picContainer_, &picContainer::Handled, this, &frmMain::ShowStatus);
    connect(picContainer_, &picContainer::SelectionMovedByKey, this, &frmMain::ScrollToSelection);
    connect(picContainer_, &picContainer::EditWanted, this, &frmMain::EditInPlace);
    connect(picContainer_, &picContainer::TextEdited, this, &frmMain::ChangeInPlace);
    connect(picContainer_, &picContainer::ContextMenuWanted, this, &frmMain::ShowContextMenu);
    connect(picContainer_, &picContainer::TextTyped, this, [this](QKeyEvent* event) { plProperties_->Type(event); });
    connect(picContainer_, &picContainer::EnterPressed, this, [this] { plProperties_->setFocus(Qt::TabFocusReason); });

    BuildPanelEdges(); // over the canvas
    plProperties_ = new plProperties(surface_);
    propertiesEdge_->raise();
    connect(plProperties_, &plProperties::PropertyEdited, this, &frmMain::ChangeProperty);
    connect(plProperties_, &plProperties::TypedEditEnded, this, &frmMain::GoOnBehindEdit);
    // Behind the double click, so that no mouse event is left to the list when the viewer opens.
    connect(plProperties_, &plProperties::HandlerWanted, this, &frmMain::ShowHandler, Qt::QueuedConnection);
    plProperties_->SetFileChooser([this](const std::string& filter, const std::string& path) {
        return dialogs_.ShowOpen({"Datei wählen", filter, FileDialogSetup::FileMustExist, path, "propertyDialog"});
    });
}

void frmMain::BuildStatusBar() {
    statusBar()->setObjectName("sbStatus");
    statusBar()->setFixedHeight(rowHeight);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setContentsMargins(tokens::gap, 0, 0, 0);
    constexpr int widths[] = {0, 240, 140};
    for (int i = 0; i < 3; ++i) {
        panels_[i] = new QLabel;
        panels_[i]->setObjectName(QString("sbPanel%1").arg(i + 1));
        panels_[i]->setFixedHeight(fontMetrics().height()); // as all here, so that their texts stand level
        if (widths[i] != 0)
            panels_[i]->setFixedWidth(widths[i]);
    }
    // Status tips take the place of the first panel.
    panels_[0]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panels_[0]->installEventFilter(this);
    statusBar()->addWidget(panels_[0], 1);
    statusBar()->addPermanentWidget(panels_[1]);
    statusBar()->addPermanentWidget(panels_[2]);
    lblPosition_ = Named(new QLabel, "lblPosition", "Position und Größe");
    lblPosition_->setToolTip("Links / Oben und Breite x Höhe dessen, was gewählt ist oder gezeichnet wird");
    lblPosition_->setFixedSize(positionWidth, fontMetrics().height());
    statusBar()->addPermanentWidget(lblPosition_);
    cboZoom_ = new cboZoom;
    statusBar()->addPermanentWidget(cboZoom_);
    connect(cboZoom_, &cboZoom::ZoomChosen, this, [this](int percent) {
        picFrame_->SetZoom(percent);
        picContainer_->setFocus(Qt::OtherFocusReason);
    });
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
    const QSize shown = picFrame_->ShownSize();
    const MainLayout layout = LayOutMainWindow(surface_->width(), surface_->height() + rowHeight, shown.width(),
                                               shown.height(), PossibleWidths(panelWidths_, surface_->width()));
    const QRect headings = ToRect(layout.headings);
    lblComponents_->setGeometry(headings.x(), headings.y(), layout.toolbar.width, headings.height());
    lblWindow_->setGeometry(layout.frame.left, headings.y(), layout.frame.width, headings.height());
    lblProperties_->setGeometry(layout.list.left, headings.y(), layout.list.width, headings.height());
    lblWindow_->setText(QString("Fenster: B = %1 / H = %2").arg(designedSize_.width()).arg(designedSize_.height()));
    tbComponents_->setGeometry(ToRect(layout.toolbar));
    plProperties_->setGeometry(ToRect(layout.list));
    toolboxEdge_->PlaceAt({layout.frame.left, layout.frame.top}, layout.frame.height);
    propertiesEdge_->PlaceAt({layout.list.left, layout.frame.top}, layout.frame.height);
    picFrame_->LayOut(layout);
}

void frmMain::BuildPanelEdges() {
    toolboxEdge_ = new PanelEdge("toolboxEdge", surface_);
    propertiesEdge_ = new PanelEdge("propertiesEdge", surface_);
    connect(toolboxEdge_, &PanelEdge::Dragged, this, [this](int position) {
        SetPanelWidths({position, panelWidths_.properties});
    });
    connect(propertiesEdge_, &PanelEdge::Dragged, this, [this](int position) {
        SetPanelWidths({panelWidths_.toolbar, surface_->width() - position});
    });
    connect(toolboxEdge_, &PanelEdge::UsualWanted, this, [this] {
        SetPanelWidths({toolbarWidth, panelWidths_.properties});
    });
    connect(propertiesEdge_, &PanelEdge::UsualWanted, this, [this] {
        SetPanelWidths({panelWidths_.toolbar, propertyColumnWidth});
    });
}

void frmMain::SetPanelWidths(const PanelWidths& wanted) {
    panelWidths_ = PossibleWidths(wanted, surface_->width());
    const QPoint scrolled = picFrame_->Scrolled();
    LayOut();
    picFrame_->ScrollTo(scrolled);
}

// --- The window's place -----------------------------------------------------------------------------------------

static std::vector<Rectangle> Screens() {
    std::vector<Rectangle> screens;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const QRect box = screen->availableGeometry();
        screens.push_back({box.x(), box.y(), box.width(), box.height()});
    }
    return screens;
}

void frmMain::KeepPlace() {
    keepsPlace_ = true;
    const std::vector<Rectangle> screens = Screens();
    const std::optional<WindowPlace> place = WindowPlace::Load(ScreensName(screens));
    if (!place)
        return;
    const PanelWidths usual;
    panelWidths_ = {place->toolboxWidth == 0 ? usual.toolbar : place->toolboxWidth,
                    place->propertiesWidth == 0 ? usual.properties : place->propertiesWidth};
    plProperties_->SetCaptionWidth(place->captionWidth);
    if (const std::optional<Rectangle> box = OnScreens(place->box, screens))
        setGeometry(ToRect(*box));
    if (place->isMaximised)
        setWindowState(windowState() | Qt::WindowMaximized);
}

/// What is usual is kept as such, so that another version may have other widths.
void frmMain::SavePlace() const {
    const QRect box = isMaximized() || isFullScreen() ? normalGeometry() : geometry();
    const PanelWidths usual;
    const auto unlessUsual = [](int width, int usualWidth) { return width == usualWidth ? 0 : width; };
    const WindowPlace place = {.box = {box.x(), box.y(), box.width(), box.height()},
                               .isMaximised = isMaximized(),
                               .toolboxWidth = unlessUsual(panelWidths_.toolbar, usual.toolbar),
                               .propertiesWidth = unlessUsual(panelWidths_.properties, usual.properties),
                               .captionWidth = plProperties_->CaptionWidth()};
    place.Save(ScreensName(Screens()));
}

void frmMain::hideEvent(QHideEvent* event) {
    if (keepsPlace_ && !event->spontaneous())
        SavePlace();
    QMainWindow::hideEvent(event);
}

/// A resized window shows the design's beginning; a list of hints that is opened or closed leaves the user where he is.
void frmMain::LayOutAgain() {
    const QPoint scrolled = picFrame_->Scrolled();
    LayOut();
    if (std::exchange(laidOutSize_, size()) == size())
        picFrame_->ScrollTo(scrolled);
}

void frmMain::ShowZoom(int percent) {
    LayOut();
    cboZoom_->ShowZoom(percent);
}

void frmMain::ScrollToSelection() {
    if (const std::optional<ComponentRef> reached = canvas_.Reached())
        picFrame_->ScrollToShow(Model().VisibleBox(*reached));
}

// --- On the canvas itself ---------------------------------------------------------------------------------------

/// What has no text to edit in place has its properties in the list.
void frmMain::EditInPlace(const QString& typed) {
    const std::optional<ComponentRef> leader = canvas_.Selected();
    if (!leader)
        return;
    std::optional<InPlaceText> text;
    Run([&] { text = InPlaceTextOf(Model().Element(*leader)); });
    if (!text)
        return plProperties_->setFocus(Qt::TabFocusReason);
    ScrollToSelection();
    picContainer_->EditInPlace(*leader, *text, typed);
}

void frmMain::ChangeInPlace(const std::string& text) {
    const std::optional<ComponentRef> leader = canvas_.Selected();
    if (!leader)
        return;
    const Control& control = Model().Element(*leader);
    std::optional<InPlaceText> before;
    std::string value;
    if (Run([&] {
            before = InPlaceTextOf(control);
            value = InPlaceValue(control, text);
        }) &&
        before && before->text != text)
        ChangeProperty(std::string(before->key), value);
}

/// The commands that apply where the menu was asked for.
void frmMain::ShowContextMenu(const QPoint& global) {
    auto* menu = Named(new QMenu(this), "mnuContext", "Befehle zur Auswahl");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool isSelected = canvas_.Selected().has_value();
    if (isSelected) {
        menu->addAction("&Beschriftung bearbeiten\tF2", this, [this] { EditInPlace({}); });
        menu->addAction("&Eigenschaften\tEingabe", this, [this] { plProperties_->setFocus(Qt::OtherFocusReason); });
        menu->addSeparator();
    }
    const auto add = [this, menu](const char* name) {
        if (QAction* const command = Command(name); command != nullptr && command->isEnabled())
            menu->addAction(command);
        if (auto* const submenu = findChild<QMenu*>(name); submenu != nullptr && submenu->isEnabled())
            menu->addMenu(submenu);
    };
    for (const char* const name : {"mnuEditCut", "mnuEditCopy", "mnuEditPaste", "mnuEditDuplicate", "mnuEditDelete"})
        add(name);
    if (isSelected)
        add("mnuArrange");
    menu->addSeparator();
    for (const char* const name : {"mnuEditSelectAll", "mnuEditUndo", "mnuEditRedo"})
        add(name);
    if (!isSelected) {
        menu->addSeparator();
        for (const char* const name : {"mnuViewShowGrid", "mnuObjectsGrid", "mnuObjectsGuides", "mnuProjectSettings"})
            add(name);
    }
    menu->popup(global);
}

// --- The component list -----------------------------------------------------------------------------------------

void frmMain::BuildComponents() {
    lstComponents_ = new lstComponents(document_);
    connect(lstComponents_, &lstComponents::SelectionChosen, this, &frmMain::ScrollToSelection);
    connect(lstComponents_, &lstComponents::Left, this, [this] { picContainer_->setFocus(Qt::OtherFocusReason); });
    connect(lstComponents_, &lstComponents::PropertiesWanted, this,
            [this] { plProperties_->setFocus(Qt::TabFocusReason); });
    connect(lstComponents_, &lstComponents::WindowWanted, this, &frmMain::mnuProjectSettings);
    connect(lstComponents_, &lstComponents::MenusWanted, this, &frmMain::mnuFunctionsMenuGenerator);
    dckComponents_ = Named(new QDockWidget("Komponentenliste"), "dckComponents", "Komponentenliste");
    dckComponents_->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    dckComponents_->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    dckComponents_->setWidget(lstComponents_);
    addDockWidget(Qt::LeftDockWidgetArea, dckComponents_);
    connect(dckComponents_, &QDockWidget::visibilityChanged, this,
            [this] { Command("mnuViewComponents")->setChecked(!dckComponents_->isHidden()); });
}

void frmMain::ShowComponents(bool shown) {
    if (shown && dckComponents_ == nullptr)
        BuildComponents();
    if (dckComponents_ != nullptr)
        dckComponents_->setVisible(shown);
}

// --- Bringing the window up to date -----------------------------------------------------------------------------

bool frmMain::Run(const std::function<void()>& operation) {
    return ReportErrors(this, operation);
}

/// Behind a report, too, the window shows the design as the failed operation left it.
void frmMain::DocumentChanged(const DocumentChange& change) {
    picContainer_->ShowChange(change);
    if (lstComponents_ != nullptr)
        lstComponents_->ShowChange(change);
    if (designedSize_ != QSize(Model().WindowWidth(), Model().WindowHeight()))
        LayOut();
    if (change.file || change.history)
        ShowFileAndHistory();
    if (change.design.menus || change.design.sql)
        RefreshCodeMenu();
    if (change.selection || change.replaced)
        ShowSelectionCommands();
    shownState_ = document_.StateNumber();
    if (change.design.Any()) {
        hintSearch_->Stop();
        hintTimer_.start();
    }
    if (change.properties) {
        liveTimer_.stop();
        LoadProperties();
        ShowStatus();
    } else if (change.design.HasComponents() && !liveTimer_.isActive()) {
        liveTimer_.start();
    }
}

void frmMain::ShowFileAndHistory() {
    setWindowModified(document_.IsChanged());
    const QString path = ToText(document_.FilePath());
    const QString title = (path.isEmpty() ? "Neues Projekt" : QFileInfo(path).fileName()) + "[*] - Pirol";
    picFrame_->Surround().ShowTitle(path.isEmpty() ? "Neues Projekt" : QFileInfo(path).completeBaseName());
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
    // Escape may have taken the pointer tool.
    if (tbComponents_->PressedButton() != canvas_.CurrentKind())
        tbComponents_->PressButton(canvas_.CurrentKind());
    const Selection& selected = canvas_.AllSelected();
    QString hint = "Rechteck aufziehen oder Einfg: neue Komponente    Tab: Komponente wählen";
    if (canvas_.CurrentKind() == canvas_.pointerTool)
        hint = "Rechteck aufziehen: mehrere Komponenten wählen    Tab: Komponente wählen";
    if (selected.IsSeveral())
        hint = "Pfeile: verschieben    Tab: weitergehen    Strg+Leertaste: hinzunehmen, weglassen    Entf: löschen";
    else if (!selected.IsEmpty())
        hint = "Pfeile: verschieben    Umschalt+Pfeile: Größe    Eingabe: Eigenschaften    Entf: löschen";
    SetText(panels_[0], hint);
    SetText(panels_[1], SelectionText());
    SetText(panels_[2], ToText(canvas_.StatusText()));
    ShowPosition();
}

/// Follows what is drawn and dragged.
void frmMain::ShowPosition() {
    const std::optional<ComponentRef> selected = canvas_.Selected();
    const bool isDrawing = canvas_.IsDrawing() && canvas_.IsFrameVisible();
    if (!selected && !isDrawing)
        return lblPosition_->clear();
    const Rectangle box = isDrawing ? canvas_.Frame() : canvas_.ShownBox(*selected);
    const QString text = QString("%1 / %2   %3 x %4").arg(box.left).arg(box.top).arg(box.width).arg(box.height);
    if (lblPosition_->text() != text)
        lblPosition_->setText(text);
}

/// What is selected, and where the keyboard is when that is another one.
QString frmMain::SelectionText() const {
    const std::optional<ComponentRef> reached = canvas_.Reached();
    if (!reached)
        return "Kein Objekt gewählt";
    const Control& control = Model().Element(*reached);
    const QString name = ToText(control.ObjectName);
    const Selection& selected = canvas_.AllSelected();
    const bool isLeader = reached == selected.Leader();
    if (isLeader && !selected.IsSeveral())
        return QString("%1 (%2)").arg(name, ToText(RowOf(control.Kind()).menuLabel));
    return QString("%1 gewählt, %2 %3").arg(selected.Count()).arg(isLeader ? "zuletzt" : "bei", name);
}

void frmMain::ShowHints() {
    // What counts is where a gesture ends.
    if (canvas_.IsInGesture())
        hintTimer_.start();
    else
        ReportErrors(this, [this] { hintSearch_->Start(Model(), document_.FilePath(), options_); });
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
    const Selection selected = canvas_.AllSelected();
    if (selected.IsEmpty())
        return;
    const QString what = selected.IsSeveral() ? QString("%1 Komponenten").arg(selected.Count())
                                              : ToText(Model().Element(*selected.Leader()).ObjectName).left(60);
    const QString back = selected.IsSeveral() ? " gelöscht. Strg+Z bringt sie zurück."
                                              : " gelöscht. Strg+Z bringt die Komponente zurück.";
    if (Run([this] { canvas_.DeleteSelected(); }))
        statusBar()->showMessage(what + back, messageTime);
}

/// Exports end without a window of their own.
void frmMain::SayExported(const std::string& path) {
    if (!path.empty())
        statusBar()->showMessage(QString("Exportiert: »%1«").arg(QFileInfo(ToText(path)).fileName()), messageTime);
}

// --- The operations of consequence ------------------------------------------------------------------------------

std::string frmMain::GenerateCode() {
    std::string source;
    Run([&] { RunBeside([&, model = Model(), options = options_] { source = pirol::GenerateCode(model, options); }); });
    return source;
}

void frmMain::ReadPRLFile(const std::string& path) {
    Run([&] {
        frmLoading progress(this);
        LoadProject(path, document_, dialogs_, &progress);
    });
}

void frmMain::LoadProperties() {
    ReportErrors(this, [this] { plProperties_->ShowRows(pirol::LoadProperties(Model(), document_.AllSelected())); });
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
