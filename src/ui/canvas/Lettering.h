#pragma once

#include "designer/ComponentLook.h"

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QRawFont>

#include <array>
#include <string_view>

class QPainter;

namespace pirol {

/// One size and weight of the font that Java calls "Dialog" on this system, with letters placed as Java places them: by
/// whole pixels, without kerning and ligatures.
class Lettering {
  public:
    /// The size is clamped to what can be recognised. Letters are smooth unless the painter's hint TextAntialiasing is
    /// off. The reference lives until the next call.
    static const Lettering& Of(const QPainter& painter, int pixelSize, QFont::Weight weight);

    Lettering(int pixelSize, QFont::Weight weight, bool smooth);

    /// Of one line of text, in pixels.
    int Height() const { return ascent_ + descent_; }
    int Width(char16_t point) const;
    int Width(std::u16string_view text) const;
    Advance AdvanceFunction() const;

    /// Paints a line of text, beginning at `x`; `top` is the upper edge of the line.
    void Paint(QPainter& painter, int x, int top, std::u16string_view text, const QColor& colour) const;

  private:
    static constexpr int unmeasured = -1;

    QList<QPointF> Positions(std::u16string_view text) const;
    QList<QPointF> PositionsOnPaper(std::u16string_view text, const QList<quint32>& glyphs) const;

    QFont font_;
    QFontMetrics metrics_;
    QRawFont glyphs_;
    int ascent_;
    int descent_;
    mutable std::array<int, 256> latin_; ///< widths as far as they were asked for
};

} // namespace pirol
