#include "controller/git_status.h"

#include "controller/tool_text.h"
#include "parsers/git_parsers.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool isOctalDigit(char c) {
    return c >= '0' && c <= '7';
}

char escapedByte(char letter) {
    switch (letter) {
    case 'a':
        return '\a';
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    case 'v':
        return '\v';
    default:
        return letter;
    }
}

/// Takes one name from the front of `text`, in C quotes or plain up to " -> ", and what follows it.
QString takeName(QByteArrayView &text) {
    if (!text.startsWith('"')) {
        const qsizetype arrow = text.indexOf(" -> ");
        const QByteArrayView name = arrow < 0 ? text : text.first(arrow);
        text = text.sliced(name.size());
        return toolText(name);
    }
    QByteArray name;
    qsizetype i = 1;
    for (; i < text.size() && text[i] != '"'; ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            name.append(text[i]);
            continue;
        }
        ++i;
        if (!isOctalDigit(text[i])) {
            name.append(escapedByte(text[i]));
            continue;
        }
        int byte = 0;
        const qsizetype end = std::min(i + 3, text.size());
        for (; i < end && isOctalDigit(text[i]); ++i)
            byte = byte * 8 + (text[i] - '0');
        --i;
        name.append(static_cast<char>(byte));
    }
    text = text.sliced(std::min(i + 1, text.size()));
    return toolText(name);
}

struct Names {
    QString path{};
    std::optional<QString> oldPath{};
};

/// The names of a line's path part. `line` has two status letters, a blank and the path part.
Names namesOf(QStringView line) {
    const QByteArray bytes = line.sliced(3).toUtf8();
    QByteArrayView rest(bytes);
    const QString first = takeName(rest);
    constexpr QByteArrayView arrow(" -> ");
    if (!rest.startsWith(arrow))
        return {first, std::nullopt};
    rest = rest.sliced(arrow.size());
    return {takeName(rest), first};
}

/// Whether the line's path part is more than one plain name, which the parser's simple rules would get wrong.
bool isIntricate(QStringView line) {
    return line.size() > 3 && (line[3] == u'"' || line.contains(u" -> "));
}

} // namespace

GitStatus gitStatus(QStringView text) {
    GitStatus status;
    QString plainLines;
    plainLines.reserve(text.size());
    for (const QStringView line : text.tokenize(u'\n', Qt::SkipEmptyParts)) {
        if (!isIntricate(line)) {
            plainLines += line;
            plainLines += u'\n';
            continue;
        }
        const Names names = namesOf(line);
        const SVNStatusKind kind = GitParsers::statusKind(line[0], line[1]);
        WorkingCopyItem item{names.path, kind};
        item.treeConflict = kind == SVNStatusKind::conflicted;
        status.items.append(item);
        if (names.oldPath)
            status.oldNames.insert(names.path, *names.oldPath);
    }
    status.items += GitParsers::parseStatus(plainLines);
    return status;
}

} // namespace kestor
