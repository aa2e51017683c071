#include "project/frmLoading.h"
#include "window/Forms.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>

namespace pirol {
namespace {

// Milliseconds: loading that ends earlier shows no form, loading that takes longer does.
constexpr int unnoticed = 200;
constexpr int longEnough = 250;

/// Counts how often a widget is painted.
class PaintCount : public QObject {
  public:
    explicit PaintCount(QObject* watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int paints = 0;
};

} // namespace

class LoadingTest : public QObject {
    Q_OBJECT

  private slots:
    void ShowsWhatTheReaderTellsAtABoundedRate() {
        frmLoading form(nullptr);
        const auto* const caption = test::Part<QLabel>(form, "lblProcess");
        auto* const bar = test::Part<QProgressBar>(form, "Process");
        const PaintCount count(bar);
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
        QVERIFY(form.isVisible());
        QVERIFY(!form.isModal());
        QCOMPARE(bar->maximum(), lines);
        QCOMPARE(bar->value(), 499);
        QCOMPARE(caption->text(), QString("Lade Menüeinträge . . ."));
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(form.isVisible());

        for (int line = 500; line < lines; ++line)
            form.SetValue(line);
        const qint64 most = loading.elapsed() / 30 + 4;
        QVERIFY2(count.paints <= most, qPrintable(QString("%1 of at most %2").arg(count.paints).arg(most)));

        // The bar does move meanwhile.
        const int before = count.paints;
        QTest::qSleep(60);
        form.SetValue(lines);
        QCOMPARE(count.paints, before + 1);
    }
};

} // namespace pirol

QTEST_MAIN(pirol::LoadingTest)
#include "frmLoading_test.moc"
