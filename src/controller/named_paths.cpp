#include "controller/named_paths.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr qsizetype mostNamed = 5;

} // namespace

QString namedPaths(const QStringList &paths) {
    QString names = paths.first(std::min(paths.size(), mostNamed)).join(u", "_s);
    // A line break in a name would begin a sentence of its own.
    std::ranges::replace_if(
        names, [](QChar c) { return c.category() == QChar::Other_Control; }, QChar::ReplacementCharacter);
    return paths.size() > mostNamed ? names + u", …"_s : names;
}

} // namespace kestor
