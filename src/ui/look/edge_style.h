#pragma once

#include <QProxyStyle>

class QStyleOptionMenuItem;

namespace kestor {

/// Fusion with the edges of the window's own palette: tick boxes, text fields, framed editors, combo boxes, buttons,
/// menus, scroll bars and sliders stay visible in the dark, where Fusion's own edges vanish, and focus is always shown.
/// Main thread only.
class EdgeStyle final : public QProxyStyle {
    Q_OBJECT

public:
    EdgeStyle();

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                           const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;
    /// Every menu bar makes the icon for what has no room in it. Fusion's would load all plugins for images at start.
    QIcon standardIcon(StandardPixmap standard, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;

private:
    void drawMenuItem(ControlElement element, const QStyleOptionMenuItem &item, QPainter &painter,
                      const QWidget *widget) const;
};

} // namespace kestor
