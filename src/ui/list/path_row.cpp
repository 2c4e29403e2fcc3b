#include "ui/list/path_row.h"

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

QString spoken(Tick tick) {
    switch (tick) {
    case Tick::none:
        break;
    case Tick::unticked:
        return u", not ticked"_s;
    case Tick::ticked:
        return u", ticked"_s;
    }
    return {};
}

} // namespace

QString accessibleText(const PathRow &row) {
    return row.path + u", "_s + row.label + spoken(row.tick);
}

} // namespace kestor
