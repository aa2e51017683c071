#include "app/frmError.h"
#include "app/frmProjectSettings.h"
#include "window/Forms.h"

#include <QPlainTextEdit>

namespace pirol {
namespace {

using test::Click;
using test::Part;
using test::Type;

class ProjectSettingsTest : public QObject {
    Q_OBJECT

  private slots:
    void KeepsTheProportion_data();
    void KeepsTheProportion();
    void Accepts();
    void CancelKeepsTheOldValues();
    void ReportsASizeOutOfRange();
};

void ProjectSettingsTest::KeepsTheProportion_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("width");
    QTest::addColumn<QString>("height");
    QTest::newRow("width") << "txtWidth"
                           << "800"
                           << "800"
                           << "600";
    QTest::newRow("height") << "txtHeight"
                            << "240"
                            << "320"
                            << "240";
    QTest::newRow("half to even") << "txtWidth"
                                  << "2"
                                  << "2"
                                  << "2";
    QTest::newRow("letter") << "txtWidth"
                            << "x"
                            << "640"
                            << "480";
    QTest::newRow("nothing") << "txtHeight"
                             << ""
                             << "640"
                             << "480";
}

void ProjectSettingsTest::KeepsTheProportion() {
    QFETCH(QString, field);
    QFETCH(QString, typed);
    QFETCH(QString, width);
    QFETCH(QString, height);
    frmProjectSettings form({640, 480, ""}, nullptr);
    form.show();
    Type(form, field.toLatin1(), typed);
    QCOMPARE(Part<QLineEdit>(form, "txtWidth")->text(), width);
    QCOMPARE(Part<QLineEdit>(form, "txtHeight")->text(), height);
}

void ProjectSettingsTest::Accepts() {
    frmProjectSettings form({640, 480, "A"}, nullptr);
    form.show();
    Type(form, "txtHeight", "300");
    Type(form, "txtAuthor", "Jürgen");
    QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    QVERIFY(!form.isVisible());
    QCOMPARE(form.result(), int(QDialog::Accepted));
    QVERIFY((form.Settings() == WindowSettings{400, 300, "Jürgen"}));
}

void ProjectSettingsTest::CancelKeepsTheOldValues() {
    const WindowSettings stored = {640, 480, "A"};
    for (const char* const button : {"cmdCancel", ""}) {
        frmProjectSettings form(stored, nullptr);
        form.show();
        Type(form, "txtWidth", "100");
        if (*button == '\0')
            QTest::keyClick(&form, Qt::Key_Escape);
        else
            Click(form, button);
        QVERIFY(!form.isVisible());
        QCOMPARE(form.result(), int(QDialog::Rejected));
        QVERIFY(form.Settings() == stored);
    }
}

void ProjectSettingsTest::ReportsASizeOutOfRange() {
    frmProjectSettings form({640, 480, ""}, nullptr);
    form.show();
    Type(form, "txtWidth", "32768");
    QString report;
    test::WhenShown<frmError>([&report](frmError& error) {
        report = Part<QPlainTextEdit>(error, "txtError")->toPlainText();
        Click(error, "cmdClose");
    });
    Click(form, "cmdAccept");
    QVERIFY2(report.startsWith("Fehlernummer: 6\nFehlerbeschreibung: Überlauf\n"), qPrintable(report));
    QVERIFY(form.isVisible());
    QVERIFY((form.Settings() == WindowSettings{640, 480, ""}));
}

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::ProjectSettingsTest)
#include "frmProjectSettings_test.moc"
