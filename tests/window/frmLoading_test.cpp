#include "project/frmLoading.h"
#include "window/Forms.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>

namespace pirol::test {

// Milliseconds: loading that ends earlier shows no form, loading that takes longer does.
constexpr int unnoticed = 200;
constexpr int longEnough = 250;

class LoadingTest : public QObject {
    Q_OBJECT

  private slots:
    void ShowsWhatTheReaderTellsAtABoundedRate() {
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
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::LoadingTest)
#include "frmLoading_test.moc"
