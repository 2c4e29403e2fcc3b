#include "rules/ignore_rule.h"

#include "rules/working_copy_paths.h"

#include <algorithm>

namespace kestor {

namespace {

bool isGlobCharacter(QChar character) {
    return character == u'*' || character == u'?' || character == u'[';
}

/// The index of the first wildcard that no backslash quotes; the size when there is none.
qsizetype firstGlobIndex(QStringView text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'\\')
            ++i;
        else if (isGlobCharacter(text[i]))
            return i;
    }
    return text.size();
}

QString withoutEscapes(QStringView text) {
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'\\' && i + 1 < text.size())
            ++i;
        plain.append(text[i]);
    }
    return plain;
}

/// The deepest folder that is spelled out before the first wildcard.
QString literalFolder(QStringView pattern) {
    const QString literal = withoutEscapes(pattern.first(firstGlobIndex(pattern)));
    return normalizedPath(QStringView(literal).first(std::max<qsizetype>(literal.lastIndexOf(u'/'), 0)));
}

bool isInside(QStringView path, QStringView folder) {
    return path.size() > folder.size() && path[folder.size()] == u'/' && path.startsWith(folder);
}

/// Only spaces are trimmed, and only those that no backslash quotes.
QStringView withoutTrailingSpaces(QStringView line) {
    while (line.endsWith(u' ')) {
        qsizetype end = line.size() - 1;
        while (end > 0 && line[end - 1] == u'\\')
            --end;
        const qsizetype backslashes = line.size() - 1 - end;
        if (backslashes % 2 == 1)
            break;
        line.chop(1);
    }
    return line;
}

} // namespace

std::optional<IgnoreRule> IgnoreRule::fromLine(QStringView line, QStringView basePath) {
    if (line.endsWith(u'\r'))
        line.chop(1);
    line = withoutTrailingSpaces(line);
    if (line.startsWith(u'#'))
        return std::nullopt;
    IgnoreRule rule;
    rule.isNegated = line.startsWith(u'!');
    if (rule.isNegated || line.startsWith(u"\\#") || line.startsWith(u"\\!"))
        line = line.sliced(1);
    rule.directoryOnly = line.endsWith(u'/');
    while (line.endsWith(u'/'))
        line.chop(1);
    rule.anchored = line.startsWith(u'/');
    while (line.startsWith(u'/'))
        line = line.sliced(1);
    if (line.isEmpty())
        return std::nullopt;
    rule.hasSlash = line.contains(u'/');
    rule.pattern = line.toString();
    rule.basePath = normalizedPath(basePath);
    rule.compile();
    return rule;
}

void IgnoreRule::compile() {
    glob = Glob(pattern);
    if (!anchored && !hasSlash)
        return;
    if (pattern.endsWith(u"/*") && pattern.size() > 2)
        folderGlob = Glob(QStringView(pattern).chopped(2));
    const QString fullPattern = basePath.isEmpty() ? pattern : basePath + u'/' + pattern;
    reachIsLiteral = firstGlobIndex(fullPattern) == fullPattern.size();
    reach = reachIsLiteral ? fullPattern : literalFolder(fullPattern);
}

bool IgnoreRule::matches(QStringView path, bool isDirectory) const {
    QStringView relativePath = path;
    if (!basePath.isEmpty()) {
        if (!isInside(path, basePath))
            return false;
        relativePath = path.sliced(basePath.size() + 1);
    }
    if (relativePath.isEmpty())
        return false;
    return anchored || hasSlash ? matchesPathPattern(relativePath, isDirectory)
                                : matchesSomeName(relativePath, isDirectory);
}

bool IgnoreRule::matchesSomeName(QStringView relativePath, bool isDirectory) const {
    for (qsizetype begin = 0; begin < relativePath.size();) {
        const qsizetype slash = relativePath.indexOf(u'/', begin);
        const qsizetype end = slash < 0 ? relativePath.size() : slash;
        if (glob.matches(relativePath.sliced(begin, end - begin)))
            return !directoryOnly || isDirectory || slash >= 0;
        begin = end + 1;
    }
    return false;
}

bool IgnoreRule::matchesPathPattern(QStringView relativePath, bool isDirectory) const {
    // A file that is named exactly like a folder pattern is not looked for among its parents.
    if (glob.matches(relativePath))
        return !directoryOnly || isDirectory;
    if (folderGlob && isDirectory && folderGlob->matches(relativePath))
        return true;
    for (qsizetype slash = relativePath.indexOf(u'/'); slash >= 0; slash = relativePath.indexOf(u'/', slash + 1)) {
        if (glob.matches(relativePath.first(slash)))
            return true;
    }
    return false;
}

bool IgnoreRule::canMatchDescendant(QStringView directory) const {
    if (!reachIsLiteral && (reach.isEmpty() || directory.isEmpty()))
        return true;
    return reach == directory || isInside(reach, directory) || isInside(directory, reach);
}

GlobPiece IgnoreRule::requiredPiece() const {
    const GlobPiece piece = glob.requiredPiece();
    return !folderGlob || folderGlob->requiredPiece() == piece ? piece : GlobPiece();
}

QStringView IgnoreRule::requiredBegin() const {
    const QStringView begin = glob.literalBegin();
    const qsizetype slash = begin.indexOf(u'/');
    return slash < 0 ? begin : begin.first(slash);
}

QStringView IgnoreRule::requiredEnd() const {
    const QStringView end = glob.literalEnd();
    return end.sliced(end.lastIndexOf(u'/') + 1);
}

} // namespace kestor
