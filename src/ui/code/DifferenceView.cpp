#include "ui/code/DifferenceView.h"

#include "ui/parts/FormParts.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextLayout>

#include <algorithm>

namespace pirol {
namespace {

/// Nobody reads further, and laying out takes time.
constexpr qsizetype mostCharacters = 2000;
constexpr int tabCharacters = 4;
constexpr int rowsAbove = 3; ///< of what is brought into sight
constexpr int margin = 4;
constexpr int markWidth = 4;

/// What a row is tinted with, by the share of the colour.
constexpr double tint = 0.16;
constexpr double fillerTint = 0.06;

QColor Mixed(const QColor& base, const QColor& colour, double share) {
    const auto mix = [share](int from, int to) { return static_cast<int>(from + (to - from) * share); };
    return {mix(base.red(), colour.red()), mix(base.green(), colour.green()), mix(base.blue(), colour.blue())};
}

const QColor gone(220, 40, 30);
const QColor added(20, 150, 50);

} // namespace

DifferenceView::DifferenceView(QWidget* parent) : QAbstractScrollArea(parent), sources_{SourceOf({}), SourceOf({})} {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    viewport()->setBackgroundRole(QPalette::Base);
}

DifferenceView::Source DifferenceView::SourceOf(std::string_view text) {
    Source source;
    source.text = ToText(text).replace("\r\n", "\n").replace('\r', '\n');
    for (qsizetype begin = 0; begin < source.text.size();) {
        source.lineBegins.push_back(begin);
        const qsizetype end = source.text.indexOf('\n', begin);
        begin = end < 0 ? source.text.size() : end + 1;
    }
    source.lineBegins.push_back(source.text.size());
    source.spans = HightlightSyntax(
        {reinterpret_cast<const char16_t*>(source.text.utf16()), static_cast<std::size_t>(source.text.size())});
    return source;
}

void DifferenceView::ShowSources(std::string_view before, std::string_view after) {
    const std::vector<std::string_view> oldLines = LinesOf(before);
    rows_ = SideBySide(LineDifferences(oldLines, LinesOf(after)), oldLines.size());
    sources_ = {SourceOf(before), SourceOf(after)};
    qsizetype longest = 0;
    for (const Source& source : sources_)
        for (std::size_t line = 0; line < source.LineCount(); ++line)
            longest = std::max(longest, source.lineBegins[line + 1] - source.lineBegins[line]);
    longestLine_ = static_cast<int>(std::min(longest, mostCharacters));
    SetUpBars();
    current_ = -1;
    if (rows_.DifferenceCount() > 0)
        GoToDifference(0);
    else
        SetCurrent(-1);
    viewport()->update();
}

// --- Where things are -------------------------------------------------------------------------------------------

int DifferenceView::RowHeight() const {
    return fontMetrics().lineSpacing() + 1;
}

int DifferenceView::GutterWidth() const {
    const std::size_t lines = std::max(sources_[Old].LineCount(), sources_[New].LineCount());
    return fontMetrics().horizontalAdvance('9') * static_cast<int>(QString::number(lines).size()) + 2 * margin +
           markWidth;
}

QRect DifferenceView::ColumnOf(Side side) const {
    const int middle = viewport()->width() / 2;
    return side == Old ? QRect(0, 0, middle, viewport()->height())
                       : QRect(middle + 1, 0, viewport()->width() - middle - 1, viewport()->height());
}

void DifferenceView::SetUpBars() {
    const int rowsInSight = std::max(viewport()->height() / RowHeight(), 1);
    verticalScrollBar()->setRange(0, std::max(static_cast<int>(rows_.RowCount()) - rowsInSight, 0));
    verticalScrollBar()->setPageStep(rowsInSight);
    const int room = ColumnOf(Old).width() - GutterWidth() - 2 * margin;
    const int needed = longestLine_ * fontMetrics().averageCharWidth();
    horizontalScrollBar()->setRange(0, std::max(needed - room, 0));
    horizontalScrollBar()->setPageStep(std::max(room, 1));
    horizontalScrollBar()->setSingleStep(fontMetrics().averageCharWidth() * tabCharacters);
}

void DifferenceView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    SetUpBars();
}

void DifferenceView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        SetUpBars();
}

void DifferenceView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Home)
        verticalScrollBar()->setValue(0);
    else if (event->key() == Qt::Key_End)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    else
        QAbstractScrollArea::keyPressEvent(event);
}

void DifferenceView::GoToRow(std::size_t row) {
    verticalScrollBar()->setValue(std::max(static_cast<int>(row) - rowsAbove, 0));
}

void DifferenceView::GoToDifference(int difference) {
    SetCurrent(difference);
    GoToRow(rows_.FirstRow(static_cast<std::size_t>(difference)));
}

void DifferenceView::GoToOldLine(std::size_t line) {
    const std::size_t row = rows_.RowOfOldLine(line);
    if (const auto difference = rows_.DifferenceAt(row))
        SetCurrent(static_cast<int>(*difference));
    GoToRow(row);
}

void DifferenceView::GoToNewLine(std::size_t line) {
    const std::size_t row = rows_.RowOfNewLine(line);
    if (const auto difference = rows_.DifferenceAt(row))
        SetCurrent(static_cast<int>(*difference));
    GoToRow(row);
}

void DifferenceView::SetCurrent(int difference) {
    current_ = difference;
    setAccessibleDescription(difference < 0
                                 ? QStringLiteral("Keine Unterschiede")
                                 : QString("Unterschied %1 von %2").arg(difference + 1).arg(DifferenceCount()));
    viewport()->update();
    emit CurrentChanged();
}

// --- Painting ---------------------------------------------------------------------------------------------------

void DifferenceView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().base());
    const auto first = static_cast<std::size_t>(verticalScrollBar()->value());
    int top = 0;
    for (std::size_t row = first; row < rows_.RowCount() && top < viewport()->height(); ++row, top += RowHeight())
        PaintRow(painter, row, top);
    painter.fillRect(viewport()->width() / 2, 0, 1, viewport()->height(), palette().mid());
}

void DifferenceView::PaintRow(QPainter& painter, std::size_t row, int top) const {
    const SideBySide::Row shown = rows_[row];
    const QColor base = palette().color(QPalette::Base);
    for (const Side side : {Old, New}) {
        const QRect column = ColumnOf(side);
        const QRect box(column.left(), top, column.width(), RowHeight());
        const std::optional<std::size_t> line = side == Old ? shown.oldLine : shown.newLine;
        const QColor& colour = side == Old ? gone : added;
        if (shown.differs && line)
            painter.fillRect(box, Mixed(base, colour, tint));
        else if (shown.differs)
            painter.fillRect(box, Mixed(base, palette().color(QPalette::Text), fillerTint));
        if (shown.differs && current_ >= 0 && rows_.DifferenceAt(row) == static_cast<std::size_t>(current_))
            painter.fillRect(box.left(), top, markWidth, box.height(), palette().highlight());
        if (line)
            PaintSide(painter, side, *line, box);
    }
}

QString DifferenceView::LineText(const Source& source, std::size_t line) const {
    const qsizetype begin = source.lineBegins[line];
    qsizetype length = source.lineBegins[line + 1] - begin;
    if (length > 0 && source.text[begin + length - 1] == '\n')
        --length;
    return source.text.mid(begin, std::min(length, mostCharacters));
}

void DifferenceView::PaintSide(QPainter& painter, Side side, std::size_t line, const QRect& box) const {
    const Source& source = sources_[side];
    const int gutter = GutterWidth();
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(QRect(box.left(), box.top(), gutter - margin, box.height()), Qt::AlignRight | Qt::AlignVCenter,
                     QString::number(line + 1));

    const auto begin = static_cast<std::size_t>(source.lineBegins[line]);
    const QString text = LineText(source, line);
    const std::size_t end = begin + static_cast<std::size_t>(text.size());
    QList<QTextLayout::FormatRange> formats;
    auto span = std::partition_point(source.spans.begin(), source.spans.end(),
                                     [begin](const ColourSpan& other) { return other.begin + other.length <= begin; });
    for (; span != source.spans.end() && span->begin < end; ++span) {
        const std::size_t from = std::max(span->begin, begin);
        const std::size_t to = std::min(span->begin + span->length, end);
        QTextCharFormat format;
        format.setForeground(ToColor(span->colour));
        formats.append({static_cast<int>(from - begin), static_cast<int>(to - from), format});
    }
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTabStopDistance(fontMetrics().horizontalAdvance(' ') * tabCharacters);
    QTextLayout layout(text, font(), viewport());
    layout.setTextOption(option);
    layout.setFormats(formats);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QRect textBox = box.adjusted(gutter, 0, 0, 0);
    painter.save();
    painter.setClipRect(textBox);
    painter.setPen(palette().color(QPalette::Text));
    layout.draw(&painter, QPointF(textBox.left() + margin - horizontalScrollBar()->value(), textBox.top()));
    painter.restore();
}

} // namespace pirol
