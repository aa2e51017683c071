#include "ui/parts/DesktopWatch.h"
#include "ui/parts/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusVariant>
#include <QMap>
#include <QTemporaryDir>
#include <QTest>

namespace pirol {
namespace {

/// Answers as a desktop's portal does, each value wrapped twice.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

  public:
    void Change(const QString& key, uint value) {
        settings_[key] = value;
        emit SettingChanged("org.freedesktop.appearance", key, QDBusVariant(value));
    }

  public slots:
    QDBusVariant Read(const QString& group, const QString& key) const {
        const uint value = group == "org.freedesktop.appearance" ? settings_.value(key) : 7;
        return QDBusVariant(QVariant::fromValue(QDBusVariant(value)));
    }

  signals:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    QMap<QString, uint> settings_;
};

/// Run on a message bus of its own.
class DesktopWatchTest : public QObject {
    Q_OBJECT

  private slots:
    void TheLookFollowsThePortal() {
        const QTemporaryDir home;
        qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
        Portal portal;
        portal.Change("color-scheme", 1);
        QVERIFY(bus.registerObject("/org/freedesktop/portal/desktop", &portal,
                                   QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        QVERIFY(bus.registerService("org.freedesktop.portal.Desktop"));
        const Theme theme(Appearance::System);
        const auto looksLike = [](const tokens::Colours& colours) {
            return QApplication::palette() == PaletteOf(colours);
        };
        QVERIFY(looksLike(tokens::light)); // until the answer comes
        QTRY_VERIFY(looksLike(tokens::dark));
        portal.Change("contrast", 1);
        QTRY_VERIFY(looksLike(tokens::contrastDark));
        portal.Change("color-scheme", 2);
        QTRY_VERIFY(looksLike(tokens::contrastLight));
        portal.Change("contrast", 0);
        QTRY_VERIFY(looksLike(tokens::light));
        emit portal.SettingChanged("org.gnome.desktop.interface", "contrast", QDBusVariant(1u)); // another group
        portal.Change("color-scheme", 1);
        QTRY_VERIFY(looksLike(tokens::dark));
    }
};

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::DesktopWatchTest)

#include "DesktopWatch_test.moc"
