#include "ui/parts/DesktopWatch.h"

#ifdef _WIN32
#include <QCoreApplication>
#include <QSettings>

#include <windows.h>
#else
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#endif

namespace pirol {

void DesktopWatch::Take(const DesktopLook& look) {
    if (look == look_)
        return;
    look_ = look;
    emit Told(look);
}

#ifdef _WIN32

DesktopWatch::DesktopWatch(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installNativeEventFilter(this);
}

DesktopWatch::~DesktopWatch() {
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

void DesktopWatch::Ask() {
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof(contrast);
    const bool isHigh = SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) != 0 &&
                        (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
    const QSettings personal("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                             QSettings::NativeFormat);
    Take({.isDark = personal.value("AppsUseLightTheme", 1).toInt() == 0, .hasHighContrast = isHigh});
}

bool DesktopWatch::nativeEventFilter(const QByteArray&, void* message, qintptr*) {
    const auto* const msg = static_cast<const MSG*>(message);
    if (msg->message == WM_SETTINGCHANGE || msg->message == WM_THEMECHANGED)
        QMetaObject::invokeMethod(this, &DesktopWatch::Ask, Qt::QueuedConnection);
    return false;
}

#else

namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* object = "/org/freedesktop/portal/desktop";
constexpr const char* interface = "org.freedesktop.portal.Settings";
constexpr const char* appearanceGroup = "org.freedesktop.appearance";
constexpr const char* schemeKey = "color-scheme";
constexpr const char* contrastKey = "contrast";

/// Without a bus that is there already, asking would start one, and the window would wait.
bool HasBus() {
    const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return !address.startsWith("disabled:");
    return QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

} // namespace

DesktopWatch::DesktopWatch(QObject* parent) : QObject(parent) {
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    if (HasBus())
        QDBusConnection::sessionBus().connect(service, object, interface, "SettingChanged", this,
                                              SLOT(SettingChanged(QString, QString, QDBusVariant)));
}

DesktopWatch::~DesktopWatch() = default;

void DesktopWatch::Ask() {
    if (!HasBus())
        return Take({});
    Read(schemeKey);
    Read(contrastKey);
}

void DesktopWatch::Read(const QString& key) {
    QDBusMessage call = QDBusMessage::createMethodCall(service, object, interface, "Read");
    call << appearanceGroup << key;
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, key, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        Note(key, reply.isValid() ? reply.value().variant().value<QDBusVariant>().variant() // wrapped twice
                                  : QVariant());
        answer->deleteLater();
    });
}

void DesktopWatch::SettingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == appearanceGroup)
        Note(key, value.variant());
}

void DesktopWatch::Note(const QString& key, const QVariant& value) {
    DesktopLook look = look_.value_or(DesktopLook());
    if (key == schemeKey)
        look.isDark = value.toUInt() == 1;
    else if (key == contrastKey)
        look.hasHighContrast = value.toUInt() == 1;
    Take(look);
}

#endif

} // namespace pirol
