#include "tools/shell_escaped.h"

#include <algorithm>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

QString escaped(const QString &argument) {
    static constexpr QStringView special = u" \t\n\"'\\$;&|()<>*?[]{}!";
    const auto isSpecial = [](QChar c) {
        return special.contains(c);
    };
    if (std::none_of(argument.begin(), argument.end(), isSpecial))
        return argument;
    QString inner = argument;
    inner.replace(u'\'', uR"('\'')"_s);
    return u'\'' + inner + u'\'';
}

} // namespace

QString shellEscaped(const QStringList &arguments) {
    QStringList pieces;
    pieces.reserve(arguments.size());
    for (const QString &argument : arguments)
        pieces.append(escaped(argument));
    return pieces.join(u' ');
}

} // namespace kestor
