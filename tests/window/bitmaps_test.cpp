#include "designer/view/Bitmaps.h"

#include <QTest>

namespace pirol {

class BitmapsTest : public QObject {
    Q_OBJECT

  private slots:
    void UnknownNamesGiveNothing_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("unknown") << "NO_SUCH_BITMAP";
        QTest::newRow("empty") << "";
        QTest::newRow("other case") << "table_seperator";
        QTest::newRow("with its ending") << "TABLE_SEPERATOR.bmp";
    }

    void UnknownNamesGiveNothing() {
        QFETCH(QString, name);
        QVERIFY(Bitmap(name.toStdString()).isNull());
    }
};

} // namespace pirol

QTEST_MAIN(pirol::BitmapsTest)
#include "bitmaps_test.moc"
