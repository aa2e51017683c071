#pragma once

#include <QApplication>
#include <QTest>

namespace pirol {

/// Key presses that go wherever the focus is, as a user's do.
inline void Type(const QString& text) {
    for (const QChar character : text)
        QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
}

inline void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QCoreApplication::processEvents(); // Enter in an editor takes effect when it comes back to the event loop
}

} // namespace pirol
