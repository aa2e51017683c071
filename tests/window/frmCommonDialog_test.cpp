#include "app/frmCommonDialog.h"
#include "Cases.h"
#include "window/Forms.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDialog>
#include <QFontInfo>
#include <QMessageBox>
#include <QPushButton>

namespace pirol {
using test::Part;
using test::WhenShown;

/// The toolkit's own dialogs, which can be driven; they stand in for those of a desktop.
class CommonDialogTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        SpeakGerman(*QCoreApplication::instance());
        std::filesystem::create_directory(folder_ / "sub");
        for (const char* const name : {"a.prl", "b.PRL", "c.txt", "README"})
            CreateFileBytes(folder_ / name, "");
    }

    void ShowsMessages() {
        WhenShown<QMessageBox>([](QMessageBox& box) {
            QCOMPARE(box.icon(), QMessageBox::Information);
            QCOMPARE(box.text(), "Erste Zeile\n<b>zweite</b>");
            QCOMPARE(box.textFormat(), Qt::PlainText);
            QCOMPARE(box.buttons().size(), 1);
            QTest::keyClick(&box, Qt::Key_Return);
        });
        dialogs_.Information("Erste Zeile\r\n<b>zweite</b>");
        WhenShown<QMessageBox>([](QMessageBox& box) {
            QCOMPARE(box.icon(), QMessageBox::Critical);
            QCOMPARE(box.windowTitle(), "Fehler");
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        dialogs_.Critical("Fehler", "Text");
    }

    void AsksQuestions() {
        const struct {
            const char* answer; ///< the caption of a button
            Qt::Key key;        ///< without a button
            bool yes;
        } cases[] = {
            {"Ja", {}, true},
            {"Nein", {}, false},
            {nullptr, Qt::Key_Return, false},
            {nullptr, Qt::Key_Escape, false},
            {nullptr, {}, false}, // closes the window
        };
        for (const auto& row : cases) {
            WhenShown<QMessageBox>([&row](QMessageBox& box) {
                QCOMPARE(box.icon(), QMessageBox::Warning);
                QCOMPARE(box.buttons().size(), 2);
                for (QAbstractButton* const button : box.buttons())
                    if (button->text().remove('&') == row.answer)
                        return QTest::mouseClick(button, Qt::LeftButton);
                QVERIFY(row.answer == nullptr);
                row.key == Qt::Key() ? void(box.close()) : QTest::keyClick(&box, row.key);
            });
            QCOMPARE(dialogs_.Question("Überschreiben?"), row.yes);
        }
    }

    /// The user reads the filters as they are written, without the patterns that they stand for.
    void SetsUpFileDialogs() {
        const QStringList shown = {"Bilder (*.bmp, *.gif)", "Alle Dateien (*.*)"};
        WhenShown<QFileDialog>([&shown](QFileDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), "Öffnen");
            QCOMPARE(dialog.nameFilters(), QStringList({shown[0] + " (*.bmp *.gif)", shown[1] + " (*)"}));
            const auto* const types = Part<QComboBox>(dialog, "fileTypeCombo");
            QCOMPARE(types->itemText(0) + "|" + types->itemText(1), shown.join('|'));
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
                dialog.setDirectory(QString::fromStdString(TextOf(folder_ / ".")));
                test::Type(dialog, "fileNameEdit", row.name);
                QTest::keyClick(Part<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
            });
            QCOMPARE((dialogs_.*row.show)(setup), TextOf(folder_ / row.name));
        }
    }

    void AsksForAnExistingFolder() {
        const FileDialogSetup setup = {
            .Title = {}, .Filter = {}, .Flags = FileDialogSetup::PathMustExist, .FileName = "SuMAnwendung.java"};
        const std::string good = TextOf(folder_ / "sub/new");
        const auto enter = [](QFileDialog& dialog, const std::string& path) {
            auto* const name = Part<QLineEdit>(dialog, "fileNameEdit");
            name->setText(QString::fromStdString(path));
            QTest::keyClick(name, Qt::Key_Return);
        };
        WhenShown<QFileDialog>([&](QFileDialog& dialog) {
            QCOMPARE(Part<QLineEdit>(dialog, "fileNameEdit")->text(), "SuMAnwendung.java");
            WhenShown<QMessageBox>([&](QMessageBox& box) {
                QCOMPARE(box.text().toStdString(),
                         "Der Ordner „" + TextOf(folder_ / "missing") + "“ ist nicht vorhanden.");
                WhenShown<QFileDialog>([&](QFileDialog& again) { enter(again, good); });
                box.accept();
            });
            enter(dialog, TextOf(folder_ / "missing/new"));
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
                QTest::keyClick(&dialog, Qt::Key_Escape);
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
            const QList<QLineEdit*> fields = dialog.findChildren<QLineEdit*>();
            QTest::keySequence(fields.at(2), QKeySequence::SelectAll);
            QTest::keyClicks(fields.at(2), "20");
            dialog.accept();
        });
        const std::optional<FontChoice> chosen = dialogs_.ShowFont(current);
        QVERIFY((chosen == FontChoice{current.Family, "Bold", 20}));
    }

    void ToolkitSpeaksGerman() {
        const QDialogButtonBox buttons(QDialogButtonBox::Cancel | QDialogButtonBox::Save);
        QCOMPARE(buttons.button(QDialogButtonBox::Cancel)->text().remove('&'), "Abbrechen");
        QCOMPARE(buttons.button(QDialogButtonBox::Save)->text().remove('&'), "Speichern");
    }

  private:
    test::ScratchFolder folder_;
    frmCommonDialog dialogs_;
};

} // namespace pirol

QTEST_MAIN(pirol::CommonDialogTest)
#include "frmCommonDialog_test.moc"
