#pragma once

#include "ui/parts/Theme.h"

#include <QObject>

#ifdef _WIN32
#include <QAbstractNativeEventFilter>
#else
class QDBusVariant;
#endif

namespace pirol {

/// Knows the look that the desktop asks for and tells of every change. On Windows it reads the registry; elsewhere it
/// asks the desktop's portal, and nobody waits for the answer.
class DesktopWatch : public QObject
#ifdef _WIN32
    ,
                     public QAbstractNativeEventFilter
#endif
{
    Q_OBJECT

  public:
    explicit DesktopWatch(QObject* parent);
    ~DesktopWatch() override;

    /// Told comes when the answer is there, also when nobody answers.
    void Ask();

  signals:
    void Told(const pirol::DesktopLook& look);

  private:
    void Take(const DesktopLook& look);
#ifdef _WIN32
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
#else
    void Read(const QString& key);
    void Note(const QString& key, const QVariant& value);
  private slots:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);
#endif

  private:
    std::optional<DesktopLook> look_;
};

} // namespace pirol
