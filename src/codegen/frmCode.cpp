#include "codegen/frmCode.h"

#include "designer/view/FormParts.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QVBoxLayout>

#include <algorithm>

namespace pirol {
namespace {

constexpr QSize usualSize(760, 600);
constexpr double smallestPointSize = 5;
constexpr double largestPointSize = 60;

QTextCharFormat FormatOf(const Colour& colour) {
    QTextCharFormat format;
    format.setForeground(QColor(colour.red, colour.green, colour.blue));
    return format;
}

} // namespace

frmCode::frmCode(std::string_view source, QWidget* owner)
    : QDialog(owner), rtfCode_(Named(new QPlainTextEdit, "rtfCode", "Erzeugter Java-Quelltext")) {
    setObjectName("frmCode");
    setWindowTitle("Pirol - SuMAnwendung.java");
    resize(usualSize);

    rtfCode_->setReadOnly(true);
    // A read-only box shows no caret otherwise, and the keyboard needs one to select text.
    rtfCode_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    rtfCode_->setLineWrapMode(QPlainTextEdit::NoWrap);
    rtfCode_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    usualPointSize_ = rtfCode_->font().pointSizeF();
    rtfCode_->setPlainText(ToText(source));
    spans_ = HightlightSyntax(rtfCode_->toPlainText().toStdU16String());

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(NewFindBar());
    layout->addWidget(rtfCode_);
    layout->addLayout(NewButtonRow());
    rtfCode_->setFocus();

    connect(rtfCode_, &QPlainTextEdit::updateRequest, this, &frmCode::ColourVisibleText);
    const auto onKey = [this](const QKeySequence& key, auto action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    onKey(QKeySequence::Find, [this] { StartFinding(); });
    onKey(Qt::Key_F3, [this] { Find(true); });
    onKey(Qt::SHIFT | Qt::Key_F3, [this] { Find(false); });
    onKey(QKeySequence::ZoomIn, [this] { Zoom(1); });
    onKey(Qt::CTRL | Qt::Key_Equal, [this] { Zoom(1); });
    onKey(QKeySequence::ZoomOut, [this] { Zoom(-1); });
    onKey(Qt::CTRL | Qt::Key_0, [this] { Zoom(0); });
}

QLayout* frmCode::NewFindBar() {
    auto* bar = new QHBoxLayout;
    txtFind_ = Named(new QLineEdit, "txtFind", "Suchtext");
    txtFind_->setClearButtonEnabled(true);
    auto* caption = new QLabel("S&uchen:");
    caption->setBuddy(txtFind_);
    lblFound_ = Named(new QLabel, "lblFound", "Ergebnis der Suche");
    QPushButton* next = NewButton("cmdFindNext", "&Weiter", "Sucht vorwärts (F3)");
    QPushButton* previous = NewButton("cmdFindPrevious", "&Zurück", "Sucht rückwärts (Umschalt+F3)");
    for (QPushButton* button : {next, previous})
        button->setAutoDefault(false);
    connect(txtFind_, &QLineEdit::returnPressed, this, [this] { Find(true); });
    connect(next, &QPushButton::clicked, this, [this] { Find(true); });
    connect(previous, &QPushButton::clicked, this, [this] { Find(false); });
    for (QWidget* part : {static_cast<QWidget*>(caption), static_cast<QWidget*>(txtFind_), static_cast<QWidget*>(next),
                          static_cast<QWidget*>(previous)})
        bar->addWidget(part);
    bar->addWidget(lblFound_);
    return bar;
}

QLayout* frmCode::NewButtonRow() {
    auto* row = new QHBoxLayout;
    QPushButton* all = NewButton("cmdSelectAll", "&Alles markieren", "Markiert den ganzen Quelltext (Strg+A)");
    QPushButton* copy = NewButton("cmdCopy", "&Kopieren", "Kopiert den markierten Text, sonst den ganzen (Strg+C)");
    QPushButton* close = NewButton("cmdClose", "&Schließen", "Schließt die Anzeige (Esc)");
    for (QPushButton* button : {all, copy, close})
        button->setAutoDefault(false);
    connect(all, &QPushButton::clicked, rtfCode_, [this] {
        rtfCode_->selectAll();
        rtfCode_->setFocus();
    });
    connect(copy, &QPushButton::clicked, rtfCode_, [this] {
        if (!rtfCode_->textCursor().hasSelection())
            rtfCode_->selectAll();
        rtfCode_->copy();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    row->addWidget(all);
    row->addWidget(copy);
    row->addStretch();
    row->addWidget(close);
    return row;
}

/// Only what is seen is coloured: the box lays out and paints a hundred thousand lines no faster than it must.
void frmCode::ColourVisibleText() {
    if (colouring_)
        return;
    const QTextCursor first = rtfCode_->cursorForPosition(QPoint(0, 0));
    const QTextCursor last = rtfCode_->cursorForPosition(QPoint(0, rtfCode_->viewport()->height()));
    const auto begin = static_cast<std::size_t>(first.block().position());
    const auto end = static_cast<std::size_t>(last.block().position() + last.block().length());
    if (begin == colouredBegin_ && end == colouredEnd_)
        return;
    colouredBegin_ = begin;
    colouredEnd_ = end;
    auto span = std::partition_point(spans_.begin(), spans_.end(),
                                     [begin](const ColourSpan& s) { return s.begin + s.length <= begin; });
    QList<QTextEdit::ExtraSelection> coloured;
    for (; span != spans_.end() && span->begin < end; ++span) {
        QTextEdit::ExtraSelection selection;
        selection.cursor = QTextCursor(rtfCode_->document());
        selection.cursor.setPosition(static_cast<int>(span->begin));
        selection.cursor.setPosition(static_cast<int>(span->begin + span->length), QTextCursor::KeepAnchor);
        selection.format = FormatOf(span->colour);
        coloured.push_back(selection);
    }
    // Setting them makes the box ask for updates, which lead here again.
    colouring_ = true;
    rtfCode_->setExtraSelections(coloured);
    colouring_ = false;
}

void frmCode::StartFinding() {
    txtFind_->setFocus(Qt::ShortcutFocusReason);
    txtFind_->selectAll();
}

/// From the caret on; at the end the search goes on at the other one.
void frmCode::Find(bool forward) {
    const QString text = txtFind_->text();
    if (text.isEmpty())
        return StartFinding();
    const QTextDocument::FindFlags flags = forward ? QTextDocument::FindFlags() : QTextDocument::FindBackward;
    bool found = rtfCode_->find(text, flags);
    if (!found) {
        const QTextCursor before = rtfCode_->textCursor();
        rtfCode_->moveCursor(forward ? QTextCursor::Start : QTextCursor::End);
        found = rtfCode_->find(text, flags);
        if (!found)
            rtfCode_->setTextCursor(before);
    }
    lblFound_->setText(found ? QString() : QString("nicht gefunden"));
}

/// One step larger or smaller; 0 steps give the usual size.
void frmCode::Zoom(int steps) {
    QFont font = rtfCode_->font();
    const double size = steps == 0 ? usualPointSize_ : font.pointSizeF() + steps;
    font.setPointSizeF(std::clamp(size, smallestPointSize, largestPointSize));
    rtfCode_->setFont(font);
}

} // namespace pirol
