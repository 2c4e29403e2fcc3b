#include "ui/look/metrics.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>

namespace kestor {

namespace {

QFont resized(const QFont &font, int pixels) {
    QFont result = font;
    result.setPixelSize(qMax(10, QFontInfo(font).pixelSize() + pixels));
    return result;
}

} // namespace

int rowHeight(const QFont &font) {
    return qMax(24, QFontMetrics(font).height() + 6);
}

int twoLinesHeight(const QFont &font) {
    return QFontMetrics(font).height() + QFontMetrics(smallFont(font)).height();
}

int twoLineRowHeight(const QFont &font) {
    return qMax(44, twoLinesHeight(font) + 12);
}

QFont smallFont(const QFont &font, int pixels) {
    return resized(font, -pixels);
}

QFont headingFont(const QFont &font, int pixels) {
    return boldFont(resized(font, pixels));
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
