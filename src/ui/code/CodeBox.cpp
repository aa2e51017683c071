#include "ui/code/CodeBox.h"

#include "ui/parts/FormParts.h"
#include "ui/parts/RunBeside.h"
#include "ui/parts/Theme.h"

#include <QFontDatabase>
#include <QMimeData>
#include <QTextBlock>
#include <QTextLayout>
#include <QWheelEvent>

#include <algorithm>

namespace pirol {
namespace {

constexpr int smallestPointSize = 6;
constexpr int largestPointSize = 48;
constexpr qsizetype charactersPerChunk = 50'000;

} // namespace

CodeBox::CodeBox(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setPalette(PaperPalette()); // the colours of the source are those of a white sheet
    // With a caret that shows, so that text can be selected with the keyboard.
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    setFont(fixed);
    firstPointSize_ = QFontInfo(fixed).pointSize();
    connect(&idle_, &QTimer::timeout, this, &CodeBox::LoadChunk);
}

void CodeBox::ShowSource(const QString& source) {
    source_ = source;
    RunBeside([this] {
        spans_ = HightlightSyntax(
            {reinterpret_cast<const char16_t*>(source_.utf16()), static_cast<std::size_t>(source_.size())});
    });
    clear();
    loaded_ = 0;
    coloured_.assign(1, false);
    LoadChunk();
    idle_.start();
}

void CodeBox::LoadChunk() {
    const qsizetype lineEnd = source_.indexOf('\n', loaded_ + charactersPerChunk);
    const qsizetype end = lineEnd < 0 ? source_.size() : lineEnd + 1;
    coloured_.back() = false; // the last line goes on with the chunk
    QTextCursor atEnd(document());
    atEnd.movePosition(QTextCursor::End);
    atEnd.insertText(source_.mid(loaded_, end - loaded_));
    coloured_.resize(static_cast<std::size_t>(blockCount()), false);
    if (loaded_ == 0)
        moveCursor(QTextCursor::Start);
    loaded_ = end;
    if (loaded_ == source_.size())
        idle_.stop();
}

void CodeBox::FinishLoading() {
    while (loaded_ < source_.size())
        LoadChunk();
}

void CodeBox::ColourAll() {
    FinishLoading();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        Colour(block);
}

CodeBox::Found CodeBox::Search(const QString& wanted, Direction direction, Qt::CaseSensitivity sensitivity) {
    FinishLoading();
    const QTextCursor selection = textCursor();
    const auto find = [&](qsizetype from) {
        return direction == Direction::Backward ? source_.lastIndexOf(wanted, from, sensitivity)
                                                : source_.indexOf(wanted, from, sensitivity);
    };
    Found found = Found::Ahead;
    qsizetype hit = -1;
    if (direction != Direction::Backward)
        hit = find(direction == Direction::Onward ? selection.selectionEnd() : selection.selectionStart());
    else if (selection.selectionStart() > 0) // a negative position would count from the end
        hit = find(selection.selectionStart() - 1);
    if (hit < 0) {
        found = Found::PastTheEnd;
        hit = find(direction == Direction::Backward ? source_.size() : 0);
    }
    if (hit < 0)
        return Found::Nowhere;
    QTextCursor there(document());
    there.setPosition(static_cast<int>(hit));
    there.setPosition(static_cast<int>(hit + wanted.size()), QTextCursor::KeepAnchor);
    setTextCursor(there);
    return found;
}

int CodeBox::ZoomPercent() const {
    return font().pointSize() * 100 / firstPointSize_;
}

void CodeBox::Zoom(int points) {
    SetPointSize(font().pointSize() + points);
}

void CodeBox::ResetZoom() {
    SetPointSize(firstPointSize_);
}

void CodeBox::SetPointSize(int size) {
    QFont zoomed = font();
    zoomed.setPointSize(std::clamp(size, smallestPointSize, largestPointSize));
    setFont(zoomed);
    emit Zoomed();
}

void CodeBox::keyPressEvent(QKeyEvent* event) {
    // Keys reach the end of the text and select all of it.
    FinishLoading();
    QPlainTextEdit::keyPressEvent(event);
}

QMimeData* CodeBox::createMimeDataFromSelection() const {
    const QTextCursor selection = textCursor();
    auto* data = new QMimeData;
    data->setText(source_.mid(selection.selectionStart(), selection.selectionEnd() - selection.selectionStart()));
    return data;
}

void CodeBox::paintEvent(QPaintEvent* event) {
    const int below = viewport()->height();
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        Colour(block);
        if (blockBoundingGeometry(block).translated(contentOffset()).bottom() > below)
            break;
    }
    QPlainTextEdit::paintEvent(event);
}

void CodeBox::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier) && event->angleDelta().y() != 0)
        Zoom(event->angleDelta().y() > 0 ? 1 : -1);
    else
        QPlainTextEdit::wheelEvent(event);
}

void CodeBox::Colour(const QTextBlock& block) {
    const auto line = static_cast<std::size_t>(block.blockNumber());
    if (coloured_[line])
        return;
    coloured_[line] = true;

    const auto begin = static_cast<std::size_t>(block.position());
    const std::size_t end = begin + static_cast<std::size_t>(block.length()) - 1;
    QList<QTextLayout::FormatRange> formats;
    auto span = std::partition_point(spans_.begin(), spans_.end(),
                                     [begin](const ColourSpan& other) { return other.begin + other.length <= begin; });
    for (; span != spans_.end() && span->begin < end; ++span) {
        const std::size_t from = std::max(span->begin, begin);
        const std::size_t to = std::min(span->begin + span->length, end);
        QTextCharFormat format;
        format.setForeground(ToColor(span->colour));
        formats.append({static_cast<int>(from - begin), static_cast<int>(to - from), format});
    }
    if (!formats.isEmpty())
        block.layout()->setFormats(formats);
}

} // namespace pirol
