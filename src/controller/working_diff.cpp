#include "controller/working_diff.h"

#include "controller/path_targets.h"
#include "controller/tool_text.h"
#include "parsers/line_changes.h"
#include "parsers/unified_diff_parser.h"
#include "rules/project_bounds.h"
#include "tools/arguments.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

// Nobody reads more than this as one diff, and it bounds what a stray core dump costs.
constexpr qint64 largestShownFile = qint64{256} << 20;

QString fileDiffText(const QString &path, const QString &root) {
    const QFileInfo info(root + u'/' + path);
    if (!info.exists())
        return u"(file not found)"_s;
    if (info.isDir())
        return u"(unversioned directory)"_s;
    // Opening a pipe or a device could wait for ever.
    QFile file(info.filePath());
    const bool readable =
        readsInside(path, root) && info.isFile() && info.size() <= largestShownFile && file.open(QIODevice::ReadOnly);
    const QByteArray content = readable ? file.readAll() : QByteArray();
    if (!readable || file.error() != QFileDevice::NoError || !isValidUtf8(content))
        return u"(binary or unreadable file)"_s;
    return UnifiedDiffParser::unversionedFileDiff(path, withLineFeeds(QString::fromUtf8(content)));
}

/// Words with which a tool says that a file is binary, cut behind their letter that is the rarest in texts.
struct BinaryWords {
    QStringView upToTheY;
    QStringView behind;
};
constexpr std::array<BinaryWords, 4> binaryWords{{
    {u"binary", u" file"},
    {u"marked as a binary", u""},
    {u"binary", u" or unreadable"},
    {u"cannot display", u""},
}};

/// Whether the words stand around the letter at `y`, in upper or lower case.
bool saysBinaryAt(QStringView text, qsizetype y) {
    const QStringView before = text.first(y + 1);
    const QStringView after = text.sliced(y + 1);
    return std::ranges::any_of(binaryWords, [before, after](const BinaryWords &words) {
        return before.endsWith(words.upToTheY, Qt::CaseInsensitive) &&
               after.startsWith(words.behind, Qt::CaseInsensitive);
    });
}

/// Looks for one letter only, as a long diff is not to be searched for each of the words.
bool saysBinary(QStringView text) {
    constexpr std::array<QChar, 2> letters{u'y', u'Y'};
    return std::ranges::any_of(letters, [text](QChar letter) {
        for (qsizetype y = text.indexOf(letter); y >= 0; y = text.indexOf(letter, y + 1)) {
            if (saysBinaryAt(text, y))
                return true;
        }
        return false;
    });
}

} // namespace

QStringList readableSvnDiff() {
    return args(u"diff", u"--internal-diff", u"-x", u"-u");
}

QStringList workingDiffArguments(RepositoryKind kind, const std::optional<QString> &path, const QString &gitBase) {
    QStringList arguments =
        kind == RepositoryKind::svn ? readableSvnDiff() : args(u"diff", u"--no-ext-diff", gitBase, u"--");
    if (path)
        arguments.append(kind == RepositoryKind::svn ? svnDiffTarget(*path) : gitTarget(*path));
    return arguments;
}

LoadedDiff unversionedDiff(const QString &path, const QString &root) {
    const QString text = fileDiffText(path, root);
    return {text, binaryPreviewIfNeeded(path, text).value_or(DiffPreview())};
}

std::optional<DiffPreview> binaryPreviewIfNeeded(const QString &path, QStringView text) {
    if (!saysBinary(text))
        return std::nullopt;
    return DiffPreview{DiffPreviewKind::binary, path, QString(), u"Unknown file type."_s, std::nullopt, std::nullopt};
}

} // namespace kestor
