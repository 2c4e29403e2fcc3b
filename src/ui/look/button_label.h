#pragma once

class QPainter;
class QStyle;
class QStyleOptionButton;

namespace kestor {

/// The icon and the text of a button, apart from each other in its middle.
void paintButtonLabel(QPainter &painter, const QStyleOptionButton &option, const QStyle &style);

} // namespace kestor
