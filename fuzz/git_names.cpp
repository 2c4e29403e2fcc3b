#include "controller/git_status.h"
#include "fuzz/input_text.h"
#include "fuzz/property.h"

namespace kestor::fuzz {

namespace {

char escapeLetter(char byte) {
    constexpr QByteArrayView bytes("\a\b\t\n\v\f\r\"\\");
    const qsizetype place = bytes.indexOf(byte);
    return place < 0 ? '\0' : "abtnvfr\"\\"[place];
}

/// A name as Git prints one with unusual characters when it is told to print the others as they are.
QString inQuotes(const QString &name) {
    QByteArray quoted;
    for (const char byte : name.toUtf8()) {
        const auto code = static_cast<unsigned char>(byte);
        if (const char letter = escapeLetter(byte))
            (quoted += '\\') += letter;
        else if (code < 0x20 || code == 0x7F)
            quoted += '\\' + QByteArray::number(code, 8).rightJustified(3, '0');
        else
            quoted += byte;
    }
    return u'"' + exactText(quoted) + u'"';
}

} // namespace

void check(QByteArrayView input) {
    gitStatus(exactText(input));
    const QString name = exactText(input.first(input.size() / 2));
    const QString other = exactText(input.sliced(input.size() / 2));
    if (name.isEmpty() || other.isEmpty() || name == other)
        return;
    const GitStatus status = gitStatus(QStringLiteral(" M %1\nR  %1 -> %2\n").arg(inQuotes(name), inQuotes(other)));
    require(status.items.size() == 2, "each line is one row");
    require(status.items[0].path == name && status.items[0].kind == SVNStatusKind::modified,
            "a quoted name is the name");
    require(status.items[1].path == other, "a rename has its new name");
    require(status.facts.oldNames.value(other) == name, "a rename knows its old name");
}

} // namespace kestor::fuzz
