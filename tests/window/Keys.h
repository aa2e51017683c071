#pragma once

#include "window/Forms.h"

#include <QApplication>
#include <QKeySequence>
#include <QTest>

namespace pirol {

/// Text and key presses that go wherever the focus is, as a user's do.
inline void Type(const QString& text) {
    for (const QChar sign : text)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(sign), Qt::NoModifier);
}

inline void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QCoreApplication::processEvents(); // Enter in an editor takes effect when it comes back to the event loop
}

/// What a user does in a form, with a blank after each step: "@cmdAdd" clicks a button, "F2" and "Alt+Up" press keys,
/// everything else is typed.
inline void Do(const QWidget& form, const QString& steps) {
    for (const QString& step : steps.split(' ')) {
        const QKeyCombination key = QKeySequence(step)[0];
        if (step.startsWith('@'))
            test::Click(form, qPrintable(step.mid(1)));
        else if (step.size() > 1 && key.key() != Qt::Key_unknown)
            Press(key.key(), key.keyboardModifiers());
        else
            Type(step);
    }
}

} // namespace pirol
