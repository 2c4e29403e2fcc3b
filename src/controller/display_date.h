#pragma once

#include <QDateTime>
#include <QString>

namespace kestor {

/// A point in time as lists show it: medium date and short time of the user's locale, in local time.
QString displayDate(const QDateTime &date);

} // namespace kestor
