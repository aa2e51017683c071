#include "app/Handbook.h"
#include "Cases.h"
#include "ui/dialogs/frmCommonDialog.h"
#include "ui/dialogs/frmHelp.h"
#include "ui/dialogs/frmLoading.h"
#include "ui/dialogs/frmProjectSettings.h"
#include "ui/MainWindow.h"
#include "ui/parts/HelpAnchor.h"
#include "ui/properties/plProperties.h"

#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFontDialog>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>

#include <memory>

namespace pirol::test {

// Milliseconds: loading that ends earlier shows no form, loading that takes longer does.
constexpr int unnoticed = 200;
constexpr int longEnough = 250;

QString Chapter(const QWidget& help) {
    return Part<QListWidget>(help, "lstChapters")->currentItem()->text();
}

/// What comes up over any window: messages, choosers, error reports, progress, help. The toolkit's own dialogs, which
/// can be driven, stand in for those of a desktop.
class DialogsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        SpeakGerman(*QCoreApplication::instance());
        QApplication::instance()->installEventFilter(&helpKey_);
        std::filesystem::create_directory(folder_ / "sub");
        for (const char* const name : {"a.prl", "c.txt"})
            CreateFileBytes(folder_ / name, "");
    }

    void ShowsMessages() {
        const std::pair<QMessageBox::Icon, std::function<void()>> messages[] = {
            {QMessageBox::Information, [this] { dialogs_.Information("Erste Zeile\r\n<b>zweite</b>"); }},
            {QMessageBox::Critical, [this] { dialogs_.Critical("Fehler", "Erste Zeile\r\n<b>zweite</b>"); }},
        };
        for (const auto& [icon, show] : messages) {
            WhenShown<QMessageBox>([wanted = icon](QMessageBox& box) {
                QCOMPARE(box.icon(), wanted);
                QVERIFY(wanted == QMessageBox::Information || box.windowTitle() == "Fehler");
                QCOMPARE(box.text(), "Erste Zeile\n<b>zweite</b>");
                QCOMPARE(box.textFormat(), Qt::PlainText);
                QCOMPARE(box.buttons().size(), 1);
                Press(wanted == QMessageBox::Critical ? Qt::Key_Escape : Qt::Key_Return);
            });
            show();
        }
    }

    void AsksQuestions() {
        for (const QString keys : {"Alt+J", "Tab Return", "Alt+N", "Return", "Esc", ""}) {
            WhenShown<QMessageBox>([&keys](QMessageBox& box) {
                QCOMPARE(box.icon(), QMessageBox::Warning);
                QCOMPARE(box.buttons().size(), 2);
                keys.isEmpty() ? static_cast<void>(box.close()) : Do(box, keys);
            });
            QCOMPARE(dialogs_.Question("Überschreiben?"), keys == "Alt+J" || keys == "Tab Return");
        }
    }

    /// The user reads the filters as they are written, without the patterns that they stand for.
    void SetsUpFileDialogs() {
        WhenShown<QFileDialog>([](QFileDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), "Öffnen");
            QCOMPARE(dialog.nameFilters().join('|'), "Bilder (*.bmp, *.gif) (*.bmp *.gif)|Alle Dateien (*.*) (*)");
            QCOMPARE(Part<QComboBox>(dialog, "fileTypeCombo")->itemText(0), "Bilder (*.bmp, *.gif)");
            dialog.reject();
        });
        FileDialogSetup setup = Setup("Bilder (*.bmp, *.gif)|*.bmp; *.gif|Alle Dateien (*.*)|*.*", 0);
        setup.Title.clear();
        dialogs_.ShowOpen(setup);
    }

    /// No question about the existing file, no extension refused, and the filter's where there is none. The dialog
    /// opens where the preset file lies.
    void TakesNamesAsTheyAreTyped() {
        const FileDialogSetup setup = {.Title = "Titel",
                                       .Filter = "prl - Dateien (*.prl)|*.prl",
                                       .Flags = FileDialogSetup::FileMustExist,
                                       .FileName = TextOf(folder_ / "a.prl")};
        const struct {
            const char* name;
            std::string (frmCommonDialog::*show)(const FileDialogSetup&);
            const char* chosen;
        } cases[] = {
            {"a.prl", &frmCommonDialog::ShowOpen, "a.prl"},     {"a", &frmCommonDialog::ShowOpen, "a.prl"},
            {"c.txt", &frmCommonDialog::ShowOpen, "c.txt"},     {"a.prl", &frmCommonDialog::ShowSave, "a.prl"},
            {"Größe", &frmCommonDialog::ShowSave, "Größe.prl"}, {"x.y", &frmCommonDialog::ShowSave, "x.y"},
        };
        for (const auto& row : cases) {
            WhenShown<QFileDialog>([&](QFileDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), "Titel");
                QCOMPARE(dialog.directory().path().toStdString(), TextOf((folder_ / "a.prl").parent_path()));
                QCOMPARE(Part<QLineEdit>(dialog, "fileNameEdit")->text(), "a.prl");
                Enter(dialog, TextOf(folder_ / row.name));
            });
            QCOMPARE((dialogs_.*row.show)(setup), TextOf(folder_ / row.chosen));
        }
    }

    void AsksForAnExistingFolder() {
        const std::string good = TextOf(folder_ / "sub/new");
        WhenShown<QFileDialog>([&](QFileDialog& dialog) {
            QCOMPARE(Part<QLineEdit>(dialog, "fileNameEdit")->text(), "SuMAnwendung.java");
            WhenShown<QMessageBox>([&](QMessageBox& box) {
                QCOMPARE(box.text().toStdString(),
                         "Der Ordner „" + TextOf(folder_ / "missing") + "“ ist nicht vorhanden.");
                WhenShown<QFileDialog>([&](QFileDialog& again) { Enter(again, good); });
                box.accept();
            });
            Enter(dialog, TextOf(folder_ / "missing/new"));
        });
        QCOMPARE(dialogs_.ShowSave(Setup("", FileDialogSetup::PathMustExist, "SuMAnwendung.java")), good);
    }

    void CancelledDialogsGiveNothing() {
        const std::function<bool()> givesNothing[] = {
            [this] { return dialogs_.ShowOpen({}).empty(); }, [this] { return dialogs_.ShowSave({}).empty(); },
            [this] { return !dialogs_.ShowColor(0); },        [this] { return !dialogs_.ShowFont({}); },
            [this] { return !dialogs_.ShowPrinter(); },
        };
        for (const auto& show : givesNothing) {
            QString title;
            WhenShown<QDialog>([&title](QDialog& dialog) {
                title = dialog.windowTitle();
                Press(Qt::Key_Escape);
            });
            QVERIFY2(show(), qPrintable(title));
        }
    }

    void ChoosesColoursAndFonts() {
        WhenShown<QColorDialog>([](QColorDialog& dialog) {
            QCOMPARE(dialog.currentColor(), QColor(1, 2, 3));
            dialog.setCurrentColor(QColor(0x56, 0x34, 0x12));
            dialog.accept();
        });
        QCOMPARE(dialogs_.ShowColor(0x030201).value_or(0), 0x123456u);

        const FontChoice current = {QFontInfo(QApplication::font()).family().toStdString(), "Bold", 13};
        WhenShown<QFontDialog>([](QFontDialog& dialog) {
            // Family, style and size; the user changes the size.
            auto* const size = dialog.findChildren<QLineEdit*>().at(2);
            QCOMPARE(size->text(), "13");
            size->setFocus();
            Do(dialog, "Ctrl+A 20 Return");
        });
        const std::optional<FontChoice> chosen = dialogs_.ShowFont(current);
        QVERIFY((chosen == FontChoice{current.Family, "Bold", 20}));
    }

    void ToolkitSpeaksGerman() {
        const QDialogButtonBox buttons(QDialogButtonBox::Cancel);
        QCOMPARE(buttons.button(QDialogButtonBox::Cancel)->text().remove('&'), "Abbrechen");
    }

    /// With the keyboard alone: all buttons are reached, and the report lands in the clipboard.
    void ErrorReportsAreShownAndCopied() {
        QWidget owner;
        owner.show();
        QString shown;
        WhenShown<frmError>([&shown](frmError& form) {
            QCOMPARE(form.windowTitle(), "Pirol - Fehlermeldung");
            const auto* const report = Part<QPlainTextEdit>(form, "txtError");
            QVERIFY(report->isReadOnly());
            shown = report->toPlainText();
            QCOMPARE(Part<QLabel>(form, "lblHandling")->text().count("\n\n"), 3);

            QApplication::clipboard()->clear();
            Do(form, "Shift+Backtab Space");
            QCOMPARE(QApplication::clipboard()->text(), shown);
            Do(form, "Tab Return");
            QVERIFY(!form.isVisible());
        });
        QVERIFY(!ReportErrors(&owner, FailWithLabel));
        QCOMPARE(shown, "Fehlernummer: 53\nFehlerbeschreibung: Datei nicht gefunden\n\n"
                        "Aufgetreten ist innerhalb folgender Funktion aufgetreten:\nMain.File.PRL.ReadPRLFile");
        QVERIFY(ReportErrors(&owner, [&shown] { shown.clear(); }));
        QCOMPARE(shown, "");
    }

    /// The report waits for the event that is being handled and comes even when its owner is gone by then.
    void ErrorReportsCanComeLater() {
        auto owner = std::make_unique<QWidget>();
        QVERIFY(ReportErrorsLater(owner.get(), [] {}));
        QString report;
        ExpectError(report);
        QVERIFY(!ReportErrorsLater(owner.get(), FailWithLabel));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        owner.reset();
        QTRY_VERIFY(!report.isEmpty());
    }

    void LoadingShowsWhatTheReaderTellsAtABoundedRate() {
        frmLoading form(nullptr);
        auto* const bar = Part<QProgressBar>(form, "Process");
        const PaintCounter count(bar);
        constexpr int lines = 30'000'000;

        QElapsedTimer loading;
        loading.start();
        form.SetMaximum(lines);
        form.SetCaption("Lade Komponenten . . .");
        form.SetValue(499);
        const bool visible = form.isVisible();
        // A busy machine may have taken that long for the lines above.
        QVERIFY2(!visible || loading.hasExpired(unnoticed), "a project that is read at once needs no form");
        QTest::qSleep(longEnough);
        form.SetCaption("Lade Menüeinträge . . .");
        QVERIFY(form.isVisible() && !form.isModal());
        QCOMPARE(bar->maximum(), lines);
        QCOMPARE(bar->value(), 499);
        QCOMPARE(Part<QLabel>(form, "lblProcess")->text(), QString("Lade Menüeinträge . . ."));
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(form.isVisible());

        for (int line = 500; line < lines; ++line)
            form.SetValue(line);
        const qint64 most = loading.elapsed() / 30 + 4;
        QVERIFY2(count.Paints() <= most, qPrintable(QString("%1 of at most %2").arg(count.Paints()).arg(most)));

        // The bar does move meanwhile.
        const int before = count.Paints();
        QTest::qSleep(60);
        form.SetValue(lines);
        QCOMPARE(count.Paints(), before + 1);
    }

    void F1ShowsTheChapterOfTheWindow() {
        MainWindow main;
        Do(main.window, "F1");
        QTest::keyClick(&main.window, Qt::Key_F1);
        QCOMPARE(main.window.findChildren<frmHelp*>().size(), 1); // the same window again, not a second one
        const auto* const help = main.Find<frmHelp>("frmHelp");
        QVERIFY(help->isVisible() && !help->isModal());
        QCOMPARE(Chapter(*help), QString("Das Hauptfenster"));
        main.Drag(20, 20, 130, 60);
        QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label), 2u);
        Click(*help, "cmdClose");
        QTRY_VERIFY(main.window.findChild<frmHelp*>() == nullptr);
    }

    void HelpStaysUsableBesideAModalForm() {
        MainWindow main;
        QString chapter;
        WhenShown<frmProjectSettings>([&](frmProjectSettings& form) {
            Do(form, "@txtAuthor F1");
            auto* const help = Part<frmHelp>(form, "frmHelp");
            QVERIFY(QTest::qWaitForWindowActive(help));
            chapter = Chapter(*help);
            const auto* const list = Part<QListWidget>(*help, "lstChapters");
            ClickRow(*list, 0);
            QCOMPARE(list->currentRow(), 0);
            Do(form, "@txtAuthor Ctrl+A Anna @cmdAccept");
        });
        main.Command("mnuProjectSettings")->trigger();
        QCOMPARE(chapter, QString("Projekteinstellungen"));
        QCOMPARE(main.window.Model().Author(), std::string("Anna"));
    }

    void HelpLeadsFromPropertiesToTheirPlace() {
        MainWindow main;
        main.Drag(20, 20, 130, 60);
        auto* const properties = main.Find<plProperties>("plProperties");
        for (const auto* const key : {"fontsize", "width"}) {
            properties->ShowProperty(key);
            properties->setFocus();
            const PropertyRow& row = *FindRow(main.window.Model().Element(main.Selected()), key);
            QCOMPARE(QString::fromStdString(HelpAnchorOf(QApplication::focusWidget())),
                     QString::fromStdString(AnchorOf(*row.key)));
            Do(main.window, "F1");
            auto* const help = main.Find<frmHelp>("frmHelp");
            QCOMPARE(Chapter(*help), QString("Eigenschaften"));
            Click(*help, "cmdClose");
            Show(main.window);
        }
        QVERIFY(properties->actions().contains(main.Command("mnuHelpHandbook")));
    }

    void HelpSearches() {
        QWidget owner;
        frmHelp::ShowFor(&owner);
        auto* const help = owner.findChild<frmHelp*>();
        Show(*help);
        const auto* const list = Part<QListWidget>(*help, "lstChapters");
        auto* const browser = Part<QTextBrowser>(*help, "txtHandbook");
        const auto shown = [list] {
            int rows = 0;
            for (int row = 0; row < list->count(); ++row)
                rows += list->item(row)->isHidden() ? 0 : 1;
            return rows;
        };
        Do(*help, "Ctrl+F menü-generator");
        QVERIFY(shown() > 0 && shown() < 10);
        QCOMPARE(browser->textCursor().selectedText().toLower(), QString("menü-generator"));
        const int first = browser->textCursor().position();
        Do(*help, "Return");
        QVERIFY(browser->textCursor().position() > first);
        Do(*help, "Shift+Return");
        QCOMPARE(browser->textCursor().position(), first);
        QVERIFY(help->isVisible());
        Do(*help, "qq");
        QCOMPARE(shown(), 0);
        QVERIFY(Part<QLabel>(*help, "lblNothing")->isVisible());
        emit browser->anchorClicked(QUrl("#optionen"));
        QCOMPARE(shown(), list->count());
        QCOMPARE(Chapter(*help), QString("Optionen"));
    }

    void HelpFollowsLinksAndShowsPictures() {
        QWidget owner;
        frmHelp::ShowFor(&owner);
        const auto* const help = owner.findChild<frmHelp*>();
        auto* const browser = Part<QTextBrowser>(*help, "txtHandbook");
        emit browser->anchorClicked(QUrl("#optionen"));
        QCOMPARE(Chapter(*help), QString("Optionen"));
        const int place = browser->verticalScrollBar()->value();
        emit browser->anchorClicked(QUrl("#der-menü-generator"));
        QCOMPARE(Chapter(*help), QString("Der Menü-Generator"));
        QVERIFY(browser->verticalScrollBar()->value() < place);
        emit browser->anchorClicked(QUrl("https://pirol.example/#gibt-es-nicht"));
        QCOMPARE(Chapter(*help), QString("Der Menü-Generator"));

        const auto widthOf = [browser](const char* name) {
            return browser->loadResource(QTextDocument::ImageResource, QUrl(name)).value<QPixmap>().width();
        };
        QVERIFY(widthOf("screenshots/frmMain.png") > 400);
        QVERIFY(widthOf("screenshots/frmMain.png") <= browser->viewport()->width());
        QCOMPARE(widthOf("/etc/hostname"), 0);
    }

  private:
    static void FailWithLabel() {
        UnderLabel("Main.File.PRL.ReadPRLFile", [] { throw RuntimeError(RuntimeError::FileNotFound); });
    }

    static FileDialogSetup Setup(const char* filter, std::uint32_t flags, const char* name = "") {
        return {.Title = "Titel", .Filter = filter, .Flags = flags, .FileName = name};
    }

    static void Enter(QFileDialog& dialog, const std::string& path) {
        QCOMPARE(dialog.windowTitle(), "Titel");
        auto* const name = Part<QLineEdit>(dialog, "fileNameEdit");
        name->setText(QString::fromStdString(path));
        QTest::keyClick(name, Qt::Key_Return);
    }

    ScratchFolder folder_;
    frmCommonDialog dialogs_;
    HelpKey helpKey_;
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::DialogsTest)
#include "dialogs_test.moc"
