#include "controller/git_status.h"

#include "model/utf8_text.h"
#include "parsers/git_parsers.h"
#include "rules/project_bounds.h"
#include "rules/working_copy_paths.h"

#include <algorithm>
#include <array>
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
        return utf8Text(name);
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
    return utf8Text(name);
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

/// Whether HEAD has no file under the name of a line with these letters: a copy, or in a conflict deleted by us, added
/// by them alone, or deleted by both.
bool isMissingInHead(QStringView letters) {
    constexpr std::array<QStringView, 3> conflicts{u"DU", u"UA", u"DD"};
    return letters[0] == u'C' || std::find(conflicts.begin(), conflicts.end(), letters) != conflicts.end();
}

void addFacts(GitRowFacts &facts, QStringView letters, const Names &names) {
    if (isMissingInHead(letters))
        facts.notInHead.insert(names.path);
    else if (names.oldPath)
        facts.oldNames.insert(names.path, *names.oldPath);
    if (letters == u"D ")
        facts.notInIndex.insert(names.path);
    if (letters == u" R")
        facts.notYetRenamed.insert(names.path);
    if (letters.contains(u'T'))
        facts.retyped.insert(names.path);
    if (!QStringView(u" ?!").contains(letters[0]))
        facts.staged.insert(names.path);
    if (QStringView(u"ARC").contains(letters[0]) && letters[1] == u'D')
        facts.onlyInIndex.insert(names.path);
}

/// Whether the line's path part is one plain name. The parser's simple rules would get others wrong.
bool isPlain(QStringView line) {
    return line[3] != u'"' && !line.contains(u" -> ");
}

} // namespace

GitRowFacts withVacantOldNames(GitRowFacts facts, const QString &root) {
    facts.oldNames.removeIf([&root](const auto &names) { return isOnDisk(absolutePath(names.value(), root)); });
    return facts;
}

bool hasLostName(const QString &path, const GitRowFacts &facts, const QString &root) {
    const bool lost = path.contains(QChar::ReplacementCharacter) && !standsInside(path, root);
    return lost || facts.oldNames.value(path).contains(QChar::ReplacementCharacter);
}

GitStatus gitStatus(QStringView text) {
    GitStatus status;
    QString plainLines;
    plainLines.reserve(text.size());
    for (const QStringView line : text.tokenize(u'\n', Qt::SkipEmptyParts)) {
        if (line.size() <= 3)
            continue;
        const QStringView letters = line.first(2);
        if (isPlain(line)) {
            plainLines += line;
            plainLines += u'\n';
            addFacts(status.facts, letters, {line.sliced(3).toString(), std::nullopt});
            continue;
        }
        const Names names = namesOf(line);
        const SVNStatusKind kind = GitParsers::statusKind(line[0], line[1]);
        WorkingCopyItem item{names.path, kind};
        item.treeConflict = kind == SVNStatusKind::conflicted;
        status.items.append(item);
        addFacts(status.facts, letters, names);
    }
    status.items += GitParsers::parseStatus(plainLines);
    return status;
}

} // namespace kestor
