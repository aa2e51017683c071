#include "app/frmPreferences.h"
#include "app/frmProjectSettings.h"
#include "Cases.h"
#include "menu/frmMenuGenerator.h"
#include "model/Windows1252.h"
#include "project/ProjectFile.h"
#include "sql/frmSQLGenerator.h"
#include "window/Keys.h"
#include "window/MainWindow.h"

#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeView>

namespace pirol {

using test::Click;
using test::ExpectError;
using test::MainWindow;
using test::Part;
using test::Type;
using test::WhenShown;

/// Opens the command's menu and chooses it there.
void Choose(MainWindow& main, const char* name) {
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
        ProjectModel& model = main.window.Model();
        main.Drag(20, 20, 130, 60);
        model.EditSql().Server = "localhost";
        model.SetWindowSize(300, 200);
        const ProjectModel design = model;
        main.dialogs.paths = {Path("a.prl")};
        Choose(main, "mnuFileSave");
        QVERIFY(main.window.windowTitle().startsWith("a.prl"));
        QVERIFY(!main.window.isWindowModified());
        QCOMPARE(Bytes("a.prl"), GeneratePRLCode(design));

        main.Drag(30, 80, 90, 120);
        QVERIFY(main.window.isWindowModified());
        Choose(main, "mnuFileNew");
        QVERIFY(model.CreationOrder().empty());
        QCOMPARE(model.Sql().Server, "localhost");
        QCOMPARE(main.canvas->size(), QSize(640, 480));
        QCOMPARE(main.Status(2), "Kein Objekt gewählt");
        QCOMPARE(main.Find<QTreeView>("plProperties")->model()->index(0, 0).data(), "Kein Objekt gewählt");
        QVERIFY(!main.window.isWindowModified());

        main.dialogs.paths = {Path("a.prl")};
        Choose(main, "mnuFileOpen");
        QVERIFY(model == design);
        QCOMPARE(main.canvas->size(), QSize(300, 200));
        main.dialogs.TakeSeen();
        Choose(main, "mnuFileOpen"); // and cancels
        Choose(main, "mnuFileSave");
        QCOMPARE(main.dialogs.TakeSeen().substr(0, 4), "open");
        QVERIFY(model == design && !main.window.isWindowModified());

        main.dialogs.paths = {Path("a.prl")};
        main.dialogs.yes = {false};
        main.Drag(200, 100, 280, 160);
        Choose(main, "mnuFileSave");
        QVERIFY(main.dialogs.TakeSeen().ends_with("question Die Datei existiert bereits! Überschreiben?\n"));
        QCOMPARE(Bytes("a.prl"), GeneratePRLCode(design));
        QVERIFY(main.window.isWindowModified());

        CreateFileBytes(*folder_ / "bad.prl", "no project\r\nat all");
        main.dialogs.paths = {Path("bad.prl")};
        Choose(main, "mnuFileOpen");
        QVERIFY(main.dialogs.TakeSeen().find("critical Fehler: Die .prl - Datei ist fehlerhaft") != std::string::npos);
        ProjectModel empty;
        empty.EditSql() = design.Sql();
        QVERIFY(model == empty);
        QCOMPARE(main.canvas->size(), QSize(640, 480));
        Choose(main, "mnuFileEnd");
        QVERIFY(!main.window.isVisible());
    }

    void FailuresAreReportedAndTheProgramGoesOn() {
        const struct {
            const char *command, *path, *number, *label;
        } rows[] = {
            {"mnuFileSave", "missing/a.prl", "76", "Main.File.PRL.GeneratePRLCode"},
            {"mnuFileOpen", "missing.prl", "53", "Main.File.PRL.ReadPRLFile"},
            {"mnuFileImportJava", "missing.java", "53", "Main.File.Import.Analyse"},
            {"mnuProjectExportBlueJ", "bluej", "75", "Main.Project.Export"},
            {"mnuProjectExportJava", "missing/a.java", "76", "Main.Project.Export"},
            {"mnuProjectExportText", "missing/a.txt", "76", "Main.Project.Export"},
        };
        for (const auto& row : rows) {
            MainWindow main;
            main.dialogs.paths = {Path(row.path)};
            QString report;
            ExpectError(report);
            Choose(main, row.command);
            QVERIFY2(report.startsWith(QString("Fehlernummer: %1\n").arg(row.number)), qPrintable(report));
            QVERIFY2(report.endsWith(QString("\n") + row.label), qPrintable(report));
            main.Drag(20, 20, 130, 60);
            QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label), 2u);
        }
    }

    void ExportsStartsBlueJAndImports() {
        MainWindow main;
        main.window.SetPreferences({Path("bluej"), 0, 0});
        main.Drag(20, 20, 130, 60);
        main.Drag(200, 200, 300, 260);
        main.dialogs.paths = {Path("Mein Projekt"), Path("a.java"), Path("a.txt"), Path("a.java")};
        for (const char* const command :
             {"mnuProjectExportBlueJ", "mnuProjectExportJava", "mnuProjectExportText", "mnuFileStartBlueJ"})
            Choose(main, command);
        const std::string source = ToWindows1252(GenerateCode(main.window.Model(), main.window.Options()));
        for (const char* const file : {"Mein Projekt/SuMAnwendung.java", "a.java", "a.txt"})
            QCOMPARE(Bytes(file), source);
        QCOMPARE(main.starter.started,
                 Path("bluej") + " \"" + Path("Mein Projekt") + "\" minimised\n" + Path("bluej") + " normal\n");

        const ComponentRef second = {ComponentKind::Label, 2};
        const Rectangle box = main.window.Model().VisibleBox(second);
        Choose(main, "mnuFileNew");
        Choose(main, "mnuFileImportJava");
        QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label), 3u);
        QCOMPARE(main.window.Model().VisibleBox(second), box);
    }

    void OptionsAreStoredAndChangeTheGridAtOnce() {
        MainWindow main;
        main.window.SetPreferences({Path("before.exe"), 2, 0x00FF00});
        CreateFileBytes(*folder_ / "other.exe", "");
        main.dialogs.colors = {0x123456, 0x0000FF};
        WhenShown<frmPreferences>([&](frmPreferences& form) {
            const auto* const path = Part<QLineEdit>(form, "txtBlueJPath");
            auto* const box = Part<QWidget>(form, "picGridColor");
            const auto color = [box] { return box->grab().toImage().pixelColor(box->rect().center()); };
            QCOMPARE(path->text().toStdString(), Path("before.exe"));
            QVERIFY(Part<QRadioButton>(form, "optGridStyle2")->isChecked());
            QCOMPARE(color(), QColor(0, 255, 0));
            const auto* const tabs = Part<QTabWidget>(form, "tbPreferences");
            QCOMPARE(tabs->count(), 1);
            QCOMPARE(tabs->tabText(0), "Allgemein");

            Do(form, "@optGridStyle1 @picGridColor");
            QCOMPARE(color(), QColor(0x56, 0x34, 0x12));
            Click(form, "cmdBrowseGridColor");
            QCOMPARE(color(), QColor(255, 0, 0));
            Click(form, "cmdBrowseGridColor"); // and cancels
            QCOMPARE(color(), QColor(255, 0, 0));
            QCOMPARE(main.dialogs.TakeSeen(), "color 65280\ncolor 1193046\ncolor 255\n");

            for (const std::string& chosen : {std::string(), Path("other.exe")}) {
                main.dialogs.paths = {chosen};
                Click(form, "cmdBrowseBlueJ");
                QVERIFY(main.dialogs.TakeSeen().starts_with("open <BlueJ.exe|BlueJ.exe"));
                QCOMPARE(path->text().toStdString(), Path("before.exe"));
            }
            main.dialogs.paths = {Path("bluej")};
            Click(form, "cmdBrowseBlueJ");
            main.dialogs.TakeSeen();
            Click(form, "cmdAccept");
        });
        Choose(main, "mnuFileOptions");
        QVERIFY((main.window.CurrentPreferences() == Preferences{Path("bluej"), 1, 0x0000FF}));
        QVERIFY(Preferences::Load() == main.window.CurrentPreferences());
        const QImage canvas = main.canvas->grab().toImage();
        QCOMPARE(canvas.pixelColor(QPoint(100, 50) * canvas.devicePixelRatio()), QColor(255, 0, 0));
        QCOMPARE(main.dialogs.TakeSeen(), "");

        WhenShown<frmPreferences>([](frmPreferences& form) { Do(form, "Alt+R /no/such/bluej.exe @cmdAccept"); });
        Choose(main, "mnuFileOptions");
        QCOMPARE(main.dialogs.TakeSeen(), "information Der BlueJ - Pfad ist fehlerhaft.\r\n"
                                          "Einige Funktionen können daher nicht arbeiten\n");
        QCOMPARE(Preferences::Load().BlueJPath, "/no/such/bluej.exe");
    }

    void ProjectSettingsChangeTheWindow() {
        MainWindow main;
        WhenShown<frmProjectSettings>([](frmProjectSettings& form) {
            const auto sizes = [&form] {
                return Part<QLineEdit>(form, "txtWidth")->text() + " x " + Part<QLineEdit>(form, "txtHeight")->text();
            };
            Type(form, "txtWidth", "320");
            QCOMPARE(sizes(), "320 x 240");
            Type(form, "txtHeight", "");
            QCOMPARE(sizes(), "640 x 480");
            QString report;
            ExpectError(report);
            Type(form, "txtWidth", "32768");
            Click(form, "cmdAccept");
            QVERIFY2(report.startsWith("Fehlernummer: 6\nFehlerbeschreibung: Überlauf\n"), qPrintable(report));
            QVERIFY(form.isVisible());
            QVERIFY((form.Settings() == WindowSettings{640, 480, ""}));
            Type(form, "txtHeight", "600");
            Type(form, "txtAuthor", "Jürgen");
            QTest::keyClick(form.focusWidget(), Qt::Key_Return);
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
            main.window.Model().SetWindowSize(100, 100);
            WhenShown<frmProjectSettings>([&size](frmProjectSettings& form) {
                Part<QLineEdit>(form, "txtWidth")->setText(size);
                Click(form, "cmdAccept");
            });
            Choose(main, "mnuProjectSettings");
            QCOMPARE(QString::number(main.window.Model().WindowHeight()), size);
            main.window.grab();
            main.dialogs.paths = {Path("a.prl"), Path("a.prl")};
            main.dialogs.yes = {true};
            Choose(main, "mnuFileSave");
            Choose(main, "mnuFileNew");
            Choose(main, "mnuFileOpen");
            QCOMPARE(QString::number(main.window.Model().WindowWidth()), size);
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
    }

    void CancelledDialogsChangeNothing() {
        const struct {
            const char *command, *field;
        } rows[] = {
            {"mnuFileOptions", "txtBlueJPath"},
            {"mnuProjectSettings", "txtAuthor"},
            {"mnuFunctionsMenuGenerator", "txtCaption"},
            {"mnuFunctionsSQLGenerator", "txtServer"},
        };
        MainWindow main;
        main.Drag(20, 20, 130, 60);
        main.window.Model().MarkUnchanged("");
        const ProjectModel before = main.window.Model();
        for (const auto& row : rows)
            for (const bool byKey : {false, true}) {
                WhenShown<QDialog>([&](QDialog& form) {
                    Type(form, row.field, "x");
                    if (form.inherits("pirol::frmMenuGenerator"))
                        Click(form, "cmdAdd");
                    byKey ? QTest::keyClick(&form, Qt::Key_Escape) : Click(form, "cmdCancel");
                });
                Choose(main, row.command);
                QVERIFY2(main.window.Model() == before, row.command);
                QVERIFY2(!main.window.Model().IsChanged(), row.command);
                QVERIFY(main.window.CurrentPreferences() == Preferences());
                QVERIFY(Preferences::Load() == Preferences());
                QCOMPARE(main.dialogs.TakeSeen(), "");
            }
    }

    void InfoAndDonation() {
        const std::pair<const char*, const char*> rows[] = {{"mnuHelpAbout", "GNU General Public License"},
                                                            {"mnuHelpDonation", "support@pirol.example"}};
        MainWindow main;
        for (const auto& [command, text] : rows) {
            QString all;
            WhenShown<QDialog>([&all](QDialog& dialog) {
                for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
                    all += label->text();
                    QVERIFY(!label->openExternalLinks());
                }
                Click(dialog, "cmdClose");
            });
            Choose(main, command);
            QVERIFY2(all.contains(text) && !all.contains("href"), qPrintable(all));
        }
    }

  private:
    std::string Path(const char* name) const { return TextOf(*folder_ / name); }
    std::string Bytes(const char* name) const { return ReadFileBytes(*folder_ / name); }

    std::optional<test::ScratchFolder> folder_;
};

} // namespace pirol

QTEST_MAIN(pirol::CommandsTest)
#include "commands_test.moc"
