#include "app/FileCommands.h"
#include "designer/MainLayout.h"
#include "ui/canvas/picContainer.h"
#include "ui/code/frmCode.h"
#include "ui/code/frmPrint.h"
#include "ui/dialogs/frmLoading.h"
#include "ui/main/frmMain.h"
#include "ui/main/tbComponents.h"
#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"
#include "ui/properties/plProperties.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>

namespace pirol {

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

        {"mnuView", "&Ansicht", "", "", "", nullptr, CommandRow::Menu},
        {"mnuViewShowGrid",    "&Gitternetz anzeigen",    "grid",        "Ctrl+G", "Zeigt oder verbirgt das Gitternetz auf dem Fenster", &frmMain::mnuViewShowGrid, CommandRow::CheckItem},

        {"mnuObjects", "&Objekte", "", "", "", nullptr, CommandRow::Menu},
        {},
        {"mnuObjectsGrid",     "An &Raster ausrichten",   "snap",        "Ctrl+R", "Rundet Positionen und Größen auf zehn Pixel", &frmMain::mnuObjectsGrid, CommandRow::CheckItem},

        {"mnuProject", "&Projekt", "", "", "", nullptr, CommandRow::Menu},
        {"mnuProjectSettings",    "&Einstellungen …",           "settings",   "Ctrl+E", "Ändert die Größe des Fensters und den Autor", &frmMain::mnuProjectSettings},
        {},
        {"mnuProjectExportBlueJ", "Als &BlueJ-Projekt exportieren …", "bluej", "Ctrl+B", "Schreibt einen BlueJ-Projektordner", &frmMain::mnuProjectExportBlueJ},
        {"mnuProjectExportJava",  "Als &Java-Datei exportieren …", "export",  "",       "Schreibt den Quelltext in eine Java-Datei", &frmMain::mnuProjectExportJava},
        {"mnuProjectExportText",  "Als &Textdatei exportieren …", "exporttext", "",     "Schreibt den Quelltext in eine Textdatei", &frmMain::mnuProjectExportText},

        {"mnuFunctions", "&Funktionen", "", "", "", nullptr, CommandRow::Menu},
        {"mnuFunctionsMenuGenerator", "&Menü-Generator …", "menu",       "Ctrl+M", "Bearbeitet die Menüleiste des Programms", &frmMain::mnuFunctionsMenuGenerator},
        {"mnuFunctionsSQLGenerator",  "&SQL-Generator …",  "database",   "Ctrl+D", "Richtet den Zugriff auf eine Datenbank ein", &frmMain::mnuFunctionsSQLGenerator},

        {"mnuCode", "&Code", "", "", "", nullptr, CommandRow::Menu},
        {"mnuCodeMenu",        "&Menüleiste erzeugen",    "",            "",       "Nimmt die Menüleiste in den Quelltext auf", &frmMain::mnuCodeMenu, CommandRow::CheckItem},
        {"mnuCodeSQL",         "&Datenbankzugriff erzeugen", "",         "",       "Nimmt den Datenbankzugriff in den Quelltext auf", &frmMain::mnuCodeSQL, CommandRow::CheckItem},
        {},
        {"mnuCodeGenerate",    "&Quelltext erzeugen …",   "generate",    "F5",     "Erzeugt den Java-Quelltext und zeigt ihn an", &frmMain::mnuCodeGenerate},

        {"mnuWindow", "Fenste&r", "", "", "", nullptr, CommandRow::Menu},
        {"mnuWindowSize0",     "&320 x 240 Pixel",        "",            "",       "Gibt dem Hauptfenster die kleinste Größe", &frmMain::mnuWindowSize0},
        {"mnuWindowSize1",     "&640 x 480 Pixel",        "",            "",       "Gibt dem Hauptfenster die mittlere Größe", &frmMain::mnuWindowSize1},
        {"mnuWindowSize2",     "&800 x 600 Pixel",        "",            "",       "Gibt dem Hauptfenster die größte der drei Größen", &frmMain::mnuWindowSize2},

        {"mnuHelp", "&Hilfe", "", "", "", nullptr, CommandRow::Menu},
        {"mnuHelpHandbook",    "&Handbuch",               "help",        "F1",     "Öffnet das Handbuch", &frmMain::mnuHelpHandbook},
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
    RefreshCodeMenu();
    tbComponents_->PressButton(canvas_.CurrentKind());
}

void frmMain::AddCommand(QMenu* menu, const CommandRow& row) {
    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage): the first row is a menu
    QAction* action = menu->addAction(row.caption);
    action->setObjectName(row.name);
    action->setShortcuts(QKeySequence::listFromString(row.shortcut));
    action->setStatusTip(row.statusTip);
    action->setCheckable(row.type == CommandRow::CheckItem);
    connect(action, &QAction::triggered, this, [this, run = row.run] {
        // A shortcut leaves the focus where it is; what is being typed there counts all the same.
        plProperties_->FinishEditing();
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
    return findChild<QAction*>(name);
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
}

void frmMain::ChooseKindByMenu(int entry) {
    CheckKindEntry(entry);
    choosingByMenu_ = true;
    tbComponents_->PressButton(entry + 1);
    choosingByMenu_ = false;
    canvas_.ChooseKind(entry + 1);
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

void frmMain::mnuObjectsGrid() {
    canvas_.SetSnapsToGrid(Command("mnuObjectsGrid")->isChecked());
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
}

void frmMain::mnuCodeGenerate() {
    const std::string source = GenerateCode();
    if (source.empty())
        return;
    frmCode form(source, this);
    form.OfferPrinting([this, &form](const QTextDocument& text) { frmPrint(text, dialogs_, &form).exec(); });
    form.exec();
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
    } else if (isPossible && states.contains(document_.StateNumber())) {
        command->setChecked(true);
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
