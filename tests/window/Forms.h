#pragma once

#include "app/frmError.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace pirol::test {

/// A part of a form by its name; the test ends when there is none.
template <class Widget>
Widget* Part(const QWidget& form, const char* name) {
    auto* const part = form.findChild<Widget*>(name);
    if (part == nullptr)
        qFatal("%s has no %s", qPrintable(form.objectName()), name);
    return part;
}

/// Shows a window and waits until it has the keyboard.
inline void Show(QWidget& window) {
    window.show();
    if (!QTest::qWaitForWindowActive(&window))
        qFatal("%s was not activated", qPrintable(window.objectName()));
}

/// Clicks a button with the mouse, near its left edge, where option buttons have their mark.
inline void Click(const QWidget& form, const char* name) {
    auto* const button = Part<QAbstractButton>(form, name);
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, {6, button->height() / 2});
}

/// Types over what a field holds.
inline void Type(const QWidget& form, const char* name, const QString& text) {
    auto* const field = Part<QLineEdit>(form, name);
    field->setFocus();
    QTest::keySequence(field, QKeySequence::SelectAll);
    if (text.isEmpty())
        QTest::keyClick(field, Qt::Key_Delete);
    for (const QChar sign : text)
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(sign), Qt::NoModifier);
}

/// Answers the next modal dialog of this kind once it is shown and has the keyboard; the test ends when none comes.
/// Keys sent any earlier would reach the window behind it, which no user's key does.
template <class Dialog, class Answer>
void WhenShown(Answer answer, int triesLeft = 500) {
    QTimer::singleShot(10, [answer, triesLeft] {
        const QPointer<Dialog> dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog.isNull() && QApplication::activeWindow() == dialog) {
            answer(*dialog);
            // A check that fails leaves the answer early; the test must not wait for the rest of it.
            if (QTest::currentTestFailed() && !dialog.isNull())
                dialog->reject();
            return;
        }
        if (triesLeft == 0)
            qFatal("no %s is shown", Dialog::staticMetaObject.className());
        WhenShown<Dialog>(answer, triesLeft - 1);
    });
}

/// Notes the text of the error report that comes next, and closes it.
inline void ExpectError(QString& text) {
    text.clear();
    WhenShown<frmError>([&text](frmError& report) {
        text = Part<QPlainTextEdit>(report, "txtError")->toPlainText();
        report.reject();
    });
}

} // namespace pirol::test
