#include "model/size_text.h"

#include <QLocale>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace kestor {

QString sizeText(qint64 bytes) {
    constexpr double step = 1000;
    constexpr double shownRounded = 9.95; // from here on tenths say nothing
    constexpr std::array<QStringView, 4> units{u"KB", u"MB", u"GB", u"TB"};
    const QLocale locale;
    if (bytes < 1000)
        return (bytes == 1 ? u"%1 byte"_s : u"%1 bytes"_s).arg(locale.toString(bytes));
    double value = static_cast<double>(bytes) / step;
    std::size_t unit = 0;
    while (std::round(value) >= step && unit + 1 < units.size()) {
        value /= step;
        ++unit;
    }
    return u"%1 %2"_s.arg(locale.toString(value, 'f', value < shownRounded ? 1 : 0), units[unit]);
}

} // namespace kestor
