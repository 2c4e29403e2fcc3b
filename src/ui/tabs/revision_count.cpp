#include "ui/tabs/revision_count.h"

#include <QLocale>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

QString counted(qsizetype count, const QString &noun, const QLocale &locale) {
    const QString text = locale.toString(static_cast<qlonglong>(count)) + u' ' + noun;
    return count == 1 ? text : text + u's';
}

} // namespace

QString revisionCountText(qsizetype count, const QLocale &locale) {
    return counted(count, u"revision"_s, locale);
}

QString commitCountText(qsizetype count, const QLocale &locale) {
    return counted(count, u"commit"_s, locale);
}

QString itemCountText(qsizetype count, const QLocale &locale) {
    return counted(count, u"item"_s, locale);
}

} // namespace kestor
