#include "ui/canvas/InPlaceEditor.h"

#include <QKeyEvent>

#include <utility>

namespace pirol {

InPlaceEditor::InPlaceEditor(const QString& text, bool hasLines, QWidget* parent)
    : QPlainTextEdit(parent), hasLines_(hasLines) {
    setObjectName("txtInPlace");
    setAccessibleName(hasLines ? "Einträge, einer je Zeile" : "Beschriftung");
    setToolTip(hasLines ? "Strg+Eingabe: übernehmen    Esc: verwerfen" : "Eingabe: übernehmen    Esc: verwerfen");
    setTabChangesFocus(true);
    setLineWrapMode(NoWrap);
    if (!hasLines) {
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    document()->setDocumentMargin(2);
    setPlainText(text);
    selectAll();
}

/// Keys that are commands of the window elsewhere belong to the text here.
bool InPlaceEditor::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.key() == Qt::Key_Delete || key.key() == Qt::Key_Escape || key.key() == Qt::Key_Return)
            event->accept();
    }
    return QPlainTextEdit::event(event);
}

void InPlaceEditor::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        Reject();
    else if (isEnter && (!hasLines_ || event->modifiers().testFlag(Qt::ControlModifier)))
        Accept();
    else
        QPlainTextEdit::keyPressEvent(event);
    event->accept(); // the canvas below has other uses for what is left over
}

void InPlaceEditor::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    // Its own context menu is part of it, and another program gives the keyboard back.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        Accept();
}

void InPlaceEditor::Accept() {
    if (isOpen_) {
        isOpen_ = false;
        emit Accepted(toPlainText());
        Close();
    }
}

void InPlaceEditor::Reject() {
    if (std::exchange(isOpen_, false))
        Close();
}

void InPlaceEditor::Close() {
    const bool hadFocus = hasFocus();
    hide();
    if (hadFocus && parentWidget() != nullptr)
        parentWidget()->setFocus(Qt::OtherFocusReason);
    deleteLater();
}

} // namespace pirol
