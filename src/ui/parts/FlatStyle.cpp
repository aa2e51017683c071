#include "ui/parts/FlatStyle.h"

#include "ui/parts/Theme.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QToolButton>

#include <algorithm>

namespace pirol {
namespace {

constexpr int buttonHeight = 7 * tokens::unit;
constexpr int thinBar = 10; ///< scroll bars up to this width are all slider
constexpr int barInset = 5; ///< of the slider in wider ones

bool Has(const QStyleOption& option, QStyle::StateFlag flag) {
    return option.state.testFlag(flag);
}

bool IsEnabled(const QStyleOption& option) {
    return Has(option, QStyle::State_Enabled);
}

QColor ColourOf(const QStyleOption& option, QPalette::ColorRole role) {
    return option.palette.color(IsEnabled(option) ? QPalette::Active : QPalette::Disabled, role);
}

/// A box with round corners; its line lies inside the rectangle.
void PaintBox(QPainter& painter, const QRectF& box, const QColor& fill, const QColor& line, double width = 1,
              double radius = tokens::radius) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill);
    if (line.isValid() && line.alpha() != 0)
        painter.setPen(QPen(line, width));
    else
        painter.setPen(Qt::NoPen);
    const double inset = painter.pen().style() == Qt::NoPen ? 0 : width / 2;
    painter.drawRoundedRect(box.adjusted(inset, inset, -inset, -inset), radius, radius);
    painter.restore();
}

const QColor nothing(Qt::transparent);

/// The outline of a rectangle. Not as a path: for those as high as a list Qt starts threads.
void PaintEdges(QPainter& painter, const QRect& box, const QColor& line) {
    painter.fillRect(box.left(), box.top(), box.width(), 1, line);
    painter.fillRect(box.left(), box.bottom(), box.width(), 1, line);
    painter.fillRect(box.left(), box.top() + 1, 1, box.height() - 2, line);
    painter.fillRect(box.right(), box.top() + 1, 1, box.height() - 2, line);
}

void PaintFocus(QPainter& painter, const QStyleOption& option, const QRect& box) {
    PaintBox(painter, box, nothing, ColourOf(option, roles::focus), tokens::focusWidth);
}

/// The face of what can be pressed, by its state.
QColor Face(const QStyleOption& option, QPalette::ColorRole usual) {
    if (!IsEnabled(option))
        return ColourOf(option, usual);
    if (Has(option, QStyle::State_Sunken) || Has(option, QStyle::State_On))
        return ColourOf(option, roles::pressed);
    return ColourOf(option, Has(option, QStyle::State_MouseOver) ? roles::hover : usual);
}

bool IsDefault(const QStyleOption& option) {
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton) && IsEnabled(option);
}

void PaintButton(QPainter& painter, const QStyleOption& option) {
    if (!IsDefault(option))
        return PaintBox(painter, option.rect, Face(option, QPalette::Button), ColourOf(option, roles::outline));
    const QColor accent = ColourOf(option, roles::accent);
    const bool isPressed = Has(option, QStyle::State_Sunken);
    PaintBox(painter, option.rect, isPressed ? accent.darker(115) : accent, accent.darker(125));
}

/// What is chosen has the selection's colour, and the accent at its left edge.
void PaintToolButton(QPainter& painter, const QStyleOption& option) {
    const QRect box = option.rect.adjusted(1, 0, -1, 0);
    if (Has(option, QStyle::State_On)) {
        PaintBox(painter, box, ColourOf(option, QPalette::Highlight), nothing);
        const int inset = tokens::unit;
        PaintBox(painter, QRectF(box.left(), box.top() + inset, 3, box.height() - 2 * inset),
                 ColourOf(option, roles::accent), nothing, 0, 1.5);
    } else if (IsEnabled(option) && (Has(option, QStyle::State_MouseOver) || Has(option, QStyle::State_Sunken))) {
        PaintBox(painter, box, Face(option, roles::hover), nothing);
    }
}

void PaintMark(QPainter& painter, const QStyleOption& option, bool isRound) {
    const int side = std::min(option.rect.width(), option.rect.height());
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(option.rect).center());
    const bool isOn = Has(option, QStyle::State_On);
    const bool isMixed = Has(option, QStyle::State_NoChange);
    const QColor accent = ColourOf(option, roles::accent);
    const QColor fill = isOn || isMixed ? accent : Face(option, QPalette::Base);
    PaintBox(painter, box, fill, isOn || isMixed ? accent.darker(140) : ColourOf(option, roles::outline), 1,
             isRound ? side / 2.0 : 3);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor sign = IsEnabled(option) ? AccentText(option.palette) : ColourOf(option, QPalette::Text);
    if (isMixed)
        painter.fillRect(QRectF(box.left() + side * 0.25, box.center().y() - 1, side * 0.5, 2), sign);
    else if (isOn && isRound)
        PaintBox(painter, box.adjusted(side * 0.3, side * 0.3, -side * 0.3, -side * 0.3), sign, nothing, 0, side);
    else if (isOn)
        PaintTick(painter, box, sign);
    painter.restore();
}

/// Fields, lists and boxes show with their outline that they have the keyboard.
void PaintFieldFrame(QPainter& painter, const QStyleOption& option, const QColor& fill) {
    const bool hasFocus = Has(option, QStyle::State_HasFocus);
    PaintBox(painter, option.rect, fill, ColourOf(option, hasFocus ? roles::focus : roles::outline),
             hasFocus ? tokens::focusWidth : 1);
}

void PaintArrow(QPainter& painter, const QRect& box, Qt::ArrowType direction, const QColor& colour) {
    constexpr double half = 4;
    const QPointF middle = QRectF(box).center();
    const bool isUpright = direction == Qt::UpArrow || direction == Qt::DownArrow;
    const double sign = direction == Qt::DownArrow || direction == Qt::RightArrow ? 1 : -1;
    const auto at = [&](double along, double across) {
        return middle + (isUpright ? QPointF(across, along) : QPointF(along, across));
    };
    QPainterPath arrow(at(-sign * half / 2, -half));
    arrow.lineTo(at(sign * half / 2, 0));
    arrow.lineTo(at(-sign * half / 2, half));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(arrow, QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
}

/// Where a menu bar or a tool bar has more than it can show.
class MoreSign final : public QIconEngine {
  public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        constexpr int side = tokens::smallIcon;
        painter->save();
        painter->translate(rect.topLeft());
        painter->scale(1.0 * rect.width() / side, 1.0 * rect.height() / side);
        for (const int left : {-3, 3})
            PaintArrow(*painter, QRect(left, 0, side, side), Qt::RightArrow,
                       QGuiApplication::palette().color(QPalette::ButtonText));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new MoreSign; }
};

void PaintHeaderSection(QPainter& painter, const QStyleOption& option) {
    painter.fillRect(option.rect, ColourOf(option, QPalette::Window));
    const QColor line = ColourOf(option, roles::line);
    painter.fillRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1, line);
    painter.fillRect(option.rect.right(), option.rect.top() + 3, 1, option.rect.height() - 6, line);
}

void PaintTab(QPainter& painter, const QStyleOption& option) {
    const bool isChosen = Has(option, QStyle::State_Selected);
    painter.fillRect(option.rect, ColourOf(option, QPalette::Window));
    if (isChosen)
        painter.fillRect(option.rect.left(), option.rect.top(), option.rect.width(), 3,
                         ColourOf(option, roles::accent));
    else if (Has(option, QStyle::State_MouseOver))
        painter.fillRect(option.rect, ColourOf(option, roles::hover));
}

void PaintProgress(QPainter& painter, const QStyleOptionProgressBar& bar) {
    QRectF done = bar.rect;
    const double range = std::max(bar.maximum - bar.minimum, 1);
    done.setWidth(done.width() * std::clamp((bar.progress - bar.minimum) / range, 0.0, 1.0));
    if (done.width() >= 1)
        PaintBox(painter, done, ColourOf(bar, roles::accent), nothing);
}

void PaintMenuBarItem(QPainter& painter, const QStyle& style, const QStyleOptionMenuItem& item) {
    painter.fillRect(item.rect, ColourOf(item, QPalette::Window));
    const bool isChosen = Has(item, QStyle::State_Selected) && IsEnabled(item);
    if (isChosen)
        PaintBox(painter, item.rect.adjusted(0, 1, 0, -1), ColourOf(item, QPalette::Highlight), nothing);
    style.drawItemText(&painter, item.rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, item.palette,
                       IsEnabled(item), item.text, isChosen ? QPalette::HighlightedText : QPalette::WindowText);
}

/// A heading over a thin line.
void PaintGroup(QPainter& painter, const QStyle& style, const QStyleOptionGroupBox& group, const QWidget* widget) {
    const QRect text = style.subControlRect(QStyle::CC_GroupBox, &group, QStyle::SC_GroupBoxLabel, widget);
    const QRect line(group.rect.left(), text.top(), group.rect.width(), text.height());
    if (group.text.isEmpty())
        return;
    QFont font = painter.font();
    font.setBold(true);
    painter.save();
    painter.setFont(font);
    style.drawItemText(&painter, line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, group.palette,
                       IsEnabled(group), group.text, QPalette::WindowText);
    painter.restore();
    painter.fillRect(line.left(), line.bottom() + tokens::unit / 2, line.width(), 1, ColourOf(group, roles::line));
}

void PaintScrollBar(QPainter& painter, const QStyle& style, const QStyleOptionSlider& bar, const QWidget* widget) {
    painter.fillRect(bar.rect, ColourOf(bar, QPalette::Window));
    if (!IsEnabled(bar) || bar.minimum == bar.maximum)
        return;
    const bool isUpright = bar.orientation == Qt::Vertical;
    const int depth = isUpright ? bar.rect.width() : bar.rect.height();
    const int inset = depth > thinBar ? barInset : 1;
    const QRect slider = style.subControlRect(QStyle::CC_ScrollBar, &bar, QStyle::SC_ScrollBarSlider, widget);
    const QRect thumb = isUpright ? slider.adjusted(inset, 1, -inset, -1) : slider.adjusted(1, inset, -1, -inset);
    const bool isHeld = bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    PaintBox(painter, thumb, ColourOf(bar, isHeld ? QPalette::PlaceholderText : roles::outline), nothing, 0,
             (depth - 2 * inset) / 2.0);
    const QColor sign = ColourOf(bar, QPalette::PlaceholderText);
    const std::pair<QStyle::SubControl, Qt::ArrowType> ends[] = {
        {QStyle::SC_ScrollBarSubLine, isUpright ? Qt::UpArrow : Qt::LeftArrow},
        {QStyle::SC_ScrollBarAddLine, isUpright ? Qt::DownArrow : Qt::RightArrow}};
    if (depth > thinBar)
        for (const auto& [part, direction] : ends)
            PaintArrow(painter, style.subControlRect(QStyle::CC_ScrollBar, &bar, part, widget), direction, sign);
}

void PaintComboBox(QPainter& painter, const QStyle& style, const QStyleOptionComboBox& box, const QWidget* widget) {
    const QColor fill = box.editable ? ColourOf(box, QPalette::Base) : Face(box, QPalette::Button);
    if (box.frame)
        PaintFieldFrame(painter, box, fill);
    else
        painter.fillRect(box.rect, fill);
    PaintArrow(painter, style.subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, widget),
               Qt::DownArrow, ColourOf(box, QPalette::ButtonText));
}

} // namespace

void PaintTick(QPainter& painter, const QRectF& box, const QColor& colour) {
    const double side = box.width();
    QPainterPath tick(box.topLeft() + QPointF(side * 0.24, side * 0.52));
    tick.lineTo(box.topLeft() + QPointF(side * 0.43, side * 0.71));
    tick.lineTo(box.topLeft() + QPointF(side * 0.77, side * 0.30));
    painter.strokePath(tick, QPen(colour, side / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

FlatStyle::FlatStyle() : QProxyStyle("Fusion") {}

void FlatStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    switch (element) {
    case PE_PanelButtonCommand:
        return PaintButton(*painter, *option);
    case PE_PanelButtonTool:
        return PaintToolButton(*painter, *option);
    case PE_FrameFocusRect: {
        // Qt keeps three pixels off the edge of tool buttons, which would run through the text of low ones.
        if (qobject_cast<const QToolButton*>(widget) != nullptr)
            return PaintFocus(*painter, *option, widget->rect().adjusted(1, 0, -1, 0));
        const bool isRow = qobject_cast<const QAbstractItemView*>(widget) != nullptr;
        return PaintBox(*painter, option->rect, nothing, ColourOf(*option, roles::focus),
                        isRow ? 1 : tokens::focusWidth, isRow ? 0 : tokens::radius);
    }
    case PE_FrameLineEdit:
        return PaintFieldFrame(*painter, *option, nothing);
    case PE_Frame: {
        const bool hasFocus = Has(*option, State_HasFocus);
        return PaintEdges(*painter, option->rect, ColourOf(*option, hasFocus ? roles::focus : roles::line));
    }
    case PE_FrameTabWidget:
    case PE_FrameMenu:
        return PaintEdges(*painter, option->rect, ColourOf(*option, roles::line));
    case PE_PanelTipLabel:
        painter->fillRect(option->rect, ColourOf(*option, QPalette::ToolTipBase));
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        return PaintMark(*painter, *option, false);
    case PE_IndicatorRadioButton:
        return PaintMark(*painter, *option, true);
    case PE_PanelScrollAreaCorner:
    case PE_PanelStatusBar:
        painter->fillRect(option->rect, ColourOf(*option, QPalette::Window));
        return;
    case PE_FrameGroupBox:
    case PE_FrameStatusBarItem:
    case PE_FrameTabBarBase:
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void FlatStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    switch (element) {
    case CE_PushButtonLabel:
        if (IsDefault(*option)) {
            auto label = *static_cast<const QStyleOptionButton*>(option);
            label.palette.setColor(QPalette::ButtonText, AccentText(label.palette));
            return QProxyStyle::drawControl(element, &label, painter, widget);
        }
        break;
    case CE_HeaderSection:
        return PaintHeaderSection(*painter, *option);
    case CE_HeaderEmptyArea:
        painter->fillRect(option->rect, ColourOf(*option, QPalette::Window));
        return;
    case CE_TabBarTabShape:
        return PaintTab(*painter, *option);
    case CE_ProgressBarGroove:
        return PaintBox(*painter, option->rect, ColourOf(*option, QPalette::Base), ColourOf(*option, roles::outline));
    case CE_ProgressBarContents:
        if (const auto* const bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
            bar != nullptr && bar->maximum > bar->minimum)
            return PaintProgress(*painter, *bar);
        break;
    case CE_MenuBarItem:
        return PaintMenuBarItem(*painter, *proxy(), *static_cast<const QStyleOptionMenuItem*>(option));
    case CE_MenuBarEmptyArea:
    case CE_ToolBar:
        painter->fillRect(option->rect, ColourOf(*option, QPalette::Window));
        return;
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void FlatStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const {
    if (const auto* const group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
        control == CC_GroupBox && group != nullptr && !group->subControls.testFlag(SC_GroupBoxCheckBox))
        return PaintGroup(*painter, *proxy(), *group, widget);
    if (const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        control == CC_ScrollBar && bar != nullptr)
        return PaintScrollBar(*painter, *proxy(), *bar, widget);
    if (const auto* const box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        control == CC_ComboBox && box != nullptr)
        return PaintComboBox(*painter, *proxy(), *box, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect FlatStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    if (element == SE_PushButtonFocusRect)
        return option->rect;
    const QRect box = QProxyStyle::subElementRect(element, option, widget);
    if (element == SE_CheckBoxFocusRect || element == SE_RadioButtonFocusRect)
        return box.adjusted(-1, 0, tokens::unit, 0).intersected(option->rect);
    return box;
}

/// The field of a box without a frame is as high as the box, so that its text stands as high as a label's.
QRect FlatStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                const QWidget* widget) const {
    QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    const auto* const box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (part == SC_ComboBoxEditField && box != nullptr && !box->frame) {
        rect.setTop(box->rect.top());
        rect.setBottom(box->rect.bottom());
    }
    return rect;
}

QIcon FlatStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    if (icon == SP_ToolBarHorizontalExtensionButton)
        return QIcon(new MoreSign); // menu bars ask for it at once, and Qt would read a file
    return QProxyStyle::standardIcon(icon, option, widget);
}

int FlatStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return tokens::margin;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return tokens::gap;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize FlatStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    QSize whole = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_PushButton)
        whole = {whole.width() + tokens::gap, std::max(whole.height(), buttonHeight)};
    if (type == CT_MenuItem)
        whole.rheight() += tokens::unit;
    if (type == CT_GroupBox)
        whole.rwidth() += tokens::wideGap; // Fusion measures plain letters, and the heading is bold
    return whole;
}

} // namespace pirol
