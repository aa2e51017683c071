#pragma once

#include <QProxyStyle>

namespace pirol {

/// Paints a tick into a square.
void PaintTick(QPainter& painter, const QRectF& box, const QColor& colour);

/// How all controls are drawn: flat areas, thin outlines, a ring around what has the keyboard. All colours come from
/// the palette. What it leaves out is drawn as Fusion does.
class FlatStyle final : public QProxyStyle {
    Q_OBJECT

  public:
    FlatStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
};

} // namespace pirol
