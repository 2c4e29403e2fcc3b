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

/// The rules of a file that no later line takes back.
class StandingRules {
public:
    explicit StandingRules(const QByteArray &content) {
        for (QByteArray line : content.split('\n')) {
            if (line.endsWith('\r'))
                line.chop(1);
            add(line);
        }
    }

    void add(const QByteArray &rule) {
        rules.remove(rule.startsWith('!') ? rule.mid(1) : '!' + rule);
        rules.insert(rule);
    }

    bool contains(const QByteArray &rule) const { return rules.contains(rule); }

private:
    QSet<QByteArray> rules;
};

QByteArray lineEndOf(const QByteArray &content) {
    const qsizetype lineFeed = content.indexOf('\n');
    return lineFeed > 0 && content[lineFeed - 1] == '\r' ? QByteArray("\r\n") : QByteArray("\n");
}

void endLastLine(QByteArray &content, const QByteArray &lineEnd) {
    if (content.isEmpty() || content.endsWith('\n'))
        return;
    // A carriage return more would become a part of the last line's rule.
    content += content.endsWith('\r') ? QByteArray("\n") : lineEnd;
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
    StandingRules standing(content);
    const QByteArray lineEnd = lineEndOf(content);
    QByteArray result = content;
    for (const QString &rule : rules) {
        const QByteArray line = rule.toUtf8();
        if (standing.contains(line))
            continue;
        standing.add(line);
        endLastLine(result, lineEnd);
        result += line + lineEnd;
    }
    return result;
}

} // namespace kestor
