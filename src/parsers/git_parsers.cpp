#include "parsers/git_parsers.h"

#include "model/file_order.h"
#include "model/utf8_text.h"
#include "parsers/iso_date.h"

#include <QHash>
#include <QStringTokenizer>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

enum class Sides : std::uint8_t { both, either };

struct LetterRule {
    char16_t letter;
    Sides sides;
    SVNStatusKind kind;
};

// The first rule that matches decides.
constexpr std::array<LetterRule, 8> letterRules{{
    {u'!', Sides::both, SVNStatusKind::ignored},
    {u'?', Sides::both, SVNStatusKind::unversioned},
    {u'U', Sides::either, SVNStatusKind::conflicted},
    {u'A', Sides::both, SVNStatusKind::conflicted},
    {u'D', Sides::both, SVNStatusKind::conflicted},
    {u'A', Sides::either, SVNStatusKind::added},
    {u'D', Sides::either, SVNStatusKind::deleted},
    {u'R', Sides::either, SVNStatusKind::replaced},
}};

WorkingCopyItem statusItem(QStringView line) {
    constexpr QStringView arrow = u" -> ";
    QStringView path = line.sliced(3);
    const qsizetype renamed = path.indexOf(arrow);
    if (renamed >= 0)
        path = path.sliced(renamed + arrow.size());
    const SVNStatusKind kind = GitParsers::statusKind(line[0], line[1]);
    return WorkingCopyItem{
        .path = GitParsers::unquotePath(path), .kind = kind, .treeConflict = kind == SVNStatusKind::conflicted};
}

constexpr QByteArrayView commitLine = "\n--KESTOR-GIT-COMMIT--";
constexpr QLatin1StringView commitMarker(commitLine.data() + 1, commitLine.size() - 1);

/// The entry that a line begins which carries the commit marker; nothing when pieces are missing.
std::optional<LogEntry> startedEntry(QStringView line) {
    QStringView rest = line.sliced(commitMarker.size());
    std::array<QStringView, 3> pieces;
    for (QStringView &piece : pieces) {
        const qsizetype tab = rest.indexOf(u'\t');
        if (tab < 0)
            return std::nullopt;
        piece = rest.first(tab);
        rest = rest.sliced(tab + 1);
    }
    return LogEntry{.commitHash = pieces[0].toString(),
                    .author = pieces[1].toString(),
                    .date = GitParsers::parseDate(pieces[2]),
                    .message = rest.toString()};
}

/// A line of --name-status, in slices of it.
struct NameStatus {
    QStringView action{};
    QStringView path{}; ///< perhaps quoted
};

std::optional<NameStatus> nameStatus(QStringView line) {
    const qsizetype tab = line.indexOf(u'\t');
    if (tab < 0)
        return std::nullopt;
    const QStringView action = line.first(tab).left(1);
    const QStringView paths = line.sliced(tab + 1);
    const qsizetype secondTab = paths.indexOf(u'\t');
    const bool movesPath = action == u"R" || action == u"C";
    if (secondTab < 0 || !movesPath)
        return NameStatus{action, secondTab < 0 ? paths : paths.first(secondTab)};
    const QStringView newPath = paths.sliced(secondTab + 1);
    return NameStatus{action, newPath.left(newPath.indexOf(u'\t'))};
}

/// Texts of which most come again; all repetitions share their characters.
class SharedTexts {
public:
    /// `text` without its quotes.
    const QString &unquoted(QStringView text) {
        const auto known = texts.constFind(text);
        if (known != texts.constEnd())
            return *known;
        const QString value = GitParsers::unquotePath(text);
        return *texts.insert(value == text ? QStringView(value) : keptQuoted(text), value);
    }

private:
    QStringView keptQuoted(QStringView text) {
        quoted.append(text.toString());
        return quoted.constLast();
    }

    QHash<QStringView, QString> texts; ///< the keys are slices of the values and of `quoted`
    QStringList quoted;
};

std::optional<GitBranch> branch(QStringView line) {
    const QList<QStringView> pieces = line.split(u'\t');
    // The reference that ends in HEAD is a remote's pointer to its default branch, no branch of its own.
    if (pieces.size() < 3 || pieces[1].endsWith(u"/HEAD"))
        return std::nullopt;
    return GitBranch{.name = pieces[2].toString(),
                     .isCurrent = pieces[0] == u"*",
                     .isRemote = pieces[1].startsWith(u"refs/remotes")};
}

bool isListedBefore(const GitBranch &left, const GitBranch &right) {
    if (left.isCurrent != right.isCurrent)
        return left.isCurrent;
    return !left.isRemote && right.isRemote;
}

} // namespace

namespace GitParsers {

QStringList namesEndedByNul(QByteArrayView printed) {
    return utf8Text(printed).split(QChar::Null, Qt::SkipEmptyParts);
}

QList<WorkingCopyItem> parseStatus(QStringView text) {
    QList<WorkingCopyItem> items;
    for (const QStringView line : qTokenize(text, u'\n', Qt::SkipEmptyParts)) {
        if (line.size() > 2)
            items.append(statusItem(line));
    }
    sortInStandardOrder(items, &WorkingCopyItem::path);
    return items;
}

SVNStatusKind statusKind(QChar index, QChar workTree) {
    for (const LetterRule &rule : letterRules) {
        const bool inIndex = index == rule.letter;
        const bool inWorkTree = workTree == rule.letter;
        if (rule.sides == Sides::both ? inIndex && inWorkTree : inIndex || inWorkTree)
            return rule.kind;
    }
    return SVNStatusKind::modified;
}

QString unquotePath(QStringView text) {
    if (text.size() < 2 || !text.startsWith(u'"') || !text.endsWith(u'"'))
        return text.toString();
    const QStringView quoted = text.sliced(1, text.size() - 2);
    QString path;
    path.reserve(quoted.size());
    for (qsizetype i = 0; i < quoted.size(); ++i) {
        if (quoted[i] == u'\\' && i + 1 < quoted.size())
            ++i;
        path.append(quoted[i]);
    }
    return path;
}

class LogReader::Lines {
public:
    void read(QStringView text) {
        for (const QStringView line : qTokenize(text, u'\n', Qt::SkipEmptyParts)) {
            if (line.startsWith(commitMarker)) {
                finish();
                current = startedEntry(line);
            } else if (current) {
                if (const std::optional<NameStatus> change = nameStatus(line))
                    current->paths.append({actions.unquoted(change->action), paths.unquoted(change->path), u"file"_s});
            }
        }
        finish();
    }
    const QList<LogEntry> &entries() const { return finished; }

private:
    void finish() {
        if (!current)
            return;
        current->revision = nextRevision--;
        finished.append(*std::exchange(current, std::nullopt));
    }

    QList<LogEntry> finished;
    std::optional<LogEntry> current;
    SharedTexts actions;
    SharedTexts paths;
    qint64 nextRevision = 1000000;
};

LogReader::LogReader() : lines(std::make_unique<Lines>()) {}

LogReader::~LogReader() = default;

void LogReader::read(QStringView piece) {
    lines->read(piece);
}

qsizetype LogReader::wholeEntries(QByteArrayView printed) {
    return printed.lastIndexOf(commitLine) + 1;
}

QList<LogEntry> LogReader::entries() const {
    return lines->entries();
}

QList<LogEntry> parseLog(QStringView text) {
    LogReader reader;
    reader.read(text);
    return reader.entries();
}

std::optional<SVNPathChange> parseNameStatusLine(QStringView line) {
    const std::optional<NameStatus> change = nameStatus(line);
    if (!change)
        return std::nullopt;
    return SVNPathChange{change->action.toString(), unquotePath(change->path), u"file"_s};
}

std::optional<QDateTime> parseDate(QStringView text) {
    return dateFromISO8601(text);
}

QList<GitBranch> parseBranches(QStringView text) {
    QList<GitBranch> branches;
    for (const QStringView line : qTokenize(text, u'\n', Qt::SkipEmptyParts)) {
        if (std::optional<GitBranch> found = branch(line))
            branches.append(*std::move(found));
    }
    sortInStandardOrder(branches, &GitBranch::name);
    std::stable_sort(branches.begin(), branches.end(), isListedBefore);
    return branches;
}

} // namespace GitParsers

} // namespace kestor
