#include "base/Windows1252.h"
#include "Cases.h"
#include "ui/code/DifferenceView.h"
#include "ui/code/frmJavaUpdate.h"
#include "ui/dialogs/frmImportReport.h"
#include "ui/MainWindow.h"

#include <QCheckBox>
#include <QClipboard>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>

namespace pirol::test {

/// Java that is there already: brought up to date and read, with the keys of a user.
class UpdateTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        folder_.emplace();
        main_.emplace();
        main_->Drag(20, 20, 130, 60);
        main_->dialogs.paths = {Path()};
        main_->Command("mnuProjectExportJava")->trigger();
    }

    void TheExportedFileIsShownBesideWhatItBecomes() {
        main_->Drag(20, 100, 130, 140);
        const std::string before = Bytes();
        Update([&](frmJavaUpdate& form) {
            const auto* const list = Part<QListView>(form, "lstEntries");
            QCOMPARE(list->model()->rowCount(), 1);
            QVERIFY(list->model()->index(0, 0).data().toString().startsWith("neu: Etikett hatEtikett2 (Zeile "));
            auto* const texts = Part<DifferenceView>(form, "texts");
            QCOMPARE(texts->DifferenceCount(), 2);
            QCOMPARE(texts->CurrentDifference(), 0);
            Press(Qt::Key_F3);
            QCOMPARE(texts->CurrentDifference(), 1);
            QVERIFY(!Part<QPushButton>(form, "cmdNext")->isEnabled());
            Click(form, "cmdPrevious");
            QCOMPARE(texts->CurrentDifference(), 0);
            QCOMPARE(Bytes(), before);
            Click(form, "cmdCancel");
        });
        QCOMPARE(Bytes(), before);
        Update([&](frmJavaUpdate& form) { Click(form, "cmdUpdate"); });
        QCOMPARE(Bytes(), ToWindows1252(main_->window.GenerateCode()));
        QCOMPARE(ReadFileBytes(*folder_ / "SuMAnwendung.java.bak"), before);
        Update([&](frmJavaUpdate& form) {
            QVERIFY(!Part<QPushButton>(form, "cmdUpdate")->isEnabled());
            form.reject();
        });
        QVERIFY(main_->dialogs.TakeSeen().find("open <Java") == std::string::npos);
    }

    void AFileThatChangesMeanwhileIsShownAgainAndNewNamesReachThePupilsLines() {
        main_->Edit([](ProjectModel& model) { model.EditElement({ComponentKind::Label, 1}).ObjectName = "hatTitel"; });
        std::string pupils = Bytes();
        pupils.insert(pupils.rfind('}'), "    void a() { hatEtikett1.verstecke(); }\r\n");
        Update([&](frmJavaUpdate& form) {
            main_->dialogs.TakeSeen();
            ReplaceFileBytes(PathOf(Path()), pupils);
            Click(form, "cmdUpdate");
            QVERIFY(main_->dialogs.TakeSeen().starts_with("information Die Datei wurde inzwischen geändert"));
            QCOMPARE(Bytes(), pupils);
            QVERIFY(form.isVisible());
            Click(form, "cmdUpdate");
        });
        QVERIFY(Bytes().find("void a() { hatTitel.verstecke(); }") != std::string::npos);
        QVERIFY(Bytes().find("hatEtikett1") == std::string::npos);
    }

    void BlocksAreTakenOutByTheirTicksOnly() {
        main_->Edit([](ProjectModel& model) { model.EditMenus().Append("Datei", "hatMenueDatei"); });
        main_->Command("mnuCodeMenu")->trigger();
        Update([&](frmJavaUpdate& form) {
            QVERIFY(!Part<QCheckBox>(form, "chkWithoutMenu")->isEnabled());
            Click(form, "cmdUpdate");
        });
        main_->Command("mnuCodeMenu")->trigger();
        const std::string withMenu = Bytes();
        QVERIFY(withMenu.find("hatMenueDatei") != std::string::npos);
        Update([&](frmJavaUpdate& form) {
            QVERIFY(!form.Update().Changes());
            Click(form, "chkWithoutMenu");
            QVERIFY(form.Update().Changes());
            Click(form, "cmdUpdate");
        });
        QVERIFY(Bytes().find("hatMenueDatei") == std::string::npos);
    }

    void AFileThatCannotBeBroughtUpToDateGivesAnother() {
        ReplaceFileBytes(PathOf(Path()), "class Foo { }");
        const std::string other = TextOf(*folder_ / "Andere.java");
        ReplaceFileBytes(PathOf(other), ToWindows1252(main_->window.GenerateCode()));
        main_->dialogs.paths = {other};
        main_->dialogs.TakeSeen();
        Update([&](frmJavaUpdate& form) { form.reject(); });
        QVERIFY(main_->dialogs.TakeSeen().starts_with(
            "critical Java-Datei aktualisieren: Zeile 1: Es gibt keine Klasse, die EBAnwendung erweitert.\nopen "));
        Update([&](frmJavaUpdate& form) {
            QCOMPARE(TextOf(form.Update().path), other); // it is the last one now
            form.reject();
        });
    }

    void LongAndOddTextsScroll() {
        std::string before;
        for (int line = 0; line < 100'000; ++line)
            before += "        zeile(" + std::to_string(line) + ");\n";
        const std::string after = "\t/* neu */ " + std::string(100'000, 'x') + "\r" + before + "Schluss";
        DifferenceView view;
        view.resize(800, 400);
        view.ShowSources(before, after);
        Show(view);
        QCOMPARE(view.DifferenceCount(), 2);
        Press(Qt::Key_End);
        QCOMPARE(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
        view.GoToNewLine(0);
        QCOMPARE(view.verticalScrollBar()->value(), 0);
        QCOMPARE(view.CurrentDifference(), 0);
        view.grab();
        view.ShowSources({}, {});
        QCOMPARE(view.CurrentDifference(), -1);
        view.grab();
    }

    void ReadingAllShowsWhatIsNotInTheDesign() {
        ReplaceFileBytes(PathOf(Path()), "class A extends EBAnwendung { A() { super(300, 200);\n"
                                         "a=new Knopf(1, 2, 3, 4, \"x\");\nb=new Knopf(x, 2, 3, 4); } }");
        main_->dialogs.paths = {Path()};
        main_->dialogs.yes = {true};
        WhenShown<frmImportReport>([](frmImportReport& form) {
            Click(form, "cmdCopy");
            QVERIFY(QApplication::clipboard()->text().startsWith("Zeile 3: "));
            form.accept();
        });
        main_->Command("mnuFileImportJava")->trigger();
        QCOMPARE(main_->window.Model().ElementCount(ComponentKind::Button), 2u);
        main_->Command("mnuEditUndo")->trigger();
        QCOMPARE(main_->window.Model().ElementCount(ComponentKind::Label), 2u);
    }

  private:
    std::string Path() { return TextOf(*folder_ / "SuMAnwendung.java"); }
    std::string Bytes() { return ReadFileBytes(PathOf(Path())); }

    template <class Answer>
    void Update(Answer answer) {
        WhenShown<frmJavaUpdate>(answer);
        main_->Command("mnuProjectUpdateJava")->trigger();
    }

    std::optional<ScratchFolder> folder_;
    std::optional<MainWindow> main_;
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::UpdateTest)
#include "frmJavaUpdate_test.moc"
