#include "ui/canvas/PaintingFunctions.h"

#include "controls/dAuswahl.h"
#include "controls/dBild.h"
#include "controls/dButton.h"
#include "controls/dEtikett.h"
#include "controls/dFortschritt.h"
#include "controls/dMusik.h"
#include "controls/dOptionsgruppe.h"
#include "controls/dPassword.h"
#include "controls/dRegler.h"
#include "controls/dSchalter.h"
#include "controls/dTabelle.h"
#include "controls/dText.h"
#include "controls/dVideo.h"
#include "controls/Oddities.h"
#include "controls/TextArea.h"
#include "designer/ComponentLook.h"
#include "ui/canvas/Lettering.h"
#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {
namespace {

constexpr QColor white(255, 255, 255);
constexpr QColor face(238, 238, 238);
constexpr QColor outline(122, 138, 153);
constexpr QColor innerLine(184, 207, 229);
constexpr QColor shade(163, 184, 204);
constexpr QColor filledOutline(99, 130, 191);
constexpr QColor ink(51, 51, 51);
constexpr QColor hint(190, 190, 190);
constexpr QColor selection(30, 90, 200);

/// Across a scroll bar's thumb, from its light side.
constexpr std::array thumbGradient = {
    QColor(227, 236, 245), QColor(238, 244, 249), QColor(249, 251, 253), QColor(249, 251, 253), QColor(238, 244, 249),
    QColor(227, 236, 245), QColor(218, 230, 242), QColor(213, 227, 240), QColor(208, 223, 238), QColor(203, 220, 236),
    QColor(197, 216, 234), QColor(192, 213, 232), QColor(187, 209, 230)};

constexpr int textSize = 12;
constexpr int caretWidth = 1;
constexpr std::size_t bytesPerCharacter = 4; // at most, in UTF-8
constexpr int scrollBarDepth = 15;
constexpr int markSize = 13;
constexpr int markGap = 4;
constexpr int markMargin = 4;
constexpr int tableHeaderHeight = 20; // with the border above
constexpr int tableRowHeight = 16;

/// Values of the property Align; all others stand for left.
constexpr int atLeft = 0;
constexpr int centred = 1;
constexpr int atRight = 2;

// Lines, areas and bitmaps.

/// How thick a line of one pixel is, in pixels of the screen.
double LineThickness(double scale) {
    return std::max(std::floor(scale), 1.0);
}

/// One direction of an area with its edges moved onto pixels of the screen.
struct SharpSpan {
    double begin;
    double length;
};

SharpSpan Sharp(int begin, int length, double scale, double offset) {
    const double first = std::round(begin * scale + offset);
    const double last = std::round((begin + length) * scale + offset);
    const double pixels = length == 1 ? LineThickness(scale) : std::max(last - first, 1.0);
    return {(first - offset) / scale, pixels / scale};
}

/// The box with its edges on pixels of the screen, still in the painter's units.
QRectF Sharp(const QPainter& painter, const QRect& box) {
    const QTransform& device = painter.deviceTransform();
    if (device.m11() == 1 && device.m22() == 1)
        return box;
    const SharpSpan across = Sharp(box.x(), box.width(), device.m11(), device.dx());
    const SharpSpan down = Sharp(box.y(), box.height(), device.m22(), device.dy());
    return {across.begin, down.begin, across.length, down.length};
}

/// Paints nothing for an empty box, such as small components have.
void Fill(QPainter& painter, const QRect& box, const QColor& colour) {
    if (!box.isEmpty())
        painter.fillRect(Sharp(painter, box), colour);
}

void PaintFrame(QPainter& painter, const QRect& box, const QColor& colour) {
    if (box.isEmpty())
        return;
    const QRectF outer = Sharp(painter, box);
    const QTransform& device = painter.deviceTransform();
    const double across = LineThickness(device.m11()) / device.m11();
    const double down = LineThickness(device.m22()) / device.m22();
    painter.fillRect(QRectF(outer.left(), outer.top(), outer.width(), down), colour);
    painter.fillRect(QRectF(outer.left(), outer.bottom() - down, outer.width(), down), colour);
    painter.fillRect(QRectF(outer.left(), outer.top(), across, outer.height()), colour);
    painter.fillRect(QRectF(outer.right() - across, outer.top(), across, outer.height()), colour);
}

/// Paints a part of the bitmap at its own size; on screens with small pixels from its large drawing.
void PaintBitmap(QPainter& painter, const QPoint& corner, std::string_view name, const QSize& part) {
    const QImage& large = LargeBitmap(name);
    if (painter.deviceTransform().m11() == 1 || large.isNull()) {
        painter.drawImage(corner, Bitmap(name), QRect({0, 0}, part));
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.drawImage(QRect(corner, part), large, QRect({0, 0}, part * largeBitmapScale));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
}

void PaintBitmap(QPainter& painter, int x, int y, std::string_view name) {
    PaintBitmap(painter, {x, y}, name, Bitmap(name).size());
}

void StretchBitmap(QPainter& painter, const QRect& box, std::string_view name) {
    if (!box.isEmpty())
        painter.drawImage(Sharp(painter, box), Bitmap(name));
}

// Text.

const Lettering& BoldText(const QPainter& painter) {
    return Lettering::Of(painter, textSize, QFont::Bold);
}

const Lettering& PlainText(const QPainter& painter) {
    return Lettering::Of(painter, textSize, QFont::Normal);
}

/// As many characters as have room in the width at most; a visible one has at least one pixel.
std::size_t Room(int width) {
    return static_cast<std::size_t>(std::max(width, 0)) + 1;
}

/// The beginning of a text, long enough for so many characters.
QString Beginning(std::string_view text, std::size_t characters) {
    return QString::fromUtf8(text.substr(0, bytesPerCharacter * characters));
}

/// The end of a text, long enough for so many characters.
QString End(std::string_view text, std::size_t characters) {
    const std::size_t bytes = bytesPerCharacter * characters;
    if (text.size() <= bytes)
        return QString::fromUtf8(text);
    return QString::fromUtf8(text.substr(text.size() - bytes)).right(static_cast<qsizetype>(characters));
}

std::u16string_view View(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

/// One line of text, cut with dots where it does not fit, in the middle of its room's height.
struct Line {
    std::u16string text;
    QRect box;
};

Line LineIn(const QRect& room, std::string_view text, int alignment, const Lettering& lettering) {
    const QString beginning = Beginning(text, Room(room.width()));
    std::u16string line = FittedText(View(beginning), room.width(), lettering.AdvanceFunction());
    const int width = lettering.Width(line);
    const int indent = alignment == centred   ? room.width() / 2 - width / 2
                       : alignment == atRight ? room.width() - width
                                              : 0;
    const int top = room.y() + room.height() / 2 - lettering.Height() / 2;
    return {std::move(line), {room.x() + indent, top, width, lettering.Height()}};
}

void PaintLine(QPainter& painter, const QRect& room, std::string_view text, int alignment, const Lettering& lettering) {
    if (text.empty())
        return;
    const Line line = LineIn(room, text, alignment, lettering);
    lettering.Paint(painter, line.box.x(), line.box.y(), line.text, ink);
}

/// White below the letters of a line, so that the grid does not run through them.
void PaintGround(QPainter& painter, const QRect& room, std::string_view text, int alignment,
                 const Lettering& lettering) {
    if (!text.empty())
        Fill(painter, LineIn(room, text, alignment, lettering).box & room, white);
}

// Scroll bars.

void PaintThumb(QPainter& painter, const QRect& bar, const Thumb& thumb, bool upright) {
    const auto fill = [&](int along, int across, int length, int depth, const QColor& colour) {
        const QRect part = upright ? QRect(across, along, depth, length) : QRect(along, across, length, depth);
        Fill(painter, part.translated(bar.topLeft()), colour);
    };
    const int begin = thumb.begin;
    const int last = begin + thumb.length - 1;
    fill(begin + 1, 1, 1, scrollBarDepth - 1, innerLine);
    fill(begin + 1, 1, thumb.length - 2, 1, innerLine);
    for (int i = 0; i < static_cast<int>(thumbGradient.size()); ++i)
        fill(begin + 2, 2 + i, thumb.length - 3, 1, thumbGradient[static_cast<std::size_t>(i)]);
    fill(begin, 0, 1, scrollBarDepth, filledOutline);
    fill(last, 0, 1, scrollBarDepth, filledOutline);
    fill(begin, 0, thumb.length, 1, filledOutline);
    fill(last + 1, 1, 1, scrollBarDepth - 1, innerLine); // its shadow

    constexpr int gripLength = 9;
    const int middle = begin + thumb.length / 2 - 2;
    for (int ridge = 0; ridge < 3; ++ridge) {
        fill(middle + 2 * ridge, 4, 1, gripLength, filledOutline);
        fill(middle + 2 * ridge + 1, 5, 1, gripLength, white);
    }
}

void PaintVerticalBar(QPainter& painter, const QRect& bar, int visible, int total) {
    if (bar.isEmpty())
        return;
    StretchBitmap(painter, bar, "SCROLL_BAR_V");
    if (bar.height() > 2 * scrollButtonLength)
        Fill(painter, {bar.x() + 1, bar.y() + scrollButtonLength, bar.width() - 1, 1}, innerLine);
    const int buttonHeight = std::min(scrollButtonLength, bar.height() / 2);
    const QSize button(scrollBarDepth, buttonHeight);
    PaintBitmap(painter, bar.topLeft(), "SCROLL_UP", button);
    PaintBitmap(painter, {bar.x(), bar.y() + bar.height() - buttonHeight}, "SCROLL_DOWN", button);
    if (const std::optional<Thumb> thumb = ScrollThumb(bar.height(), visible, total))
        PaintThumb(painter, bar, *thumb, true);
}

void PaintHorizontalBar(QPainter& painter, const QRect& bar, int visible, int total) {
    if (bar.isEmpty())
        return;
    StretchBitmap(painter, bar, "SCROLL_BAR_H");
    if (bar.width() > 2 * scrollButtonLength)
        Fill(painter, {bar.x() + scrollButtonLength, bar.y() + 1, 1, bar.height() - 1}, innerLine);
    const int buttonWidth = std::min(scrollButtonLength, bar.width() / 2);
    const QSize button(buttonWidth, scrollBarDepth);
    PaintBitmap(painter, bar.topLeft(), "SCROLL_LEFT", button);
    PaintBitmap(painter, {bar.x() + bar.width() - buttonWidth, bar.y()}, "SCROLL_RIGHT", button);
    if (const std::optional<Thumb> thumb = ScrollThumb(bar.width(), visible, total))
        PaintThumb(painter, bar, *thumb, false);
}

/// The border around what scrolls; `headerHeight` is the height of a table's header inside it.
void PaintScrollPane(QPainter& painter, const QRect& area, const QColor& background, int headerHeight = 0) {
    Fill(painter, area.adjusted(1, 1, -2, -2), background);
    PaintFrame(painter, area.adjusted(0, 0, -1, -1), outline);
    Fill(painter, {area.right(), area.y(), 1, 1}, face);
    Fill(painter, {area.right() - 1, area.y() + 2 + headerHeight, 1, 1}, face);
    Fill(painter, {area.x(), area.bottom(), 1, 1}, face);
    Fill(painter, {area.x() + 1, area.bottom() - 1, 1, 1}, face);
}

void PaintDashedFrame(QPainter& painter, const QRect& frame, const QColor& color,
                      const QList<qreal>& pattern = {4, 2}) {
    painter.save();
    const double scale = painter.deviceTransform().m11();
    const double thickness = LineThickness(scale) / scale;
    QPen dashes(color, thickness, Qt::CustomDashLine, Qt::FlatCap);
    dashes.setDashPattern(pattern);
    painter.setPen(dashes);
    const double middle = thickness / 2;
    painter.drawRect(Sharp(painter, frame).adjusted(middle, middle, -middle, -middle));
    painter.restore();
}

// The kinds.

const Lettering& TextOf(const QPainter& painter, const dEtikett& label) {
    return label.FontSize == dEtikett::defaultFontSize ? BoldText(painter)
                                                       : Lettering::Of(painter, label.FontSize, QFont::Normal);
}

bool HasLetters(const dEtikett& label) {
    return !label.Caption.empty() && label.FontSize >= 1;
}

void Paint(QPainter& painter, const QRect& area, const dEtikett& label) {
    if (HasLetters(label))
        PaintLine(painter, area, label.Caption, label.Align, TextOf(painter, label));
}

void PaintAid(QPainter& painter, const QRect& area, const dEtikett& label) {
    if (label.Caption.empty())
        PaintDashedFrame(painter, area, hint);
    else if (HasLetters(label))
        PaintGround(painter, area, label.Caption, label.Align, TextOf(painter, label));
}

void Paint(QPainter& painter, const QRect& area, const dButton& button) {
    Fill(painter, area, white);
    constexpr int margin = 17;
    PaintLine(painter, area.adjusted(margin, 0, -margin, 0), button.Caption, centred, BoldText(painter));

    StretchBitmap(painter, {area.x(), area.y(), area.width(), 1}, "BUTTON_O");
    StretchBitmap(painter, {area.x(), area.bottom(), area.width(), 1}, "BUTTON_U");
    StretchBitmap(painter, {area.x(), area.y(), 1, area.height()}, "BUTTON_L");
    StretchBitmap(painter, {area.right(), area.y(), 1, area.height()}, "BUTTON_R");
    const QSize corner = Bitmap("BUTTON_OL").size();
    const int right = area.x() + area.width() - corner.width();
    const int bottom = area.y() + area.height() - corner.height();
    PaintBitmap(painter, area.x(), area.y(), "BUTTON_OL");
    PaintBitmap(painter, right, area.y(), "BUTTON_OR");
    PaintBitmap(painter, area.x(), bottom, "BUTTON_UL");
    PaintBitmap(painter, right, bottom, "BUTTON_UR");
}

/// A one-line field. Text longer than the field shows its end, where the caret is.
void PaintField(QPainter& painter, const QRect& area, std::string_view content, int textAlignment) {
    Fill(painter, area, white);
    PaintFrame(painter, area.adjusted(0, 0, -1, -1), outline);
    for (const QPoint& corner : {area.topRight(), QPoint(area.right() - 1, area.y() + 1), area.bottomLeft(),
                                 QPoint(area.x() + 1, area.bottom() - 1)})
        Fill(painter, {corner.x(), corner.y(), 1, 1}, face);
    if (content.empty())
        return;

    constexpr int border = 2;
    const QRect inside = area.adjusted(border, border, -border, -border);
    if (inside.isEmpty())
        return;
    const Lettering& lettering = PlainText(painter);
    const QString text = End(content, Room(inside.width()));
    const int room = inside.width() - 2 * caretWidth - lettering.Width(View(text));
    const int x = inside.x() + (room < 0 || textAlignment == atRight ? room : textAlignment == centred ? room / 2 : 0);
    painter.setClipRect(inside, Qt::IntersectClip);
    lettering.Paint(painter, x, inside.y() + (inside.height() - lettering.Height()) / 2, View(text), ink);
}

void Paint(QPainter& painter, const QRect& area, const dText& field) {
    PaintField(painter, area, field.Caption, field.Align);
}

void Paint(QPainter& painter, const QRect& area, const dPassword& field) {
    const QString mark = QString::fromStdString(field.PassChar).left(1);
    const QString hidden = mark.repeated(Beginning(field.Caption, Room(area.width())).size());
    PaintField(painter, area, hidden.toStdString(), field.Align);
}

/// The lines of a text area, each no longer than `width` has room for, at most `limit` of them. With an advance they
/// are wrapped.
std::vector<std::u16string> LinesOf(std::string_view text, int width, std::size_t limit, const Advance& wrapping) {
    std::vector<std::u16string> lines;
    for (std::size_t begin = 0; begin <= text.size() && lines.size() < limit;) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::size_t room = wrapping ? Room(width) * (limit - lines.size()) : Room(width);
        const QString paragraph = Beginning(text.substr(begin, end - begin), room);
        begin = end + 1;
        std::u16string_view rest = View(paragraph);
        do {
            const std::size_t count = wrapping ? WrapPoint(rest, width, wrapping) : rest.size();
            lines.emplace_back(rest.substr(0, count));
            rest.remove_prefix(count);
        } while (!rest.empty() && lines.size() < limit);
    }
    return lines;
}

void PaintLines(QPainter& painter, const QRect& view, const std::vector<std::u16string>& lines,
                const Lettering& lettering) {
    painter.setClipRect(view, Qt::IntersectClip);
    int y = view.y();
    for (const std::u16string& line : lines) {
        if (y > view.bottom())
            break;
        const std::u16string_view seen = line;
        lettering.Paint(painter, view.x(), y, seen.substr(0, Room(view.width())), ink);
        y += lettering.Height();
    }
}

/// Lines that wrap need no horizontal scroll bar; the others have one when the longest does not fit.
void Paint(QPainter& painter, const QRect& area, const TextArea& text) {
    PaintScrollPane(painter, area, white);
    const bool wraps = text.Kind() == ComponentKind::CharField;
    const Lettering& lettering = PlainText(painter);
    QRect view = area.adjusted(1, 1, -2 - scrollBarDepth, -2);
    if (view.isEmpty())
        return;

    const int lineLimit = (LongestUsefulTotal(view.height(), view.height()) + view.height()) / lettering.Height() + 1;
    const int width = wraps ? view.width() : LongestUsefulTotal(view.width(), view.width()) + view.width();
    const std::vector<std::u16string> lines = LinesOf(text.Caption, width, static_cast<std::size_t>(lineLimit),
                                                      wraps ? lettering.AdvanceFunction() : Advance());

    int widest = 0;
    if (!wraps)
        for (const std::u16string& line : lines)
            widest = std::max(widest, lettering.Width(line) + caretWidth);
    if (widest > view.width()) {
        view.adjust(0, 0, 0, -scrollBarDepth);
        Fill(painter, {view.right() + 1, view.bottom() + 1, scrollBarDepth, scrollBarDepth}, face);
        PaintHorizontalBar(painter, {view.x(), view.bottom() + 1, view.width(), scrollBarDepth}, view.width(), widest);
    }
    PaintVerticalBar(painter, {view.right() + 1, view.y(), scrollBarDepth, view.height()}, view.height(),
                     static_cast<int>(lines.size()) * lettering.Height());
    if (!view.isEmpty())
        PaintLines(painter, view, lines, lettering);
}

QRect RoomBesideMark(const QRect& area) {
    return area.adjusted(markMargin + markSize + markGap, 0, -markMargin, 0);
}

/// A mark with its caption at the right.
void PaintMark(QPainter& painter, const QRect& area, std::string_view bitmap, std::string_view caption) {
    const int middle = area.y() + markMargin + (area.height() - 2 * markMargin) / 2;
    PaintBitmap(painter, area.x() + markMargin, middle - markSize / 2, bitmap);
    PaintLine(painter, RoomBesideMark(area), caption, atLeft, BoldText(painter));
}

void Paint(QPainter& painter, const QRect& area, const dSchalter& box) {
    PaintMark(painter, area, box.Checked ? "CHECKBOX_CHECKED" : "CHECKBOX_UNCHECKED", box.Caption);
}

void PaintAid(QPainter& painter, const QRect& area, const dSchalter& box) {
    PaintGround(painter, RoomBesideMark(area), box.Caption, atLeft, BoldText(painter));
}

void PaintAid(QPainter& painter, const QRect& area, const dOptionsgruppe& group) {
    if (group.OptionButtons.empty())
        PaintDashedFrame(painter, area, hint);
}

void Paint(QPainter& painter, const QRect& area, const dOptionsgruppe& group) {
    for (const cRadioButton& row : group.OptionButtons) {
        const QRect place(area.x() + row.Left, area.y() + row.Top, row.Width, row.Height);
        if (!place.intersects(area))
            continue;
        painter.save();
        painter.setClipRect(place, Qt::IntersectClip);
        Fill(painter, place, white);
        PaintMark(painter, place, row.Selected ? "option_active" : "option_inactive", row.Caption);
        painter.restore();
    }
}

/// A triangle whose rows have 10, 8, 6, 4 and 2 pixels, and no stairs on screens with small pixels.
void PaintComboArrow(QPainter& painter, int middle, int top) {
    const QPointF corners[] = {{middle - 5.5, top + 0.0}, {middle + 5.5, top + 0.0}, {middle + 0.0, top + 5.5}};
    painter.setRenderHint(QPainter::Antialiasing, painter.deviceTransform().m11() != 1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawConvexPolygon(corners, 3);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void Paint(QPainter& painter, const QRect& area, const dAuswahl& box) {
    Fill(painter, area, white);
    PaintFrame(painter, area, outline);
    // The library draws no arrow where there are no entries to unfold.
    if (box.Entries.empty()) {
        PaintFrame(painter, area.adjusted(1, 1, 0, -1), innerLine);
        return;
    }
    constexpr int arrowWidth = 20;
    const QRect arrow(area.x() + area.width() - arrowWidth, area.y(), arrowWidth, area.height());
    PaintFrame(painter, area.adjusted(1, 1, -arrowWidth, -1), innerLine);
    Fill(painter, {arrow.x(), arrow.y(), 1, arrow.height()}, outline);
    PaintComboArrow(painter, arrow.x() + arrow.width() / 2, arrow.y() + arrow.height() / 2 - 2);

    const QRect line = area.adjusted(3, 3, -arrowWidth - 2, -4);
    if (line.isEmpty())
        return;
    painter.setClipRect(line, Qt::IntersectClip);
    PaintLine(painter, line, box.Entries.front(), atLeft, BoldText(painter));
}

void Paint(QPainter& painter, const QRect& area, const dRegler& slider) {
    const SliderLook look = LookOf(slider);
    const auto at = [&area](const Rectangle& part) { return ToRect(part).translated(area.topLeft()); };
    const QRect track = at(look.track);
    const QRect filled = at(look.filled);
    const QRect knob = at(look.knob);

    Fill(painter, track, white);
    PaintFrame(painter, track, outline);
    if (look.upright) {
        Fill(painter, {track.x() + 1, track.y() + 1, 1, track.height() - 1}, shade);
        StretchBitmap(painter, {track.x(), track.y(), track.width(), 1}, "SLIDER_V_TOP");
        StretchBitmap(painter, filled, "SLIDER_V_BAR");
        StretchBitmap(painter, {track.x(), track.bottom(), track.width(), 1}, "SLIDER_V_BOTTOM");
    } else {
        Fill(painter, {track.x() + 1, track.y() + 1, track.width() - 1, 1}, shade);
        StretchBitmap(painter, filled, "SLIDER_H_BAR");
        StretchBitmap(painter, {track.x(), track.y(), 1, track.height()}, "SLIDER_H_LEFT");
    }
    PaintBitmap(painter, knob.x(), knob.y(), look.upright ? "SLIDER_V" : "SLIDER_H");
}

void Paint(QPainter& painter, const QRect& area, const dFortschritt& bar) {
    const QRect inside = area.adjusted(1, 1, -1, -1);
    const int filled = FilledWidth(bar);
    const int unfilledBegin = inside.x() + filled;
    const int unfilled = inside.width() - filled;
    const int lower = area.bottom() - 1;

    Fill(painter, inside, white);
    Fill(painter, {inside.x(), inside.y(), filled, inside.height()}, shade);
    StretchBitmap(painter, {inside.x(), area.y(), filled, 2}, "PROGRESS_FILLED_TOP");
    StretchBitmap(painter, {inside.x(), lower, filled, 2}, "PROGRESS_FILLED_BOTTOM");
    StretchBitmap(painter, {unfilledBegin, area.y(), unfilled, 2}, "PROGRESS_UNFILLED_TOP");
    StretchBitmap(painter, {unfilledBegin, lower, unfilled, 2}, "PROGRESS_UNFILLED_BOTTOM");
    Fill(painter, {inside.x(), inside.y(), 1, inside.height()}, filled > 0 ? filledOutline : innerLine);
    StretchBitmap(painter, {area.x(), area.y(), 1, area.height()}, "PROGRESS_BORDER_LEFT");
    StretchBitmap(painter, {area.right(), area.y(), 1, area.height()}, "PROGRESS_BORDER_RIGHT");
    PaintBitmap(painter, area.x(), area.y(), "PROGRESS_CORNER_LT");
    PaintBitmap(painter, area.x(), area.bottom(), "PROGRESS_CORNER_LB");
    PaintBitmap(painter, area.right(), area.y(), "PROGRESS_CORNER_RT");
    PaintBitmap(painter, area.right(), area.bottom(), "PROGRESS_CORNER_RB");
}

void PaintColumnTitle(QPainter& painter, const QRect& cell, std::string_view title, const Lettering& lettering) {
    const int last = tableHeaderHeight - 1;
    StretchBitmap(painter, cell, "TABLE_HEADER");
    Fill(painter, {cell.x(), cell.y() + 1, 1, last - 1}, white);
    Fill(painter, {cell.x(), cell.y() + last, 1, 1}, face);
    PaintBitmap(painter, cell.right(), cell.y(), oddities::tableSeparatorBitmap);
    PaintLine(painter, cell.adjusted(2, 1, 0, 0), title, centred, lettering);
}

void Paint(QPainter& painter, const QRect& area, const dTabelle& table) {
    const int headerHeight = table.Columns.empty() ? 0 : tableHeaderHeight - 1;
    PaintScrollPane(painter, area, face, headerHeight);
    const QRect view = area.adjusted(1, 1 + headerHeight, -2 - scrollBarDepth, -2 - scrollBarDepth);
    PaintVerticalBar(painter, {view.right() + 1, view.y(), scrollBarDepth, view.height()}, view.height(),
                     table.Rows * tableRowHeight);
    PaintHorizontalBar(painter, {view.x(), view.bottom() + 1, view.width(), scrollBarDepth}, view.width(), 0);

    const QRect inside = view.adjusted(0, -tableHeaderHeight, 0, 0);
    if (inside.isEmpty())
        return;
    painter.setClipRect(inside, Qt::IntersectClip);
    const std::vector<int> widths = ColumnWidths(table.Columns.size(), view.width());
    const int rows = std::clamp<int>(table.Rows, 0, std::max(view.height(), 0) / tableRowHeight + 1);
    const Lettering& lettering = PlainText(painter);
    int x = view.x();
    for (std::size_t column = 0; column < widths.size() && x <= view.right(); x += widths[column++]) {
        const int width = widths[column];
        PaintColumnTitle(painter, {x, area.y(), width, tableHeaderHeight}, table.Columns[column], lettering);
        Fill(painter, {x, view.y(), width, rows * tableRowHeight}, white);
        Fill(painter, {x + width - 1, view.y(), 1, rows * tableRowHeight}, outline);
    }
    for (int row = 1; row <= rows; ++row)
        Fill(painter, {view.x(), view.y() + row * tableRowHeight - 1, x - view.x(), 1}, outline);
}

/// A box with the kind's picture, for components that have nothing of their own to show.
void PaintSymbol(QPainter& painter, const QRect& area, ComponentKind kind) {
    Fill(painter, area, face);
    PaintFrame(painter, area, outline);
    constexpr int sides[] = {48, 32, 24, 16};
    const int room = std::min(area.width(), area.height()) - 2;
    const auto side = std::ranges::find_if(sides, [room](int candidate) { return candidate <= room; });
    if (side == std::end(sides))
        return;
    const QRect box(area.x() + (area.width() - *side) / 2, area.y() + (area.height() - *side) / 2, *side, *side);
    const bool asDrawn = painter.deviceTransform().m11() == 1;
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !asDrawn);
    painter.drawImage(box, IconImage(RowOf(kind).imageKey, asDrawn ? *side : sides[0]));
}

void PaintPicture(QPainter& painter, const QRect& area, const Control& control, const PictureSource& pictures) {
    const auto& picture = static_cast<const dBild&>(control);
    const QPixmap content = pictures(picture.File, painter.deviceTransform().m11());
    if (content.isNull())
        return PaintSymbol(painter, area, ComponentKind::Picture);
    // In its own size, as the running program shows it. Where that is another one, the box is seen as well.
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(area.topLeft(), content);
    if (content.deviceIndependentSize().toSize() != area.size())
        PaintDashedFrame(painter, area, outline);
}

void Paint(QPainter& painter, const QRect& area, const dMusik&) {
    PaintSymbol(painter, area, ComponentKind::Sound);
}

void Paint(QPainter& painter, const QRect& area, const dVideo&) {
    PaintSymbol(painter, area, ComponentKind::Movie);
}

template <class Kind>
void PaintAs(QPainter& painter, const QRect& area, const Control& control, const PictureSource&) {
    Paint(painter, area, static_cast<const Kind&>(control));
}

/// What paints the components of a kind.
struct Painter {
    ComponentKind kind;
    void (&paint)(QPainter&, const QRect&, const Control&,
                  const PictureSource&); // a reference, so that no row can leave it out
};

constexpr std::array<Painter, kindCount> painters = {{
    {ComponentKind::Label, PaintAs<dEtikett>},
    {ComponentKind::Button, PaintAs<dButton>},
    {ComponentKind::TextField, PaintAs<dText>},
    {ComponentKind::CharField, PaintAs<TextArea>},
    {ComponentKind::RowField, PaintAs<TextArea>},
    {ComponentKind::Password, PaintAs<dPassword>},
    {ComponentKind::CheckBox, PaintAs<dSchalter>},
    {ComponentKind::OptionGroup, PaintAs<dOptionsgruppe>},
    {ComponentKind::ComboBox, PaintAs<dAuswahl>},
    {ComponentKind::Slider, PaintAs<dRegler>},
    {ComponentKind::ProgressBar, PaintAs<dFortschritt>},
    {ComponentKind::Table, PaintAs<dTabelle>},
    {ComponentKind::Picture, PaintPicture},
    {ComponentKind::Sound, PaintAs<dMusik>},
    {ComponentKind::Movie, PaintAs<dVideo>},
}};
static_assert(HasEveryKind(painters), "every kind needs its painter, in the order of the kinds");

} // namespace

void FillSharply(QPainter& painter, const QRect& box, const QColor& colour) {
    Fill(painter, box, colour);
}

void FrameSharply(QPainter& painter, const QRect& box, const QColor& colour) {
    PaintFrame(painter, box, colour);
}

void PaintControl(QPainter& painter, const Control& control, const PictureSource& pictures) {
    const QRect area(control.Left, control.Top, control.Width, control.Height);
    if (area.isEmpty())
        return;
    painter.save();
    if (control.Kind() != ComponentKind::Picture) // it is shown whole, whatever its box
        painter.setClipRect(area, Qt::IntersectClip);
    painters[Position(control.Kind())].paint(painter, area, control, pictures);
    painter.restore();
}

void PaintDesignAid(QPainter& painter, const Control& control) {
    const QRect area(control.Left, control.Top, control.Width, control.Height);
    if (area.isEmpty())
        return;
    if (control.Kind() == ComponentKind::Label)
        PaintAid(painter, area, static_cast<const dEtikett&>(control));
    else if (control.Kind() == ComponentKind::CheckBox)
        PaintAid(painter, area, static_cast<const dSchalter&>(control));
    else if (control.Kind() == ComponentKind::OptionGroup)
        PaintAid(painter, area, static_cast<const dOptionsgruppe&>(control));
}

namespace {

/// A border inside the rectangle that is seen on any ground: dashes on white.
void PaintDashes(QPainter& painter, const QRect& frame, const QList<qreal>& pattern, const QColor& color) {
    PaintFrame(painter, frame, white);
    PaintDashedFrame(painter, frame, color, pattern);
}

} // namespace

void PaintSelectionBorder(QPainter& painter, const Rectangle& component) {
    PaintDashes(painter, ToRect(component), {4, 2}, selection);
}

void PaintMemberBorder(QPainter& painter, const Rectangle& component) {
    PaintDashes(painter, ToRect(component), {2, 4}, selection);
}

void PaintReachedBorder(QPainter& painter, const Rectangle& component) {
    PaintDashes(painter, ToRect(component).adjusted(-2, -2, 2, 2), {1, 1}, Qt::black);
}

void PaintOuterHandle(QPainter& painter, const Rectangle& handle) {
    Fill(painter, ToRect(handle), white);
    PaintFrame(painter, ToRect(handle), selection);
    PaintFrame(painter, ToRect(handle).adjusted(1, 1, -1, -1), selection);
}

void PaintResizeHandle(QPainter& painter, const Rectangle& handle) {
    const QRectF box = ToRect(handle);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(selection);
    painter.drawPolygon(QPolygonF({box.topRight(), box.bottomRight(), box.bottomLeft()}));
    painter.setPen(QPen(white, 1.5));
    for (const double share : {0.45, 0.65, 0.85})
        painter.drawLine(QLineF(box.left() + share * box.width(), box.bottom() - 2, box.right() - 2,
                                box.top() + share * box.height()));
    painter.restore();
}

} // namespace pirol
