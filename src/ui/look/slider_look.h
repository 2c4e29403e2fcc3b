#pragma once

class QPainter;
class QStyle;
class QStyleOptionSlider;
class QWidget;

namespace kestor {

/// A horizontal slider: a round handle, where `style` has it, on a track that is filled up to it.
void paintSlider(QPainter &painter, const QStyleOptionSlider &option, const QStyle &style, const QWidget *widget);

} // namespace kestor
