#include "controller/display_date.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// Qt has a long and a short date format: the medium one is the long one without weekday, its month abbreviated.
QString mediumDateFormat(const QLocale &locale) {
    QString format = locale.dateFormat(QLocale::LongFormat);
    for (const QString &weekday : {u"dddd, "_s, u", dddd"_s, u"dddd "_s, u" dddd"_s, u"dddd"_s})
        format.remove(weekday);
    return format.replace(u"MMMM"_s, u"MMM"_s);
}

/// Some locales, "C" among them, tell seconds in their short format.
QString shortTimeFormat(const QLocale &locale) {
    return locale.timeFormat(QLocale::ShortFormat).remove(u":ss"_s);
}

} // namespace

QString displayDate(const QDateTime &date) {
    const QLocale locale;
    const QDateTime local = date.toLocalTime();
    return locale.toString(local.date(), mediumDateFormat(locale)) + u' ' +
           locale.toString(local.time(), shortTimeFormat(locale));
}

} // namespace kestor
