#pragma once

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>

namespace pirol {

/// Runs the steps once the next modal dialog has the focus, given the dialog. A dialog that is still open afterwards is
/// closed, so that a test that failed within the steps ends.
inline void WhenDialogOpens(const std::function<void(QDialog&)>& steps) {
    constexpr int pollingMilliseconds = 5;
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, steps] {
        const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isActiveWindow())
            return;
        timer->deleteLater();
        timer->stop();
        steps(*dialog);
        if (dialog != nullptr && dialog->isVisible())
            dialog->reject();
    });
    timer->start(pollingMilliseconds);
}

} // namespace pirol
