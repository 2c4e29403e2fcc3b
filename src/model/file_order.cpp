#include "model/file_order.h"

#include <QLocale>

namespace kestor {

QCollator standardCollator() {
    // A collator of the C locale ignores numeric mode, so the locale is fixed rather than the user's.
    QCollator collator{QLocale(QLocale::English)};
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

int localizedStandardCompare(QStringView left, QStringView right) {
    return standardCollator().compare(left, right);
}

} // namespace kestor
