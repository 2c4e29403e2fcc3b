#include "ui/list/path_row.h"

#include <QStringList>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

QString spoken(Tick tick) {
    switch (tick) {
    case Tick::noColumn:
    case Tick::none:
        break;
    case Tick::unticked:
        return u"not ticked"_s;
    case Tick::ticked:
        return u"ticked"_s;
    }
    return {};
}

} // namespace

QString accessibleText(const PathRow &row) {
    QStringList parts{row.path, row.status, row.label, spoken(row.tick)};
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

} // namespace kestor
