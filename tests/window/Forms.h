#pragma once

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QTest>

namespace pirol::test {

/// A part of a form by its name; the test ends when there is none.
template <class Widget>
Widget* Part(const QWidget& form, const char* name) {
    auto* const part = form.findChild<Widget*>(name);
    if (part == nullptr)
        qFatal("%s has no %s", qPrintable(form.objectName()), name);
    return part;
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

} // namespace pirol::test
