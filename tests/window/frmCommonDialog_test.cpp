#include "app/frmCommonDialog.h"
#include "Cases.h"
#include "window/Forms.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDialog>
#include <QFontInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace pirol::test {

/// The toolkit's own dialogs, which can be driven; they stand in for those of a desktop.
class CommonDialogTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        SpeakGerman(*QCoreApplication::instance());
        std::filesystem::create_directory(folder_ / "sub");
        for (const char* const name : {"a.prl", "c.txt"})
            CreateFileBytes(folder_ / name, "");
    }

    void ShowsMessages() {
        WhenShown<QMessageBox>([](QMessageBox& box) {
            QCOMPARE(box.icon(), QMessageBox::Information);
            QCOMPARE(box.text(), "Erste Zeile\n<b>zweite</b>");
            QCOMPARE(box.textFormat(), Qt::PlainText);
            QCOMPARE(box.buttons().size(), 1);
            Press(Qt::Key_Return);
        });
        dialogs_.Information("Erste Zeile\r\n<b>zweite</b>");
        WhenShown<QMessageBox>([](QMessageBox& box) {
            QCOMPARE(box.icon(), QMessageBox::Critical);
            QCOMPARE(box.windowTitle(), "Fehler");
            Press(Qt::Key_Escape);
        });
        dialogs_.Critical("Fehler", "Text");
    }

    void AsksQuestions() {
        const std::pair<const char*, bool> cases[] = {
            {"Alt+J", true}, {"Alt+N", false}, {"Return", false}, {"Esc", false}, {"Tab Return", true}};
        for (const auto& [steps, yes] : cases) {
            WhenShown<QMessageBox>([keys = QString(steps)](QMessageBox& box) {
                QCOMPARE(box.icon(), QMessageBox::Warning);
                QCOMPARE(box.buttons().size(), 2);
                Do(box, keys);
            });
            QCOMPARE(dialogs_.Question("Überschreiben?"), yes);
        }
        WhenShown<QMessageBox>([](QMessageBox& box) { box.close(); });
        QVERIFY(!dialogs_.Question("Überschreiben?"));
    }

    /// The user reads the filters as they are written, without the patterns that they stand for.
    void SetsUpFileDialogs() {
        WhenShown<QFileDialog>([](QFileDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), "Öffnen");
            QCOMPARE(dialog.nameFilters().join('|'), "Bilder (*.bmp, *.gif) (*.bmp *.gif)|Alle Dateien (*.*) (*)");
            const auto* const types = Part<QComboBox>(dialog, "fileTypeCombo");
            QCOMPARE(types->itemText(0) + "|" + types->itemText(1), "Bilder (*.bmp, *.gif)|Alle Dateien (*.*)");
            dialog.reject();
        });
        dialogs_.ShowOpen({.Title = {},
                           .Filter = "Bilder (*.bmp, *.gif)|*.bmp; *.gif|Alle Dateien (*.*)|*.*",
                           .Flags = 0,
                           .FileName = {}});
    }

    /// No question about the existing file, no ending added, no other than the filter's refused.
    void TakesNamesAsTheyAreTyped() {
        const FileDialogSetup setup = {.Title = "Titel",
                                       .Filter = "prl - Dateien (*.prl)|*.prl",
                                       .Flags = FileDialogSetup::FileMustExist,
                                       .FileName = {}};
        const struct {
            const char* name;
            std::string (frmCommonDialog::*show)(const FileDialogSetup&);
        } cases[] = {
            {"a.prl", &frmCommonDialog::ShowOpen},
            {"c.txt", &frmCommonDialog::ShowOpen},
            {"a.prl", &frmCommonDialog::ShowSave},
            {"Größe", &frmCommonDialog::ShowSave},
        };
        for (const auto& row : cases) {
            WhenShown<QFileDialog>([&](QFileDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), "Titel");
                Enter(dialog, TextOf(folder_ / row.name));
            });
            QCOMPARE((dialogs_.*row.show)(setup), TextOf(folder_ / row.name));
        }
    }

    void AsksForAnExistingFolder() {
        const FileDialogSetup setup = {
            .Title = {}, .Filter = {}, .Flags = FileDialogSetup::PathMustExist, .FileName = "SuMAnwendung.java"};
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
        QCOMPARE(dialogs_.ShowSave(setup), good);
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
            dialog.findChildren<QLineEdit*>().at(2)->setFocus();
            Do(dialog, "Ctrl+A 20 Return");
        });
        const std::optional<FontChoice> chosen = dialogs_.ShowFont(current);
        QVERIFY((chosen == FontChoice{current.Family, "Bold", 20}));
    }

    void ToolkitSpeaksGerman() {
        const QDialogButtonBox buttons(QDialogButtonBox::Cancel);
        QCOMPARE(buttons.button(QDialogButtonBox::Cancel)->text().remove('&'), "Abbrechen");
    }

  private:
    static void Enter(QFileDialog& dialog, const std::string& path) {
        auto* const name = Part<QLineEdit>(dialog, "fileNameEdit");
        name->setText(QString::fromStdString(path));
        QTest::keyClick(name, Qt::Key_Return);
    }

    ScratchFolder folder_;
    frmCommonDialog dialogs_;
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::CommonDialogTest)
#include "frmCommonDialog_test.moc"
