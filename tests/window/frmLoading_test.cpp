#include "project/frmLoading.h"
#include "project/ProjectFile.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QTest>

#include <chrono>

namespace pirol {
namespace {

// Milliseconds: loading that ends earlier shows no form, loading that takes longer does.
constexpr int unnoticed = 200;
constexpr int longEnough = 250;

/// Counts what a widget is asked to do.
class Count : public QObject {
  public:
    Count(QObject* watched, QEvent::Type type) : type_(type) { watched->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        events += event->type() == type_ ? 1 : 0;
        return false;
    }

    int events = 0;

  private:
    QEvent::Type type_;
};

class LoadingTest : public QObject {
    Q_OBJECT

  private slots:
    void ShowsWhatTheReaderTells();
    void RepaintsAtABoundedRate();
};

void LoadingTest::ShowsWhatTheReaderTells() {
    QWidget owner;
    owner.show();
    frmLoading form(&owner);
    const auto* const caption = form.findChild<QLabel*>("lblProcess");
    const auto* const bar = form.findChild<QProgressBar*>("Process");

    QElapsedTimer loading;
    loading.start();
    form.SetMaximum(500);
    form.SetCaption("Lade Komponenten . . .");
    form.SetValue(499);
    const bool visible = form.isVisible();
    // A busy machine may have taken that long for the lines above.
    QVERIFY2(!visible || loading.hasExpired(unnoticed), "a project that is read at once needs no form");
    QTest::qSleep(longEnough);
    form.SetCaption("Lade Komponenten . . .");
    QVERIFY(form.isVisible());
    QVERIFY(!form.isModal());
    QCOMPARE(bar->maximum(), 500);
    QCOMPARE(caption->text(), QString("Lade Komponenten . . ."));
    form.SetCaption("Lade Menüeinträge . . .");
    QCOMPARE(caption->text(), QString("Lade Menüeinträge . . ."));
    QCOMPARE(bar->value(), 499);

    QTest::keyClick(&form, Qt::Key_Escape);
    QVERIFY(form.isVisible());
}

void LoadingTest::RepaintsAtABoundedRate() {
    QWidget owner;
    owner.show();
    frmLoading form(&owner);
    const Count paints(form.findChild<QProgressBar*>("Process"), QEvent::Paint);
    constexpr int lines = 30'000'000;
    const auto start = std::chrono::steady_clock::now();
    form.SetMaximum(lines);
    QTest::qSleep(longEnough);
    form.SetCaption("Lade Komponenten . . .");
    for (int line = 0; line < lines; ++line)
        form.SetValue(line);
    const auto passed = std::chrono::steady_clock::now() - start;
    const auto most = passed / std::chrono::milliseconds(30) + 4;
    QVERIFY2(paints.events <= most, qPrintable(QString("%1 of at most %2").arg(paints.events).arg(most)));

    // The bar does move meanwhile.
    const int before = paints.events;
    QTest::qSleep(60);
    form.SetValue(lines);
    QCOMPARE(paints.events, before + 1);
}

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::LoadingTest)
#include "frmLoading_test.moc"
