#pragma once

#include "Tables.h"
#include "ui/parts/frmError.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QKeySequence>
#include <QPaintEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <array>

namespace pirol::test {

/// A part of a form by its name; the test ends when there is none.
template <class Widget>
Widget* Part(const QWidget& form, const QString& name) {
    auto* const part = form.findChild<Widget*>(name);
    if (part == nullptr)
        qFatal("%s has no %s", qPrintable(form.objectName()), qPrintable(name));
    return part;
}

/// Shows a window and waits until it has the keyboard.
inline void Show(QWidget& window) {
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        qFatal("%s was not activated", qPrintable(window.objectName()));
}

/// Clicks a part of a form with the mouse, near its left edge, where option buttons have their mark.
inline void Click(const QWidget& form, const QString& name) {
    auto* const part = Part<QWidget>(form, name);
    Show(*part->window()); // another one may have had the keyboard and been closed
    QTest::mouseClick(part, Qt::LeftButton, {}, {6, part->height() / 2});
}

/// The row of a list or a tree that shows a text.
inline QModelIndex FindRow(const QAbstractItemView& list, const QString& text) {
    return list.model()
        ->match(list.model()->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly | Qt::MatchRecursive)
        .value(0);
}

/// Clicks a row of a list.
inline void ClickRow(const QAbstractItemView& list, int row) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(row, 0)).center());
}

/// Presses a key wherever the focus is, as a user does.
inline void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QCoreApplication::processEvents(); // Enter in an editor takes effect when it comes back to the event loop
}

/// What a user does in a form, with a blank after each step: "@cmdAdd" clicks that part, "F2" and "Alt+Up" press keys,
/// everything else is typed.
inline void Do(const QWidget& form, const QString& steps) {
    for (const QString& step : steps.split(' ')) {
        const QKeyCombination key = QKeySequence(step)[0];
        if (step.startsWith('@'))
            Click(form, step.mid(1));
        else if (step.size() > 1 && key.key() != Qt::Key_unknown)
            Press(key.key(), key.keyboardModifiers());
        else
            for (const QChar sign : step)
                QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, sign, Qt::NoModifier);
    }
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

/// The data of a test that runs once for each line of a table of cases; the line's first field is its name.
inline void AddRows(const char* table) {
    QTest::addColumn<TableRow>("row");
    for (const TableRow& row : Table(table))
        QTest::newRow(row[0].c_str()) << row;
}

/// The fields behind the name, of the line that the test runs with.
template <std::size_t count>
std::array<QString, count> CurrentRow() {
    QFETCH(const TableRow, row);
    std::array<QString, count> fields;
    for (std::size_t field = 0; field < count; ++field)
        fields.at(field) = QString::fromStdString(row[field + 1]);
    return fields;
}

/// Adds up what a widget is asked to paint.
class PaintCounter : public QObject {
  public:
    explicit PaintCounter(QWidget* watched) { watched->installEventFilter(this); }

    int TakePixels() {
        QApplication::processEvents();
        return std::exchange(pixels_, 0);
    }
    int Paints() const { return paints_; }

  private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++paints_;
            for (const QRect& rect : static_cast<QPaintEvent*>(event)->region())
                pixels_ += rect.width() * rect.height();
        }
        return false;
    }

    int pixels_ = 0;
    int paints_ = 0;
};

/// Notes the text of the error report that comes next, and closes it.
inline void ExpectError(QString& text) {
    text.clear();
    WhenShown<frmError>([&text](frmError& report) {
        text = Part<QPlainTextEdit>(report, "txtError")->toPlainText();
        report.reject();
    });
}

} // namespace pirol::test
