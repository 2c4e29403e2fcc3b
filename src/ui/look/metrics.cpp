#include "ui/look/metrics.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>

namespace kestor {

int rowHeight(const QFont &font) {
    return qMax(24, QFontMetrics(font).height() + 6);
}

int controlHeight(const QFont &font) {
    return qMax(leastControlHeight, QFontMetrics(font).height() + 8);
}

int twoLinesHeight(const QFont &font) {
    return QFontMetrics(font).height() + QFontMetrics(smallFont(font)).height();
}

int twoLineRowHeight(const QFont &font) {
    return qMax(44, twoLinesHeight(font) + 12);
}

int scaledWidth(int width, const QFont &font) {
    constexpr int standardPixelSize = 13;
    return qMax(width, width * QFontInfo(font).pixelSize() / standardPixelSize);
}

QFont resizedFont(const QFont &font, int pixels) {
    QFont result = font;
    result.setPixelSize(qMax(10, QFontInfo(font).pixelSize() + pixels));
    return result;
}

QFont smallFont(const QFont &font) {
    return resizedFont(font, -1);
}

QFont headingFont(const QFont &font) {
    return boldFont(resizedFont(font, 2));
}

QFont boldFont(const QFont &font) {
    QFont result = font;
    result.setBold(true);
    return result;
}

QFont fixedFont(const QFont &font) {
    QFont result = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    result.setPixelSize(QFontInfo(smallFont(font)).pixelSize());
    return result;
}

} // namespace kestor
