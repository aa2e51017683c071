#include "app/frmCommonDialog.h"
#include "Cases.h"
#include "window/Forms.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDialog>
#include <QFontInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>

namespace pirol {
namespace {

using test::Part;
using test::WhenShown;

QPushButton* ButtonOf(const QMessageBox& box, const QString& caption) {
    for (QAbstractButton* const button : box.buttons())
        if (button->text().remove('&') == caption)
            return qobject_cast<QPushButton*>(button);
    qFatal("no button %s", qPrintable(caption));
}

/// The toolkit's own dialogs, which can be driven; they stand in for those of a desktop.
class CommonDialogTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase();
    void ShowsMessages();
    void AsksQuestions();
    void SetsUpFileDialogs();
    void TakesNamesAsTheyAreTyped();
    void AsksForAnExistingFolder();
    void CancelledDialogsGiveNothing();
    void ChoosesColoursAndFonts();
    void ToolkitSpeaksGerman();

  private:
    std::string Typed(const FileDialogSetup& setup, bool saves, const QString& name);

    test::ScratchFolder folder_;
    frmCommonDialog dialogs_;
};

void CommonDialogTest::initTestCase() {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    SpeakGerman(*QCoreApplication::instance());
    std::filesystem::create_directory(folder_ / "sub");
    for (const char* const name : {"a.prl", "b.PRL", "c.txt", "README"})
        CreateFileBytes(folder_ / name, "");
}

void CommonDialogTest::ShowsMessages() {
    WhenShown<QMessageBox>([](QMessageBox& box) {
        QCOMPARE(box.icon(), QMessageBox::Information);
        QCOMPARE(box.text(), QString("Erste Zeile\n<b>zweite</b>"));
        QCOMPARE(box.textFormat(), Qt::PlainText);
        QCOMPARE(box.buttons().size(), 1);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    dialogs_.Information("Erste Zeile\r\n<b>zweite</b>");
    WhenShown<QMessageBox>([](QMessageBox& box) {
        QCOMPARE(box.icon(), QMessageBox::Critical);
        QCOMPARE(box.windowTitle(), QString("Fehler"));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    dialogs_.Critical("Fehler", "Text");
}

void CommonDialogTest::AsksQuestions() {
    const struct {
        std::function<void(QMessageBox&)> answer;
        bool yes;
    } cases[] = {
        {[](QMessageBox& box) { QTest::mouseClick(ButtonOf(box, "Ja"), Qt::LeftButton); }, true},
        {[](QMessageBox& box) { QTest::mouseClick(ButtonOf(box, "Nein"), Qt::LeftButton); }, false},
        {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }, false},
        {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }, false},
        {[](QMessageBox& box) { box.close(); }, false},
    };
    for (const auto& row : cases) {
        WhenShown<QMessageBox>([&row](QMessageBox& box) {
            QCOMPARE(box.icon(), QMessageBox::Warning);
            QCOMPARE(box.buttons().size(), 2);
            row.answer(box);
        });
        QCOMPARE(dialogs_.Question("Überschreiben?"), row.yes);
    }
}

void CommonDialogTest::SetsUpFileDialogs() {
    const struct {
        std::string filter;
        QStringList shown, patterns;
    } cases[] = {
        {"prl - Dateien (*.prl)|*.prl|Alle Dateien (*.*)|*.*",
         {"prl - Dateien (*.prl)", "Alle Dateien (*.*)"},
         {"prl - Dateien (*.prl) (*.prl)", "Alle Dateien (*.*) (*)"}},
        {"Bilder (*.bmp, *.gif, *.jpg)|*.bmp; *.gif; *.jpg",
         {"Bilder (*.bmp, *.gif, *.jpg)"},
         {"Bilder (*.bmp, *.gif, *.jpg) (*.bmp *.gif *.jpg)"}},
        {"SuMAnwendung.java|SuMAnwendung.java", {"SuMAnwendung.java"}, {"SuMAnwendung.java (SuMAnwendung.java)"}},
    };
    for (const auto& row : cases) {
        WhenShown<QFileDialog>([&row](QFileDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QString("Öffnen"));
            QCOMPARE(dialog.nameFilters(), row.patterns);
            const auto* const types = Part<QComboBox>(dialog, "fileTypeCombo");
            for (int index = 0; index < types->count(); ++index)
                QCOMPARE(types->itemText(index), row.shown[index]);
            dialog.reject();
        });
        dialogs_.ShowOpen({.Title = {}, .Filter = row.filter, .Flags = 0, .FileName = {}});
    }
}

std::string CommonDialogTest::Typed(const FileDialogSetup& setup, bool saves, const QString& name) {
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        dialog.setDirectory(QString::fromStdString(TextOf(folder_ / ".")));
        test::Type(dialog, "fileNameEdit", name);
        QTest::keyClick(Part<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    return saves ? dialogs_.ShowSave(setup) : dialogs_.ShowOpen(setup);
}

void CommonDialogTest::TakesNamesAsTheyAreTyped() {
    const FileDialogSetup setup = {.Title = "Titel",
                                   .Filter = "prl - Dateien (*.prl)|*.prl",
                                   .Flags = FileDialogSetup::FileMustExist,
                                   .FileName = {}};
    const std::string folder = TextOf(folder_ / "");
    QCOMPARE(Typed(setup, false, "a.prl"), folder + "a.prl");
    QCOMPARE(Typed(setup, false, "c.txt"), folder + "c.txt");
    // No question about the existing file, no ending added.
    QCOMPARE(Typed(setup, true, "a.prl"), folder + "a.prl");
    QCOMPARE(Typed(setup, true, "Größe"), folder + "Größe");
}

void CommonDialogTest::AsksForAnExistingFolder() {
    const FileDialogSetup setup = {
        .Title = {}, .Filter = {}, .Flags = FileDialogSetup::PathMustExist, .FileName = "SuMAnwendung.java"};
    const std::string good = TextOf(folder_ / "sub/new");
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        QCOMPARE(Part<QLineEdit>(dialog, "fileNameEdit")->text(), QString("SuMAnwendung.java"));
        Part<QLineEdit>(dialog, "fileNameEdit")->setText(QString::fromStdString(TextOf(folder_ / "missing/new")));
        WhenShown<QMessageBox>([&](QMessageBox& box) {
            QCOMPARE(box.text(),
                     QString::fromStdString("Der Ordner „" + TextOf(folder_ / "missing") + "“ ist nicht vorhanden."));
            WhenShown<QFileDialog>([&](QFileDialog& again) {
                Part<QLineEdit>(again, "fileNameEdit")->setText(QString::fromStdString(good));
                QTest::keyClick(Part<QLineEdit>(again, "fileNameEdit"), Qt::Key_Return);
            });
            box.accept();
        });
        QTest::keyClick(Part<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    QCOMPARE(dialogs_.ShowSave(setup), good);
}

void CommonDialogTest::CancelledDialogsGiveNothing() {
    const auto cancel = [] { WhenShown<QDialog>([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }); };
    cancel();
    QCOMPARE(dialogs_.ShowOpen({}), std::string());
    cancel();
    QCOMPARE(dialogs_.ShowSave({}), std::string());
    cancel();
    QVERIFY(!dialogs_.ShowColor(0));
    cancel();
    QVERIFY(!dialogs_.ShowFont({}));
    cancel();
    QVERIFY(!dialogs_.ShowPrinter());
}

void CommonDialogTest::ChoosesColoursAndFonts() {
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

void CommonDialogTest::ToolkitSpeaksGerman() {
    QDialogButtonBox buttons(QDialogButtonBox::Cancel | QDialogButtonBox::Save);
    QCOMPARE(buttons.button(QDialogButtonBox::Cancel)->text().remove('&'), QString("Abbrechen"));
    QCOMPARE(buttons.button(QDialogButtonBox::Save)->text().remove('&'), QString("Speichern"));
}

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::CommonDialogTest)
#include "frmCommonDialog_test.moc"
