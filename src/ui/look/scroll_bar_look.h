#pragma once

class QPainter;
class QStyle;
class QStyleOptionSlider;
class QWidget;

namespace kestor {

/// A rounded bar in a groove, where `style` has the parts of a scroll bar. It stands out from what is scrolled.
void paintScrollBar(QPainter &painter, const QStyleOptionSlider &option, const QStyle &style, const QWidget *widget);

} // namespace kestor
