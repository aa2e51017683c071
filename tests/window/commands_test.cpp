#include "app/frmError.h"
#include "app/frmPreferences.h"
#include "app/frmProjectSettings.h"
#include "Cases.h"
#include "menu/frmMenuGenerator.h"
#include "model/Windows1252.h"
#include "project/ProjectFile.h"
#include "sql/frmSQLGenerator.h"
#include "window/Forms.h"
#include "window/MainWindow.h"

#include <QMenu>
#include <QMenuBar>

namespace pirol {
namespace {

using test::Click;
using test::Part;
using test::Type;
using test::WhenShown;

/// The commands of the main menu that lead to dialogs and files, chosen in the menu itself.
class CommandsTest : public QObject {
    Q_OBJECT

  private slots:
    void init();
    void EveryCommandIsThere();
    void SaveNewOpen();
    void OpeningADamagedFileEmptiesTheDesign();
    void FailuresAreReportedAndTheProgramGoesOn_data();
    void FailuresAreReportedAndTheProgramGoesOn();
    void ExportsAndStartsBlueJ();
    void ImportsJava();
    void OptionsChangeTheGridAtOnce();
    void ProjectSettingsChangeTheWindow();
    void OddWindowSizes_data();
    void OddWindowSizes();
    void MenuGeneratorChangesTheMenus();
    void SqlGeneratorChangesTheSettings();
    void CancelledDialogsChangeNothing_data();
    void CancelledDialogsChangeNothing();
    void InfoAndDonation_data();
    void InfoAndDonation();

  private:
    std::string Path(const char* name) const { return TextOf(*folder_ / name); }
    std::string Bytes(const char* name) const { return ReadFileBytes(*folder_ / name); }

    std::unique_ptr<test::ScratchFolder> folder_;
};

void CommandsTest::init() {
    folder_ = std::make_unique<test::ScratchFolder>();
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(Path("config")));
    CreateFileBytes(*folder_ / "bluej", "");
}

/// Opens the command's menu and chooses it there.
void Choose(test::MainWindow& main, const char* name) {
    QAction* const command = main.Command(name);
    QVERIFY2(command != nullptr, name);
    for (QAction* const top : main.window.menuBar()->actions())
        if (top->menu()->actions().contains(command)) {
            QTest::keyClick(&main.window, Qt::Key_Escape);
            top->menu()->popup(main.window.mapToGlobal(QPoint(10, 30)));
            QVERIFY2(command->isEnabled(), name);
            QTest::mouseClick(top->menu(), Qt::LeftButton, {}, top->menu()->actionGeometry(command).center());
            return;
        }
    QFAIL(name);
}

void CommandsTest::EveryCommandIsThere() {
    test::MainWindow main;
    const struct {
        const char* menu;
        QStringList commands;
    } menus[] = {
        {"mnuFile",
         {"mnuFileNew", "mnuFileOpen", "mnuFileSave", "mnuFileImportJava", "mnuFileStartBlueJ", "mnuFileOptions",
          "mnuFileEnd"}},
        {"mnuProject", {"mnuProjectSettings", "mnuProjectExportBlueJ", "mnuProjectExportJava", "mnuProjectExportText"}},
        {"mnuFunctions", {"mnuFunctionsMenuGenerator", "mnuFunctionsSQLGenerator"}},
        {"mnuHelp", {"mnuHelpDonation", "mnuHelpAbout"}},
    };
    for (const auto& row : menus)
        for (const QString& name : row.commands) {
            const QAction* const command = main.Command(name);
            QVERIFY2(command != nullptr && command->isEnabled(), qPrintable(name));
            QVERIFY2(main.Find<QMenu>(row.menu)->actions().contains(command), qPrintable(name));
        }
}

void CommandsTest::SaveNewOpen() {
    test::MainWindow main;
    ProjectModel& model = main.window.Model();
    main.Drag(20, 20, 130, 60);
    model.EditSql().Server = "localhost";
    const ProjectModel design = model;

    main.dialogs.paths = {Path("a.prl")};
    Choose(main, "mnuFileSave");
    QVERIFY(main.window.windowTitle().startsWith("a.prl"));
    QVERIFY(!main.window.isWindowModified());
    QCOMPARE(Bytes("a.prl"), GeneratePRLCode(design));

    Choose(main, "mnuFileNew");
    QCOMPARE(model.ElementCount(ComponentKind::Label), 1u);
    QCOMPARE(model.Sql().Server, std::string("localhost"));
    QVERIFY(!main.window.Canvas().Selected());

    main.dialogs.paths = {Path("a.prl")};
    Choose(main, "mnuFileOpen");
    QVERIFY(model == design);
    QVERIFY(main.canvas->grab().toImage() != QImage());

    main.dialogs.paths = {Path("a.prl")};
    main.dialogs.yes = {false};
    main.dialogs.TakeSeen();
    main.Drag(200, 200, 300, 260);
    Choose(main, "mnuFileSave");
    QVERIFY(main.dialogs.TakeSeen().ends_with("question Die Datei existiert bereits! Überschreiben?\n"));
    QCOMPARE(Bytes("a.prl"), GeneratePRLCode(design));
    QVERIFY(main.window.isWindowModified());

    Choose(main, "mnuFileEnd");
    QVERIFY(!main.window.isVisible());
}

void CommandsTest::OpeningADamagedFileEmptiesTheDesign() {
    test::MainWindow main;
    main.Drag(20, 20, 130, 60);
    main.window.Model().SetWindowSize(300, 200);
    CreateFileBytes(*folder_ / "bad.prl", "no project\r\nat all");
    main.dialogs.paths = {Path("bad.prl")};
    Choose(main, "mnuFileOpen");
    QVERIFY(main.dialogs.TakeSeen().find("critical Fehler: Die .prl - Datei ist fehlerhaft") != std::string::npos);
    QVERIFY(main.window.Model() == ProjectModel());
    QCOMPARE(main.canvas->size(), QSize(640, 480));
}

void CommandsTest::FailuresAreReportedAndTheProgramGoesOn_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("label");
    QTest::newRow("save") << "mnuFileSave"
                          << "missing/a.prl"
                          << "76"
                          << "Main.File.PRL.GeneratePRLCode";
    QTest::newRow("open") << "mnuFileOpen"
                          << "missing.prl"
                          << "53"
                          << "Main.File.PRL.ReadPRLFile";
    QTest::newRow("export BlueJ") << "mnuProjectExportBlueJ"
                                  << "bluej"
                                  << "75"
                                  << "Main.Project.Export";
    QTest::newRow("export Java") << "mnuProjectExportJava"
                                 << "missing/a.java"
                                 << "76"
                                 << "Main.Project.Export";
    QTest::newRow("export text") << "mnuProjectExportText"
                                 << "missing/a.txt"
                                 << "76"
                                 << "Main.Project.Export";
    QTest::newRow("import") << "mnuFileImportJava"
                            << "missing.java"
                            << "53"
                            << "Main.File.Import.Analyse";
}

void CommandsTest::FailuresAreReportedAndTheProgramGoesOn() {
    QFETCH(QString, command);
    QFETCH(QString, path);
    QFETCH(QString, number);
    QFETCH(QString, label);
    test::MainWindow main;
    main.dialogs.paths = {Path(path.toLatin1())};
    QString report;
    WhenShown<frmError>([&](frmError& error) {
        report = Part<QPlainTextEdit>(error, "txtError")->toPlainText();
        QCOMPARE(error.parentWidget(), &main.window);
        Click(error, "cmdClose");
    });
    Choose(main, command.toLatin1());
    QVERIFY2(report.startsWith("Fehlernummer: " + number + "\n"), qPrintable(report));
    QVERIFY2(report.endsWith("\n" + label), qPrintable(report));
    main.Drag(20, 20, 130, 60);
    QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label), 2u);
}

void CommandsTest::ExportsAndStartsBlueJ() {
    test::MainWindow main;
    main.window.SetPreferences({Path("bluej"), 0, 0});
    main.Drag(20, 20, 130, 60);
    main.dialogs.paths = {Path("Mein Projekt"), Path("a.java"), Path("a.txt")};
    for (const char* const command :
         {"mnuProjectExportBlueJ", "mnuProjectExportJava", "mnuProjectExportText", "mnuFileStartBlueJ"})
        Choose(main, command);
    const std::string source = ToWindows1252(GenerateCode(main.window.Model(), main.window.Options()));
    QCOMPARE(Bytes("Mein Projekt/SuMAnwendung.java"), source);
    QCOMPARE(Bytes("a.java"), source);
    QCOMPARE(Bytes("a.txt"), source);
    QCOMPARE(main.starter.started,
             Path("bluej") + " \"" + Path("Mein Projekt") + "\" minimised\n" + Path("bluej") + " normal\n");
}

void CommandsTest::ImportsJava() {
    test::MainWindow main;
    main.Drag(20, 20, 130, 60);
    main.Drag(200, 200, 300, 260);
    main.dialogs.paths = {Path("SuMAnwendung.java"), Path("SuMAnwendung.java")};
    Choose(main, "mnuProjectExportJava");
    const ProjectModel design = main.window.Model();
    Choose(main, "mnuFileNew");
    Choose(main, "mnuFileImportJava");
    QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label), 3u);
    QCOMPARE(main.window.Model().VisibleBox({ComponentKind::Label, 2}), design.VisibleBox({ComponentKind::Label, 2}));
}

void CommandsTest::OptionsChangeTheGridAtOnce() {
    test::MainWindow main;
    const QImage before = main.canvas->grab().toImage();
    WhenShown<frmPreferences>([](frmPreferences& form) {
        Click(form, "optGridStyle2");
        Click(form, "cmdBrowseGridColor");
        Click(form, "cmdAccept");
    });
    main.dialogs.colors = {0x0000FF};
    Choose(main, "mnuFileOptions");
    QCOMPARE(main.window.CurrentPreferences().GridStyle, std::int16_t{2});
    QVERIFY(Preferences::Load() == main.window.CurrentPreferences());
    const QImage after = main.canvas->grab().toImage();
    QVERIFY(after != before);
    QCOMPARE(after.pixelColor(QPoint(100, 55) * after.devicePixelRatio()), QColor(255, 0, 0));
}

void CommandsTest::ProjectSettingsChangeTheWindow() {
    test::MainWindow main;
    WhenShown<frmProjectSettings>([](frmProjectSettings& form) {
        Type(form, "txtWidth", "800");
        Type(form, "txtAuthor", "Jürgen");
        Click(form, "cmdAccept");
    });
    Choose(main, "mnuProjectSettings");
    QCOMPARE(main.canvas->size(), QSize(800, 600));
    QCOMPARE(main.window.Model().Author(), std::string("Jürgen"));
}

void CommandsTest::OddWindowSizes_data() {
    QTest::addColumn<QString>("size");
    for (const char* const size : {"0", "1", "-5", "32767", "-32768"})
        QTest::newRow(size) << size;
}

/// Whatever size the designed window has, the program goes on and its commands work.
void CommandsTest::OddWindowSizes() {
    QFETCH(QString, size);
    test::MainWindow main;
    main.window.Model().SetWindowSize(100, 100);
    WhenShown<frmProjectSettings>([&size](frmProjectSettings& form) {
        Part<QLineEdit>(form, "txtWidth")->setText(size);
        Click(form, "cmdAccept");
    });
    Choose(main, "mnuProjectSettings");
    QCOMPARE(QString::number(main.window.Model().WindowHeight()), size);
    main.window.grab();
    main.dialogs.paths = {Path("a.prl"), Path("a.prl")};
    Choose(main, "mnuFileSave");
    Choose(main, "mnuFileNew");
    Choose(main, "mnuFileOpen");
    QCOMPARE(QString::number(main.window.Model().WindowWidth()), size);
}

void CommandsTest::MenuGeneratorChangesTheMenus() {
    test::MainWindow main;
    main.window.Model().MarkUnchanged("");
    WhenShown<frmMenuGenerator>([](frmMenuGenerator& form) {
        Type(form, "txtCaption", "Datei");
        Click(form, "cmdAdd");
        Click(form, "cmdOK");
    });
    Choose(main, "mnuFunctionsMenuGenerator");
    QCOMPARE(main.window.Model().Menus().Menus().size(), 1u);
    QVERIFY(main.window.isWindowModified());
    Choose(main, "mnuCodeMenu");
    QVERIFY(main.window.Options().menu);
    QVERIFY(main.window.GenerateCode().find("hatMenueDatei") != std::string::npos);
}

void CommandsTest::SqlGeneratorChangesTheSettings() {
    test::MainWindow main;
    WhenShown<frmSQLGenerator>([](frmSQLGenerator& form) {
        Type(form, "txtServer", "localhost");
        for (int step = 0; step < 3; ++step)
            Click(form, "cmdStepForward");
    });
    Choose(main, "mnuFunctionsSQLGenerator");
    QCOMPARE(main.window.Model().Sql().Server, std::string("localhost"));
    Choose(main, "mnuCodeSQL");
    QVERIFY(main.window.GenerateCode().find("VerbindeMitDatenbank") != std::string::npos);
}

void CommandsTest::CancelledDialogsChangeNothing_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("field");
    QTest::newRow("options") << "mnuFileOptions"
                             << "txtBlueJPath";
    QTest::newRow("settings") << "mnuProjectSettings"
                              << "txtAuthor";
    QTest::newRow("menus") << "mnuFunctionsMenuGenerator"
                           << "txtCaption";
    QTest::newRow("database") << "mnuFunctionsSQLGenerator"
                              << "txtServer";
}

void CommandsTest::CancelledDialogsChangeNothing() {
    QFETCH(QString, command);
    QFETCH(QString, field);
    test::MainWindow main;
    main.Drag(20, 20, 130, 60);
    main.window.Model().MarkUnchanged("");
    const ProjectModel before = main.window.Model();
    WhenShown<QDialog>([&](QDialog& form) {
        Type(form, field.toLatin1(), "x");
        if (command == "mnuFunctionsMenuGenerator")
            Click(form, "cmdAdd");
        Click(form, "cmdCancel");
    });
    Choose(main, command.toLatin1());
    QVERIFY(main.window.Model() == before);
    QVERIFY(!main.window.Model().IsChanged());
    QVERIFY(main.window.CurrentPreferences() == Preferences());
}

void CommandsTest::InfoAndDonation_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("text");
    QTest::newRow("info") << "mnuHelpAbout"
                          << "frmAbout"
                          << "GNU General Public License";
    QTest::newRow("donation") << "mnuHelpDonation"
                              << "frmDonation"
                              << "support@pirol.example";
}

void CommandsTest::InfoAndDonation() {
    QFETCH(QString, command);
    QFETCH(QString, form);
    QFETCH(QString, text);
    test::MainWindow main;
    WhenShown<QDialog>([&](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), form);
        QString all;
        for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
            all += label->text();
            QVERIFY(!label->openExternalLinks());
            QVERIFY2(!label->text().contains("href"), qPrintable(label->text()));
        }
        QVERIFY2(all.contains(text), qPrintable(all));
        Click(dialog, "cmdClose");
    });
    Choose(main, command.toLatin1());
}

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::CommandsTest)
#include "commands_test.moc"
