#include "rules/ignore_file.h"

#include "rules/working_copy_paths.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool needsEscape(QChar c, qsizetype position) {
    const bool leading = position == 0 && (c == u'#' || c == u'!');
    return leading || QStringView(u"*?[\\").contains(c);
}

QString escapedPath(QStringView path) {
    QString escaped;
    for (qsizetype i = 0; i < path.size(); ++i) {
        const QChar c = path[i];
        const bool trailingBlank = c == u' ' && i + 1 == path.size();
        if (needsEscape(c, i) || trailingBlank)
            escaped += u'\\';
        escaped += c == u'\n' || c == u'\r' ? QChar(u'?') : c;
    }
    return escaped;
}

/// The lines of the file without their ends.
QSet<QByteArray> linesOf(const QByteArray &content) {
    QSet<QByteArray> lines;
    for (QByteArray line : content.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        lines.insert(line);
    }
    return lines;
}

QByteArray lineEndOf(const QByteArray &content) {
    const qsizetype lineFeed = content.indexOf('\n');
    return lineFeed > 0 && content[lineFeed - 1] == '\r' ? QByteArray("\r\n") : QByteArray("\n");
}

} // namespace

QString ignoreRuleFor(QStringView path, PathType type) {
    const QString rule = u'/' + escapedPath(normalizedPath(path));
    return type == PathType::directory ? rule + u'/' : rule;
}

QString includeRuleFor(QStringView path, PathType type) {
    return u'!' + ignoreRuleFor(path, type);
}

QByteArray withRules(const QByteArray &content, const QStringList &rules) {
    QSet<QByteArray> lines = linesOf(content);
    const QByteArray lineEnd = lineEndOf(content);
    QByteArray result = content;
    for (const QString &rule : rules) {
        const QByteArray line = rule.toUtf8();
        if (lines.contains(line))
            continue;
        lines.insert(line);
        if (!result.isEmpty() && !result.endsWith('\n'))
            result += lineEnd;
        result += line + lineEnd;
    }
    return result;
}

} // namespace kestor
