#include "app/FileCommands.h"
#include "app/UpdateFault.h"
#include "base/FileAccess.h"
#include "designer/Arranging.h"
#include "designer/MainLayout.h"
#include "ui/canvas/picFrame.h"
#include "ui/code/frmCode.h"
#include "ui/code/frmPrint.h"
#include "ui/dialogs/frmLoading.h"
#include "ui/main/frmMain.h"
#include "ui/main/lstComponents.h"
#include "ui/main/lstHints.h"
#include "ui/main/pnlOutput.h"
#include "ui/main/tbComponents.h"
#include "ui/main/tbMain.h"
#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"
#include "ui/properties/plProperties.h"

#include <QAction>
#include <QGuiApplication>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>

#include <algorithm>
#include <iterator>

namespace pirol {
namespace {

/// What the tool bar offers before the commands that arrange; null for a line.
constexpr const char* toolCommands[] = {
    "mnuFileNew", "mnuFileOpen", "mnuFileSave",  nullptr, "mnuEditUndo", "mnuEditRedo",
    nullptr,      "mnuEditCopy", "mnuEditPaste", nullptr, "mnuCodeTest", "mnuCodeGenerate",
};

} // namespace

/// One row of the menus: a menu, a command or a line between commands.
struct frmMain::CommandRow {
    enum Type { Menu, Command, CheckItem };

    const char* name = nullptr;     ///< null for a line
    const char* caption = nullptr;  ///< with the mnemonic
    const char* icon = nullptr;     ///< the name of its drawing
    const char* shortcut = nullptr; ///< one or more, with "; " between them
    const char* statusTip = nullptr;
    void (frmMain::*run)() = nullptr; ///< null for a menu
    Type type = Command;
};

/// All menus with their commands in order.
struct frmMain::CommandTable {
    // clang-format off
    static constexpr CommandRow rows[] = {
        {"mnuFile", "&Datei", "", "", "", nullptr, CommandRow::Menu},
        {"mnuFileNew",         "&Neu",                    "new",         "Ctrl+N", "Beginnt einen leeren Entwurf, ohne den jetzigen zu speichern", &frmMain::mnuFileNew},
        {"mnuFileOpen",        "Ö&ffnen …",               "open",        "Ctrl+O", "Öffnet eine Projektdatei", &frmMain::mnuFileOpen},
        {"mnuFileSave",        "&Speichern …",            "save",        "Ctrl+S", "Speichert den Entwurf in einer Projektdatei", &frmMain::mnuFileSave},
        {"mnuFileKeptDesigns", "Frühere &Entwürfe …",     "kept",        "",       "Holt zurück, was ungespeichert aus dem Fenster verschwunden ist", &frmMain::mnuFileKeptDesigns},
        {},
        {"mnuFileImportJava",  "Java &importieren …",     "import",      "Ctrl+I", "Liest den Entwurf aus einer SuMAnwendung.java", &frmMain::mnuFileImportJava},
        {"mnuFileStartBlueJ",  "Blue&J starten",          "bluej",       "Ctrl+J", "Startet BlueJ", &frmMain::mnuFileStartBlueJ},
        {},
        {"mnuFileOptions",     "&Optionen …",             "preferences", "",       "Stellt das Gitternetz und den BlueJ-Pfad ein", &frmMain::mnuFileOptions},
        {},
        {"mnuFileEnd",         "&Beenden",                "exit",        "Ctrl+Q", "Beendet Pirol, ohne den Entwurf zu speichern", &frmMain::mnuFileEnd},

        {"mnuEdit", "&Bearbeiten", "", "", "", nullptr, CommandRow::Menu},
        {"mnuEditUndo",        "&Rückgängig",             "undo",        "Ctrl+Z", "Nimmt den letzten Schritt zurück", &frmMain::mnuEditUndo},
        {"mnuEditRedo",        "&Wiederholen",            "redo",        "Ctrl+Y; Ctrl+Shift+Z", "Führt den zuletzt zurückgenommenen Schritt wieder aus", &frmMain::mnuEditRedo},
        {},
        {"mnuEditCut",         "Auss&chneiden",           "cut",         "Ctrl+X", "Legt die gewählten Komponenten in die Zwischenablage und löscht sie", &frmMain::mnuEditCut},
        {"mnuEditCopy",        "&Kopieren",               "copy",        "Ctrl+C", "Legt die gewählten Komponenten in die Zwischenablage, auch als Java und als Bild", &frmMain::mnuEditCopy},
        {"mnuEditPaste",       "&Einfügen",               "paste",       "Ctrl+V", "Fügt die Komponenten der Zwischenablage ein", &frmMain::mnuEditPaste},
        {"mnuEditDuplicate",   "&Duplizieren",            "duplicate",   "Ctrl+D", "Fügt die gewählten Komponenten noch einmal ein", &frmMain::mnuEditDuplicate},
        {"mnuEditDelete",      "&Löschen",                "delete",      "Del",    "Löscht die gewählten Komponenten", &frmMain::mnuEditDelete},
        {},
        {"mnuEditSelectAll",   "&Alles auswählen",        "selectall",   "Ctrl+A", "Wählt alle Komponenten aus", &frmMain::mnuEditSelectAll},
        {"mnuEditFind",        "&Suchen …",               "find",        "Ctrl+F", "Findet eine Komponente an ihrem Namen oder ihrer Beschriftung", &frmMain::mnuEditFind},

        {"mnuView", "&Ansicht", "", "", "", nullptr, CommandRow::Menu},
        {"mnuViewShowGrid",    "&Gitternetz anzeigen",    "grid",        "Ctrl+G", "Zeigt oder verbirgt das Gitternetz auf dem Fenster", &frmMain::mnuViewShowGrid, CommandRow::CheckItem},
        {"mnuViewComponents",  "Komponenten&liste",       "components",  "Ctrl+L", "Zeigt oder verbirgt die Liste aller Komponenten", &frmMain::mnuViewComponents, CommandRow::CheckItem},
        {},
        {"mnuViewZoomIn",      "&Vergrößern",             "zoomin",           "Ctrl++; Ctrl+=", "Zeigt das Fenster größer", &frmMain::mnuViewZoomIn},
        {"mnuViewZoomOut",     "Ver&kleinern",            "zoomout",           "Ctrl+-", "Zeigt das Fenster kleiner", &frmMain::mnuViewZoomOut},
        {"mnuViewZoom100",     "&Originalgröße (100 %)",  "zoom100",           "Ctrl+0", "Zeigt das Fenster in seiner Größe", &frmMain::mnuViewZoom100},
        {"mnuViewZoom200",     "&Doppelte Größe (200 %)", "zoom200",           "Ctrl+2", "Zeigt das Fenster doppelt so groß", &frmMain::mnuViewZoom200},

        {"mnuObjects", "&Objekte", "", "", "", nullptr, CommandRow::Menu},
        {},
        {"mnuObjectsGrid",     "An &Raster ausrichten",   "snap",        "Ctrl+R", "Rundet Positionen und Größen auf zehn Pixel", &frmMain::mnuObjectsGrid, CommandRow::CheckItem},
        {"mnuObjectsGuides",   "An &Hilfslinien ausrichten", "guides",   "Ctrl+H", "Zieht, was Sie bewegen, an die Linien anderer, wenn es nicht am Raster ausgerichtet wird", &frmMain::mnuObjectsGuides, CommandRow::CheckItem},

        {"mnuArrange", "A&nordnen", "", "", "", nullptr, CommandRow::Menu},
        {"mnuArrangeLeft",     "&Links ausrichten",       "alignleft",   "Ctrl+Left",  "Rückt alle an die linke Kante der zuletzt gewählten Komponente", &frmMain::mnuArrange<Arrangement::Left>},
        {"mnuArrangeCenter",   "Waagerecht &mittig ausrichten", "aligncenter", "Ctrl+Shift+C", "Rückt alle waagerecht auf die Mitte der zuletzt gewählten Komponente", &frmMain::mnuArrange<Arrangement::Center>},
        {"mnuArrangeRight",    "&Rechts ausrichten",      "alignright",  "Ctrl+Right", "Rückt alle an die rechte Kante der zuletzt gewählten Komponente", &frmMain::mnuArrange<Arrangement::Right>},
        {"mnuArrangeTop",      "&Oben ausrichten",        "aligntop",    "Ctrl+Up",    "Rückt alle an die obere Kante der zuletzt gewählten Komponente", &frmMain::mnuArrange<Arrangement::Top>},
        {"mnuArrangeMiddle",   "&Senkrecht mittig ausrichten", "alignmiddle", "Ctrl+Shift+M", "Rückt alle senkrecht auf die Mitte der zuletzt gewählten Komponente", &frmMain::mnuArrange<Arrangement::Middle>},
        {"mnuArrangeBottom",   "&Unten ausrichten",       "alignbottom", "Ctrl+Down",  "Rückt alle an die untere Kante der zuletzt gewählten Komponente", &frmMain::mnuArrange<Arrangement::Bottom>},
        {},
        {"mnuArrangeSameWidth",  "Gleiche &Breite",       "samewidth",   "Ctrl+Shift+B", "Gibt allen die Breite der zuletzt gewählten Komponente", &frmMain::mnuArrange<Arrangement::SameWidth>},
        {"mnuArrangeSameHeight", "Gleiche &Höhe",         "sameheight",  "Ctrl+Shift+H", "Gibt allen die Höhe der zuletzt gewählten Komponente", &frmMain::mnuArrange<Arrangement::SameHeight>},
        {"mnuArrangeSameSize",   "&Gleiche Größe",        "samesize",    "Ctrl+Shift+G", "Gibt allen die Größe der zuletzt gewählten Komponente", &frmMain::mnuArrange<Arrangement::SameSize>},
        {},
        {"mnuArrangeDistributeAcross", "&Waagerecht verteilen", "distributex", "Ctrl+Shift+W", "Verteilt die Mitten gleichmäßig von links nach rechts", &frmMain::mnuArrange<Arrangement::DistributeAcross>},
        {"mnuArrangeDistributeDown",   "Senkrecht &verteilen",  "distributey", "Ctrl+Shift+V", "Verteilt die Mitten gleichmäßig von oben nach unten", &frmMain::mnuArrange<Arrangement::DistributeDown>},
        {"mnuArrangeGapsAcross", "Gleiche &Abstände waagerecht", "gapsx",  "Ctrl+Shift+Right", "Macht die Abstände von links nach rechts gleich", &frmMain::mnuArrange<Arrangement::GapsAcross>},
        {"mnuArrangeGapsDown",   "Gleiche Abstände senkre&cht", "gapsy",   "Ctrl+Shift+Down", "Macht die Abstände von oben nach unten gleich", &frmMain::mnuArrange<Arrangement::GapsDown>},
        {},
        {"mnuArrangeWindowAcross", "&Im Fenster waagerecht mitten", "centerx", "Ctrl+Shift+I", "Rückt die gewählten Komponenten zusammen in die Mitte des Fensters, waagerecht", &frmMain::mnuArrange<Arrangement::WindowAcross>},
        {"mnuArrangeWindowDown",   "Im &Fenster senkrecht mitten", "centery", "Ctrl+Shift+F", "Rückt die gewählten Komponenten zusammen in die Mitte des Fensters, senkrecht", &frmMain::mnuArrange<Arrangement::WindowDown>},
        {"mnuArrangeGrid",       "Aufs Ras&ter setzen",   "togrid",      "Ctrl+Shift+R", "Rundet die Positionen der gewählten Komponenten auf zehn Pixel", &frmMain::mnuArrange<Arrangement::ToGrid>},

        {"mnuProject", "&Projekt", "", "", "", nullptr, CommandRow::Menu},
        {"mnuProjectSettings",    "&Einstellungen …",           "settings",   "Ctrl+E", "Ändert die Größe des Fensters und den Autor", &frmMain::mnuProjectSettings},
        {},
        {"mnuProjectExportBlueJ", "Als &BlueJ-Projekt exportieren …", "bluej", "Ctrl+B", "Schreibt einen BlueJ-Projektordner", &frmMain::mnuProjectExportBlueJ},
        {"mnuProjectExportJava",  "Als &Java-Datei exportieren …", "export",  "",       "Schreibt den Quelltext in eine Java-Datei", &frmMain::mnuProjectExportJava},
        {"mnuProjectExportText",  "Als &Textdatei exportieren …", "exporttext", "",     "Schreibt den Quelltext in eine Textdatei", &frmMain::mnuProjectExportText},
        {},
        {"mnuProjectUpdateJava",  "Java-Datei a&ktualisieren …", "update",   "Ctrl+U", "Bringt eine vorhandene Java-Datei auf den Stand des Entwurfs", &frmMain::mnuProjectUpdateJava},
        {},
        {"mnuProjectExportPicture", "Als Bil&d exportieren …",   "picture",    "",       "Speichert oder kopiert ein Bild des Fensters", &frmMain::mnuProjectExportPicture},

        {"mnuFunctions", "&Funktionen", "", "", "", nullptr, CommandRow::Menu},
        {"mnuFunctionsMenuGenerator", "&Menü-Generator …", "menu",       "Ctrl+M", "Bearbeitet die Menüleiste des Programms", &frmMain::mnuFunctionsMenuGenerator},
        {"mnuFunctionsSQLGenerator",  "&SQL-Generator …",  "database",   "Ctrl+Shift+D", "Richtet den Zugriff auf eine Datenbank ein", &frmMain::mnuFunctionsSQLGenerator},

        {"mnuCode", "&Code", "", "", "", nullptr, CommandRow::Menu},
        {"mnuCodeMenu",        "&Menüleiste erzeugen",    "",            "",       "Nimmt die Menüleiste in den Quelltext auf", &frmMain::mnuCodeMenu, CommandRow::CheckItem},
        {"mnuCodeSQL",         "&Datenbankzugriff erzeugen", "",         "",       "Nimmt den Datenbankzugriff in den Quelltext auf", &frmMain::mnuCodeSQL, CommandRow::CheckItem},
        {},
        {"mnuCodeGenerate",    "&Quelltext erzeugen …",   "generate",    "F5",     "Erzeugt den Java-Quelltext und zeigt ihn an", &frmMain::mnuCodeGenerate},
        {"mnuCodeTest",        "Programm &testen",        "run",         "F9",     "Übersetzt das Programm und lässt es laufen", &frmMain::mnuCodeTest},
        {"mnuCodeStop",        "Test &beenden",           "stop",        "Shift+F9", "Beendet das Programm, das getestet wird", &frmMain::mnuCodeStop},

        {"mnuWindow", "Fenste&r", "", "", "", nullptr, CommandRow::Menu},
        {"mnuWindowSize0",     "&320 x 240 Pixel",        "",            "",       "Gibt dem Hauptfenster die kleinste Größe", &frmMain::mnuWindowSize0},
        {"mnuWindowSize1",     "&640 x 480 Pixel",        "",            "",       "Gibt dem Hauptfenster die mittlere Größe", &frmMain::mnuWindowSize1},
        {"mnuWindowSize2",     "&800 x 600 Pixel",        "",            "",       "Gibt dem Hauptfenster die größte der drei Größen", &frmMain::mnuWindowSize2},

        {"mnuHelp", "&Hilfe", "", "", "", nullptr, CommandRow::Menu},
        {"mnuHelpHandbook",    "&Handbuch",               "help",        "F1",     "Öffnet das Handbuch", &frmMain::mnuHelpHandbook},
        {"mnuHelpUpdate",      "&Nach neuer Version suchen …", "update", "",       "", &frmMain::mnuHelpUpdate},
        {"mnuHelpDonation",    "&Spenden …",              "donate",      "",       "Sagt, wie Sie Pirol unterstützen können", &frmMain::mnuHelpDonation},
        {},
        {"mnuHelpAbout",       "Ü&ber Pirol …",           "about",       "",       "Zeigt die Version und die Lizenz", &frmMain::mnuHelpAbout},
    };
    // clang-format on
};

void frmMain::BuildMenus() {
    QMenu* menu = nullptr;
    for (const CommandRow& row : CommandTable::rows)
        if (row.type == CommandRow::Menu) {
            menu = menuBar()->addMenu(row.caption);
            menu->setObjectName(row.name);
        } else if (row.name == nullptr) {
            menu->addSeparator(); // NOLINT(clang-analyzer-core.CallAndMessage): the first row is a menu
        } else {
            AddCommand(menu, row);
        }
    AddKindCommands(findChild<QMenu*>("mnuObjects"));
    Command("mnuViewShowGrid")->setChecked(canvas_.ShowsGrid());
    Command("mnuObjectsGrid")->setChecked(canvas_.SnapsToGrid());
    Command("mnuHelpUpdate")->setEnabled(false);
    Command("mnuHelpUpdate")->setToolTip(ToText(noUpdateSource));
    Command("mnuHelpUpdate")->setStatusTip(ToText(noUpdateSource));
    RefreshCodeMenu();
    tbComponents_->PressButton(canvas_.CurrentKind());
    // By right click; F1 is there already.
    for (QWidget* const list : {static_cast<QWidget*>(lstHints_), static_cast<QWidget*>(plProperties_)}) {
        list->addAction(Command("mnuHelpHandbook"));
        list->setContextMenuPolicy(Qt::ActionsContextMenu);
    }
}

void frmMain::BuildToolBar() {
    tbMain_ = new tbMain(this);
    addToolBar(tbMain_);
    for (const char* const name : toolCommands) {
        QAction* const command = name == nullptr ? nullptr : Command(name);
        const auto* const row = std::find_if(std::begin(CommandTable::rows), std::end(CommandTable::rows),
                                             [name](const CommandRow& other) { return name == other.name; });
        if (command != nullptr)
            command->setIcon(CommandIcon(row->icon));
        tbMain_->Add(command);
    }
    tbMain_->ShowCaption(Command("mnuCodeTest"), "Testen");
}

/// With the first selection: before that there is nothing to arrange, and the window is there sooner.
void frmMain::OfferArranging() {
    if (std::exchange(offersArranging_, true))
        return;
    QMenu* const menu = findChild<QMenu*>("mnuArrange");
    emit menu->aboutToShow(); // gives its commands their pictures
    tbMain_->Add(nullptr);
    for (QAction* const command : menu->actions())
        tbMain_->Add(command->isSeparator() ? nullptr : command);
}

void frmMain::AddCommand(QMenu* menu, const CommandRow& row) {
    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage): the first row is a menu
    QAction* action = menu->addAction(row.caption);
    action->setObjectName(row.name);
    commands_.insert(row.name, action);
    action->setShortcuts(QKeySequence::listFromString(row.shortcut));
    action->setStatusTip(row.statusTip);
    action->setCheckable(row.type == CommandRow::CheckItem);
    connect(action, &QAction::triggered, this, [this, run = row.run] {
        // A shortcut leaves the focus where it is; what is being typed there counts all the same.
        plProperties_->FinishEditing();
        picContainer_->FinishEditing();
        (this->*run)();
        // The marks of the code menu and the project's folder count for the hints, too.
        hintTimer_.start();
    });
    // Drawings cost time at the start, and most menus are never opened.
    connect(menu, &QMenu::aboutToShow, action, [action, icon = row.icon] {
        if (action->icon().isNull() && *icon != '\0')
            action->setIcon(CommandIcon(icon));
    });
}

void frmMain::AddKindCommands(QMenu* menu) {
    QAction* line = menu->actions().front();
    for (const KindRow& row : KindRows()) {
        const int entry = static_cast<int>(Position(row.kind));
        auto* action = new QAction(ToText(row.menuCaption), this);
        action->setObjectName(QString("mnuObjectsObject%1").arg(entry));
        commands_.insert(action->objectName(), action);
        action->setStatusTip(ToText(row.menuLabel) + " als nächste Komponente wählen");
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, entry] { ChooseKindByMenu(entry); });
        connect(menu, &QMenu::aboutToShow, action, [action, kind = row.kind] {
            if (action->icon().isNull())
                action->setIcon(KindIcon(kind));
        });
        menu->insertAction(line, action);
    }
}

QAction* frmMain::Command(const QString& name) const {
    return commands_.value(name);
}

// --- Choosing a kind --------------------------------------------------------------------------------------------

void frmMain::CheckKindEntry(int entry) {
    for (int i = 0; i < static_cast<int>(kindCount); ++i)
        Command(QString("mnuObjectsObject%1").arg(i))->setChecked(i == entry);
}

void frmMain::ChooseKindByToolbar(int button) {
    if (choosingByMenu_)
        return;
    CheckKindEntry(button - 1);
    canvas_.ChooseKind(button);
    picContainer_->update(); // the pointer tool has other handles
}

void frmMain::ChooseKindByMenu(int entry) {
    CheckKindEntry(entry);
    choosingByMenu_ = true;
    tbComponents_->PressButton(entry + 1);
    choosingByMenu_ = false;
    canvas_.ChooseKind(entry + 1);
    picContainer_->update();
}

// --- The commands -----------------------------------------------------------------------------------------------

void frmMain::mnuFileNew() {
    Run([this] { NewProject(document_); });
    picContainer_->setFocus(Qt::OtherFocusReason);
}

void frmMain::mnuFileOpen() {
    Run([this] {
        frmLoading progress(this);
        OpenProject(document_, dialogs_, &progress);
    });
}

void frmMain::mnuFileSave() {
    Run([this] { SaveProject(document_, dialogs_); });
}

void frmMain::mnuFileKeptDesigns() {
    emit KeptDesignsWanted();
}

void frmMain::mnuFileEnd() {
    close();
}

void frmMain::mnuEditUndo() {
    Run([this] { document_.Undo(); });
    ScrollToSelection();
}

void frmMain::mnuEditRedo() {
    Run([this] { document_.Redo(); });
    ScrollToSelection();
}

void frmMain::mnuViewShowGrid() {
    canvas_.SetShowsGrid(Command("mnuViewShowGrid")->isChecked());
    picContainer_->Repaint();
}

void frmMain::mnuEditFind() {
    ShowComponents(true);
    lstComponents_->Find();
}

void frmMain::mnuViewComponents() {
    ShowComponents(Command("mnuViewComponents")->isChecked());
}

void frmMain::mnuViewZoomIn() {
    picFrame_->SetZoom(picContainer_->View().NextZoom(true));
}

void frmMain::mnuViewZoomOut() {
    picFrame_->SetZoom(picContainer_->View().NextZoom(false));
}

void frmMain::mnuViewZoom100() {
    picFrame_->SetZoom(CanvasView::usualZoom);
}

void frmMain::mnuViewZoom200() {
    picFrame_->SetZoom(2 * CanvasView::usualZoom);
}

void frmMain::mnuObjectsGrid() {
    canvas_.SetSnapsToGrid(Command("mnuObjectsGrid")->isChecked());
}

void frmMain::mnuObjectsGuides() {
    canvas_.SetAlignsToGuides(Command("mnuObjectsGuides")->isChecked());
}

/// A check item of the code menu.
struct frmMain::CodeMark {
    const char* command;
    bool CodeOptions::*option;
    std::set<std::uint64_t> frmMain::*states;
    const char* lost; ///< what the user is told when it goes
};

const frmMain::CodeMark frmMain::menuMark = {
    "mnuCodeMenu", &CodeOptions::menu, &frmMain::menuMarkStates_,
    "Die Menüleiste ist leer: »Code, Menüleiste erzeugen« ist wieder ausgeschaltet."};
const frmMain::CodeMark frmMain::databaseMark = {
    "mnuCodeSQL", &CodeOptions::database, &frmMain::databaseMarkStates_,
    "Es ist kein Server angegeben: »Code, Datenbankzugriff erzeugen« ist wieder ausgeschaltet."};

void frmMain::mnuCodeMenu() {
    ChooseCodeMark(menuMark);
}

void frmMain::mnuCodeSQL() {
    ChooseCodeMark(databaseMark);
}

void frmMain::ChooseCodeMark(const CodeMark& mark) {
    options_.*mark.option = Command(mark.command)->isChecked();
    if (!(options_.*mark.option))
        (this->*mark.states).erase(document_.StateNumber());
    picContainer_->SetLostStrip(options_.menu ? MenuBar::runningHeight : 0);
    picFrame_->Surround().ShowMenus(options_.menu);
}

void frmMain::mnuCodeGenerate() {
    const std::string source = GenerateCode();
    if (!source.empty())
        ShowCode(source, 0);
}

void frmMain::ShowCode(const std::string& source, std::size_t line) {
    frmCode form(source, this);
    form.OfferPrinting([this, &form](const QTextDocument& text) { frmPrint(text, dialogs_, &form).exec(); });
    if (line != 0)
        form.ShowLine(line);
    form.exec();
}

void frmMain::ShowHandler(const std::string& handler) {
    const std::string source = GenerateCode();
    if (!source.empty())
        ShowCode(source, LineOfHandler(source, handler));
}

void frmMain::mnuCodeTest() {
    const std::string source = GenerateCode();
    if (source.empty())
        return;
    if (pnlOutput_ == nullptr) {
        pnlOutput_ = new pnlOutput(std::make_unique<SystemProcessStarter>());
        connect(pnlOutput_, &pnlOutput::TestWanted, Command("mnuCodeTest"), &QAction::trigger);
        connect(pnlOutput_, &pnlOutput::LineChosen, this, &frmMain::ShowCode);
        centralWidget()->layout()->addWidget(pnlOutput_);
    }
    pnlOutput_->Test({source, PathOf(document_.FilePath()).parent_path(), preferences_});
}

void frmMain::mnuCodeStop() {
    if (pnlOutput_ != nullptr)
        pnlOutput_->Stop();
}

void frmMain::RefreshCodeMenu() {
    RefreshCodeMark(menuMark, !Model().Menus().IsEmpty());
    RefreshCodeMark(databaseMark, !Model().Sql().Server.empty());
}

/// A mark goes with its reason. When undo leads back to the state in which it was on, it is on again.
void frmMain::RefreshCodeMark(const CodeMark& mark, bool isPossible) {
    QAction* const command = Command(mark.command);
    std::set<std::uint64_t>& states = this->*mark.states;
    command->setEnabled(isPossible);
    if (command->isChecked() && !isPossible) {
        states.insert(shownState_);
        command->setChecked(false);
        statusBar()->showMessage(mark.lost, messageTime);
    } else if (!command->isChecked() && isPossible && states.contains(document_.StateNumber())) {
        command->setChecked(true);
        statusBar()->clearMessage(); // it may still say that the mark went
    }
    ChooseCodeMark(mark);
}

void frmMain::mnuWindowSize0() {
    ApplyWindowPreset(0);
}

void frmMain::mnuWindowSize1() {
    ApplyWindowPreset(1);
}

void frmMain::mnuWindowSize2() {
    ApplyWindowPreset(2);
}

void frmMain::ApplyWindowPreset(int entry) {
    const QRect available = screen()->geometry();
    const std::optional<Rectangle> preset = WindowPreset(entry, available.width(), available.height());
    if (!preset)
        return;
    const auto place = [this, available, box = *preset] {
        resize(QSize(box.width, box.height) - (frameSize() - size()));
        move(available.topLeft() + QPoint(box.left, box.top));
    };
    const bool wasLarge = isMaximized() || isFullScreen();
    showNormal();
    place();
    // A window that was maximised gets its frame back only now; how long that takes is the system's affair.
    constexpr int frameTime = 200;
    if (wasLarge)
        QTimer::singleShot(frameTime, this, place);
}

} // namespace pirol
