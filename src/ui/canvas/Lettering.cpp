#include "ui/canvas/Lettering.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QGlyphRun>
#include <QOperatingSystemVersion>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <map>
#include <tuple>

namespace pirol {
namespace {

constexpr int largestSize = 1000; // larger letters cannot be recognised and cost memory

QFont DialogFont(int pixelSize, QFont::Weight weight, bool smooth) {
    const bool windows = QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows;
    QFont font(windows ? QStringList{"Arial"} : QStringList{"DejaVu Sans", "Lucida Grande"});
    font.setStyleHint(QFont::SansSerif, smooth ? QFont::PreferAntialias : QFont::NoAntialias);
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}

/// The letterings in use. They are emptied before the application ends, because fonts must not outlive it.
struct LetteringCase {
    static constexpr std::size_t capacity = 64;

    std::map<std::tuple<int, QFont::Weight, bool>, Lettering> letterings;
    bool clearedAtExit = false;
};

LetteringCase& Case() {
    static LetteringCase theCase;
    return theCase;
}

void EmptyCase() {
    Case() = {};
}

} // namespace

const Lettering& Lettering::Of(const QPainter& painter, int pixelSize, QFont::Weight weight) {
    LetteringCase& letteringCase = Case();
    if (!letteringCase.clearedAtExit) {
        qAddPostRoutine(EmptyCase);
        letteringCase.clearedAtExit = true;
    }
    const std::tuple key(std::clamp(pixelSize, 1, largestSize), weight,
                         painter.testRenderHint(QPainter::TextAntialiasing));
    auto& letterings = letteringCase.letterings;
    const auto found = letterings.find(key);
    if (found != letterings.end())
        return found->second;
    if (letterings.size() >= LetteringCase::capacity)
        letterings.clear();
    return letterings.emplace(key, std::make_from_tuple<Lettering>(key)).first->second;
}

/// Java places letters by the widths of the fully hinted font, whether or not they are smooth. Qt has those widths only
/// for letters that are not smooth, so those are measured in either case.
Lettering::Lettering(int pixelSize, QFont::Weight weight, bool smooth)
    : font_(DialogFont(pixelSize, weight, smooth)), metrics_(DialogFont(pixelSize, weight, false)),
      glyphs_(QRawFont::fromFont(font_, QFontDatabase::Latin)) {
    // Rounded as Java does.
    const QFontMetricsF exact(DialogFont(pixelSize, weight, false));
    ascent_ = static_cast<int>(exact.ascent() + 0.95);
    descent_ = static_cast<int>(exact.descent() + 0.95);
    latin_.fill(unmeasured);
}

int Lettering::Width(char16_t point) const {
    if (point >= latin_.size())
        return metrics_.horizontalAdvance(QChar(point));
    if (latin_[point] == unmeasured)
        latin_[point] = metrics_.horizontalAdvance(QChar(point));
    return latin_[point];
}

int Lettering::Width(std::u16string_view text) const {
    int width = 0;
    for (const char16_t point : text)
        width += Width(point);
    return width;
}

Advance Lettering::AdvanceFunction() const {
    return [this](char16_t point) { return Width(point); };
}

QList<QPointF> Lettering::Positions(std::u16string_view text) const {
    QList<QPointF> positions;
    positions.reserve(static_cast<qsizetype>(text.size()));
    int offset = 0;
    for (const char16_t point : text) {
        positions.append(QPointF(offset, 0));
        offset += Width(point);
    }
    return positions;
}

/// On paper only words begin where Java places them, and their letters follow the font: readers of such files take
/// other gaps for blanks.
QList<QPointF> Lettering::PositionsOnPaper(std::u16string_view text, const QList<quint32>& glyphs) const {
    const QList<QPointF> advances = glyphs_.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics);
    QList<QPointF> positions = Positions(text);
    for (qsizetype i = 1; i < positions.size(); ++i)
        if (text[static_cast<std::size_t>(i)] != u' ' && text[static_cast<std::size_t>(i) - 1] != u' ')
            positions[i] = positions[i - 1] + advances[i - 1];
    return positions;
}

void Lettering::Paint(QPainter& painter, int x, int top, std::u16string_view text, const QColor& colour) const {
    painter.setPen(colour);
    const QPointF baseline(x, top + ascent_);
    const QString line = QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
    const QList<quint32> indexes = glyphs_.glyphIndexesForString(line);
    // Qt itself lays out a text with characters that this font lacks or that take two units.
    if (indexes.contains(0) || indexes.size() != line.size()) {
        painter.setFont(font_);
        painter.drawText(baseline, line);
        return;
    }
    QGlyphRun run;
    run.setRawFont(glyphs_);
    run.setGlyphIndexes(indexes);
    run.setPositions(painter.paintEngine()->type() == QPaintEngine::Pdf ? PositionsOnPaper(text, indexes)
                                                                        : Positions(text));
    painter.drawGlyphRun(baseline, run);
}

} // namespace pirol
