#pragma once

#include <QObject>

#include <functional>
#include <string>

class QSessionManager;

namespace pirol {

/// Tells when the program is to end though the user did not ask for it here: the desktop's session ends, or the system
/// sends SIGTERM or SIGHUP. What is told then, with the reason in German,
/// runs at once, whatever dialog is open, and must not ask anything. Signals
/// end the program behind it; the end of a session may still be called off.
class EndWatch : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(EndWatch)

  public:
    /// There is one at a time, behind the QApplication.
    explicit EndWatch(std::function<void(const std::string& reason)> tell);
    ~EndWatch() override;

  private:
    void EndOfSession(QSessionManager& manager);
    void WatchSignals();
    void EndBySignal();

    std::function<void(const std::string&)> tell_;
    int pipe_ = -1; ///< the end that is read
};

} // namespace pirol
