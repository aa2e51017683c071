#include "base/Windows1252.h"
#include "Cases.h"
#include "project/ProjectFile.h"
#include "Tables.h"
#include "ui/dialogs/frmMenuGenerator.h"
#include "ui/dialogs/frmPreferences.h"
#include "ui/dialogs/frmProjectSettings.h"
#include "ui/dialogs/frmSQLGenerator.h"
#include "ui/MainWindow.h"

#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QStatusBar>
#include <QTreeView>

namespace pirol::test {

/// Opens the command's menu and clicks it there.
void Choose(MainWindow& main, const std::string& name) {
    QAction* const command = main.Command(QString::fromStdString(name));
    auto* const menu = qobject_cast<QMenu*>(command->associatedObjects().front());
    menu->popup(main.window.mapToGlobal(QPoint(10, 30)));
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(command).center());
}

/// The commands of the main menu that lead to dialogs and files, chosen in the menu itself.
class CommandsTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        folder_.emplace();
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(Path("config")));
        CreateFileBytes(*folder_ / "bluej", "");
    }

    void ADesignIsSavedForgottenAndOpened() {
        MainWindow main;
        const ProjectModel& model = main.window.Model();
        main.Drag(20, 20, 130, 60);
        main.Edit([](ProjectModel& changed) {
            changed.EditSql().Server = "localhost";
            changed.SetWindowSize(300, 200);
        });
        const ProjectModel design = model;
        main.dialogs.paths = {Path("a.prl"), Path("a.prl")};
        Choose(main, "mnuFileSave");
        QVERIFY(main.window.windowTitle().startsWith("a.prl"));
        QVERIFY(!main.window.isWindowModified());
        QCOMPARE(Bytes("a.prl"), GeneratePRLCode(design));

        main.Drag(30, 80, 90, 120);
        QVERIFY(main.window.isWindowModified());
        Choose(main, "mnuFileNew");
        QVERIFY(model.CreationOrder().empty());
        QVERIFY(main.canvas->hasFocus());
        QCOMPARE(main.canvas->size(), QSize(640, 480));
        QCOMPARE(main.Status(2), "Kein Objekt gewählt");
        QCOMPARE(main.Find<QTreeView>("plProperties")->model()->index(0, 0).data(), "Kein Objekt gewählt");
        QVERIFY(!main.window.isWindowModified());

        Choose(main, "mnuFileOpen");
        Choose(main, "mnuFileOpen"); // and cancels
        QVERIFY(model == design && !main.window.isWindowModified());
        QCOMPARE(main.canvas->size(), QSize(300, 200));
        Choose(main, "mnuFileEnd");
        QVERIFY(!main.window.isVisible());
    }

    void FailuresAreReportedAndTheProgramGoesOn() {
        for (const TableRow& row : Table("failing-commands")) {
            MainWindow main;
            main.dialogs.paths = {Path(row[1])};
            main.ExpectError();
            Choose(main, row[0]);
            QVERIFY2(main.errorText.endsWith(QString::fromStdString("\n" + row[2])), qPrintable(main.errorText));
            main.Drag(20, 20, 130, 60);
            QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label), 2u);
        }
    }

    void ExportsStartsBlueJAndImports() {
        MainWindow main({Path("bluej"), 0, 0});
        main.Drag(20, 20, 130, 60);
        main.Drag(200, 200, 300, 260);
        const Rectangle box = main.SelectedBox();
        const std::string source = ToWindows1252(main.window.GenerateCode());
        main.dialogs.paths = {Path("Mein Projekt"), Path("a.java"), Path("a.txt"), Path("a.java")};
        for (const char* const command : {"mnuProjectExportBlueJ", "mnuProjectExportJava", "mnuProjectExportText",
                                          "mnuFileStartBlueJ", "mnuFileNew", "mnuFileImportJava"})
            Choose(main, command);
        main.starter.refuses = true;
        main.dialogs.paths = {Path("Neu")};
        main.ExpectError();
        Choose(main, "mnuProjectExportBlueJ");
        QVERIFY(main.errorText.endsWith("Main.File.StartBlueJ"));
        QCOMPARE(main.window.statusBar()->currentMessage(), "Exportiert: »Neu«");
        for (const char* const file : {"Mein Projekt/SuMAnwendung.java", "a.java", "a.txt"})
            QCOMPARE(Bytes(file), source);
        QCOMPARE(main.starter.started,
                 Path("bluej") + " \"" + Path("Mein Projekt") + "\" minimised\n" + Path("bluej") + " normal\n");
        QCOMPARE(main.window.Model().VisibleBox({ComponentKind::Label, 2}), box);
    }

    void OptionsAreStoredAndChangeTheGridAtOnce() {
        MainWindow main({Path("before.exe"), 2, 0x00FF00});
        main.dialogs.colors = {0x123456, 0x0000FF};
        main.dialogs.paths = {"", Path("bluej")};
        WhenShown<frmPreferences>([&](frmPreferences& form) {
            auto* const box = Part<QWidget>(form, "picGridColor");
            const auto color = [box] { return box->grab().toImage().pixelColor(box->rect().center()); };
            QVERIFY(Part<QRadioButton>(form, "optGridStyle2")->isChecked());
            QCOMPARE(color(), QColor(0, 255, 0));
            Do(form, "@optGridStyle1 @picGridColor");
            QCOMPARE(color(), QColor(0x56, 0x34, 0x12));
            Do(form, "@cmdBrowseGridColor @cmdBrowseGridColor"); // and cancels the second time
            QCOMPARE(color(), QColor(255, 0, 0));
            QCOMPARE(main.dialogs.TakeSeen(), "color 65280\ncolor 1193046\ncolor 255\n");

            const auto* const path = Part<QLineEdit>(form, "txtBlueJPath");
            Click(form, "cmdBrowseBlueJ"); // and cancels
            QCOMPARE(path->text().toStdString(), Path("before.exe"));
            Click(form, "cmdBrowseBlueJ");
            QCOMPARE(path->text().toStdString(), Path("bluej"));
            QVERIFY(main.dialogs.TakeSeen().starts_with("open <BlueJ.exe|BlueJ.exe"));
            Click(form, "cmdAccept");
        });
        Choose(main, "mnuFileOptions");
        QVERIFY((Preferences::Load() == Preferences{Path("bluej"), 1, 0x0000FF}));
        const QImage canvas = main.canvas->grab().toImage();
        QCOMPARE(canvas.pixelColor(QPoint(100, 50) * canvas.devicePixelRatio()), QColor(255, 0, 0));
        QCOMPARE(main.dialogs.TakeSeen(), "");

        WhenShown<frmPreferences>([&](frmPreferences& form) {
            QCOMPARE(Part<QLineEdit>(form, "txtBlueJPath")->text().toStdString(), Path("bluej"));
            Do(form, "Alt+R /no/such/bluej.exe @cmdAccept");
        });
        Choose(main, "mnuFileOptions");
        QVERIFY(main.dialogs.TakeSeen().starts_with("information Der BlueJ - Pfad ist fehlerhaft."));
        QCOMPARE(Preferences::Load().BlueJPath, "/no/such/bluej.exe");
    }

    void ProjectSettingsChangeTheWindow() {
        MainWindow main;
        WhenShown<frmProjectSettings>([&main](frmProjectSettings& form) {
            Do(form, "@txtWidth Ctrl+A 320");
            QCOMPARE(Part<QLineEdit>(form, "txtHeight")->text(), "240");
            main.ExpectError();
            Do(form, "Ctrl+A 32768 @cmdAccept");
            QVERIFY2(main.errorText.startsWith("Fehlernummer: 6\n"), qPrintable(main.errorText));
            QVERIFY(form.isVisible());
            QVERIFY((form.Settings() == WindowSettings{640, 480, ""}));
            Do(form, "@txtHeight Ctrl+A 600 @txtAuthor Ctrl+A Jürgen Return");
            QVERIFY(!form.isVisible());
        });
        Choose(main, "mnuProjectSettings");
        QCOMPARE(main.canvas->size(), QSize(800, 600));
        QCOMPARE(main.window.Model().Author(), "Jürgen");
    }

    /// Whatever size the designed window has, the program goes on and its commands work.
    void OddWindowSizes() {
        for (const QString size : {"0", "1", "-5", "32767", "-32768"}) {
            MainWindow main;
            main.Edit([](ProjectModel& model) { model.SetWindowSize(100, 100); });
            main.dialogs.paths = {Path("a.prl"), Path("a.prl")};
            main.dialogs.yes = {true};
            WhenShown<frmProjectSettings>([&size](frmProjectSettings& form) {
                Part<QLineEdit>(form, "txtWidth")->setText(size);
                Click(form, "cmdAccept");
            });
            for (const char* const command : {"mnuProjectSettings", "mnuFileSave", "mnuFileNew", "mnuFileOpen"}) {
                Choose(main, command);
                main.window.grab();
            }
            QCOMPARE(QString::number(main.window.Model().WindowWidth()), size);
            QCOMPARE(QString::number(main.window.Model().WindowHeight()), size);
        }
    }

    void GeneratorsChangeTheDesignAndOfferTheirCode() {
        MainWindow main;
        const auto generates = [&main](const char* part) {
            return main.window.GenerateCode().find(part) != std::string::npos;
        };
        QVERIFY(!main.Command("mnuCodeMenu")->isEnabled() && !main.Command("mnuCodeSQL")->isEnabled());
        WhenShown<frmMenuGenerator>([](frmMenuGenerator& form) { Do(form, "Datei @cmdAdd @cmdOK"); });
        Choose(main, "mnuFunctionsMenuGenerator");
        QVERIFY(main.window.isWindowModified() && !generates("hatMenueDatei"));
        Choose(main, "mnuCodeMenu");
        QVERIFY(generates("hatMenueDatei"));

        WhenShown<frmSQLGenerator>(
            [](frmSQLGenerator& form) { Do(form, "localhost @cmdStepForward @cmdStepForward @cmdStepForward"); });
        Choose(main, "mnuFunctionsSQLGenerator");
        QCOMPARE(main.window.Model().Sql().Server, "localhost");
        QVERIFY(!generates("VerbindeMitDatenbank"));
        Choose(main, "mnuCodeSQL");
        QVERIFY(generates("VerbindeMitDatenbank"));

        // A mark goes with its reason, and undo brings both back.
        for (const auto& [mark, part] : {std::pair{"mnuCodeMenu", "hatMenueDatei"}, {"mnuCodeSQL", "Verbinde"}}) {
            main.Edit([](ProjectModel& model) { model.EditMenus() = {}, model.EditSql() = {}; });
            QVERIFY(!main.Command(mark)->isEnabled() && !main.Command(mark)->isChecked() && !generates(part));
            QVERIFY(main.window.statusBar()->currentMessage().endsWith("ist wieder ausgeschaltet."));
            main.Command("mnuEditUndo")->trigger();
            QVERIFY(main.Command(mark)->isChecked() && generates(part));
            main.Command("mnuEditRedo")->trigger();
            QVERIFY(!main.Command(mark)->isChecked());
            main.Command("mnuEditUndo")->trigger();
        }
    }

    void CancelledDialogsChangeNothing() {
        MainWindow main;
        main.Drag(20, 20, 130, 60);
        main.window.CurrentDocument().MarkSaved("");
        const ProjectModel before = main.window.Model();
        for (const TableRow& row : Table("form-commands"))
            for (const char* const end : {"Esc", "@cmdCancel"}) {
                WhenShown<QDialog>([&](QDialog& form) {
                    QCOMPARE(form.objectName().toStdString(), row[1]);
                    if (const auto* const grid = form.findChild<QRadioButton*>("optGridStyle0"))
                        QVERIFY2(grid->isChecked(), "as the first time");
                    Do(form, QString::fromStdString(row[2]));
                    if (form.isVisible())
                        Do(form, end);
                });
                Choose(main, row[0]);
                QVERIFY2(main.window.Model() == before && !main.window.CurrentDocument().IsChanged(), row.line.c_str());
                QVERIFY(Preferences::Load() == Preferences());
                QCOMPARE(main.dialogs.TakeSeen(), "");
            }
    }

  private:
    std::string Path(const std::string& name) const { return TextOf(*folder_ / name.c_str()); }
    std::string Bytes(const char* name) const { return ReadFileBytes(*folder_ / name); }

    std::optional<ScratchFolder> folder_;
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::CommandsTest)
#include "commands_test.moc"
