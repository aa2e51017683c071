#include "Cases.h"
#include "ui/canvas/DesignImage.h"
#include "ui/dialogs/frmPicture.h"
#include "ui/MainWindow.h"
#include "ui/parts/FormParts.h"

#include <QClipboard>
#include <QMimeData>
#include <QProcess>
#include <QStandardPaths>

namespace pirol::test {

/// The picture of a design for worksheets.
class PictureTest : public QObject {
    Q_OBJECT

  private slots:
    void ItIsSavedAndCopiedWithAFrameAndWithout() {
        const ScratchFolder folder;
        const std::string path = TextOf(folder / "a.png");
        MainWindow main;
        Draw(main);
        const QImage design = DesignImage(main.window.Model(), {1000, 1000}, PicturesOf(main.window.Model()));
        for (const bool framed : {true, false}) {
            main.dialogs.paths = {path};
            main.dialogs.yes = {true};
            WhenShown<frmPicture>(
                [&](frmPicture& form) { Do(form, framed ? "@cmdCopy @cmdPng" : "@chkFrame @cmdCopy @cmdPng"); });
            main.Command("mnuProjectExportPicture")->trigger();
            QImage saved(ToText(path));
            QCOMPARE(QImage::fromData(QApplication::clipboard()->mimeData()->data("image/png")), saved);
            QCOMPARE(saved.size().width() > design.width(), framed);
            const QPoint corner = framed ? QPoint(1, saved.height() - design.height() - 1) : QPoint(0, 0);
            QCOMPARE(saved.copy(QRect(corner, design.size())).convertToFormat(QImage::Format_RGB32), design);
        }
    }

    void LettersStayLettersInPdf() {
        if (QStandardPaths::findExecutable("pdftotext").isEmpty())
            QSKIP("needs pdftotext");
        const ScratchFolder folder;
        MainWindow main;
        Draw(main);
        main.dialogs.paths = {TextOf(folder / "a.pdf")};
        WhenShown<frmPicture>([](frmPicture& form) { Click(form, "cmdPdf"); });
        main.Command("mnuProjectExportPicture")->trigger();
        QProcess reader;
        reader.start("pdftotext", {ToText(TextOf(folder / "a.pdf")), "-"});
        QVERIFY(reader.waitForFinished());
        const QString text = QString::fromUtf8(reader.readAllStandardOutput());
        QVERIFY2(text.contains("Zeit für Öffnung AVA Typ"), qPrintable(text));
    }

  private:
    static void Draw(MainWindow& main) {
        main.Edit([](ProjectModel& model) {
            model.SetWindowSize(400, 300);
            const ComponentRef label = model.PlaceComponent(ComponentKind::Label, {10, 20, 300, 30});
            static_cast<dEtikett&>(model.EditElement(label)).Caption = "Zeit für Öffnung AVA Typ";
            model.PlaceComponent(ComponentKind::Table, {-20, 60, 300, 300});
        });
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::PictureTest)
#include "picture_test.moc"
