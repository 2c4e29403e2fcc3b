#include "fuzz/plain_rule.h"

#include "rules/character_set.h"
#include "rules/ignore_rules.h"

#include <vector>

namespace kestor::fuzz {

namespace {

using Characters = QList<uint>;

const QString lineBreaks = QStringLiteral("\n\v\f\r\u0085\u2028\u2029");

bool isLineBreakCharacter(uint character) {
    return character <= 0xFFFF && lineBreaks.contains(QChar(static_cast<char16_t>(character)));
}

/// One step of a glob: the characters it accepts, once or any number of times.
struct Step {
    enum class Accepts : std::uint8_t { one, notSlash, notLineBreak, set, nothing };
    Accepts accepts = Accepts::one;
    bool repeats = false;
    uint character = 0;
    std::optional<CharacterSet> set{};

    bool accepted(uint c) const {
        switch (accepts) {
        case Accepts::one:
            return c == character;
        case Accepts::notSlash:
            return c != '/';
        case Accepts::notLineBreak:
            return !isLineBreakCharacter(c);
        case Accepts::set:
            return set->contains(static_cast<char32_t>(c));
        case Accepts::nothing:
            break;
        }
        return false;
    }
};

Step literal(uint character) {
    return {Step::Accepts::one, false, character, std::nullopt};
}

QString textOf(const Characters &characters, qsizetype begin, qsizetype end) {
    QString text;
    for (qsizetype i = begin; i < end; ++i)
        text += QChar::fromUcs4(static_cast<char32_t>(characters[i]));
    return text;
}

/// Appends the steps of the brackets that open at `open` and returns what follows them.
qsizetype takeBrackets(const Characters &glob, qsizetype open, std::vector<Step> &steps) {
    const qsizetype close = glob.indexOf(']', open + 1);
    if (close < 0 || close == open + 1) {
        steps.push_back(literal('['));
        if (close > 0)
            steps.push_back(literal(']'));
        return close < 0 ? open + 1 : close + 1;
    }
    std::optional<CharacterSet> set = CharacterSet::fromBracketBody(textOf(glob, open + 1, close));
    steps.push_back({set ? Step::Accepts::set : Step::Accepts::nothing, false, 0, set});
    return close + 1;
}

std::vector<Step> stepsOf(const Characters &glob) {
    std::vector<Step> steps;
    for (qsizetype i = 0; i < glob.size();) {
        const bool twoStars = glob[i] == '*' && glob.value(i + 1) == '*';
        if (glob[i] == '\\' && i + 1 < glob.size()) {
            steps.push_back(literal(glob[i + 1]));
            i += 2;
        } else if (glob[i] == '*') {
            steps.push_back({twoStars ? Step::Accepts::notLineBreak : Step::Accepts::notSlash, true, 0, std::nullopt});
            i += twoStars ? 2 : 1;
        } else if (glob[i] == '?') {
            steps.push_back({Step::Accepts::notSlash, false, 0, std::nullopt});
            ++i;
        } else if (glob[i] == '[') {
            i = takeBrackets(glob, i, steps);
        } else {
            steps.push_back(literal(glob[i++]));
        }
    }
    return steps;
}

/// Whether the steps match all of the text: a table of which first steps match which first characters.
bool stepsMatch(const std::vector<Step> &steps, const Characters &text) {
    std::vector<char> before(static_cast<std::size_t>(text.size()) + 1, 0);
    before[0] = 1;
    for (const Step &step : steps) {
        std::vector<char> after(before.size(), 0);
        for (std::size_t i = 0; i < before.size(); ++i) {
            const bool accepts = i > 0 && step.accepted(text[static_cast<qsizetype>(i) - 1]);
            if (step.repeats)
                after[i] = before[i] != 0 || (accepts && after[i - 1] != 0) ? 1 : 0;
            else
                after[i] = accepts && before[i - 1] != 0 ? 1 : 0;
        }
        before = after;
    }
    return before.back() != 0;
}

QString joined(const QString &base, const QString &pattern) {
    return base.isEmpty() ? pattern : base + u'/' + pattern;
}

bool isInside(const QString &path, const QString &folder) {
    return path.startsWith(folder + u'/');
}

/// The pattern up to its first wildcard, without the backslashes.
struct LiteralBegin {
    QString text{};
    bool isAll = true;
};
LiteralBegin literalBegin(const QString &pattern) {
    LiteralBegin begin;
    bool isEscaped = false;
    for (const QChar c : pattern) {
        if (!isEscaped && QStringLiteral("*?[").contains(c)) {
            begin.isAll = false;
            break;
        }
        isEscaped = !isEscaped && c == u'\\';
        if (!isEscaped)
            begin.text += c;
    }
    return begin;
}

} // namespace

bool globMatches(const QString &glob, const QString &text) {
    const std::vector<Step> steps = stepsOf(glob.toUcs4());
    const Characters characters = text.toUcs4();
    if (stepsMatch(steps, characters))
        return true;
    if (characters.isEmpty() || !isLineBreakCharacter(characters.back()))
        return false;
    return stepsMatch(steps, characters.first(characters.size() - (text.endsWith(QStringLiteral("\r\n")) ? 2 : 1)));
}

std::optional<PlainRule> PlainRule::fromLine(QString line, const QString &basePath) {
    if (line.endsWith(u'\r'))
        line.chop(1);
    while (line.endsWith(u' ')) {
        qsizetype backslashes = 0;
        while (backslashes + 1 < line.size() && line[line.size() - 2 - backslashes] == u'\\')
            ++backslashes;
        if (backslashes % 2 == 1)
            break;
        line.chop(1);
    }
    if (line.startsWith(u'#'))
        return std::nullopt;
    PlainRule rule;
    rule.basePath = IgnoreRules::normalizePath(basePath);
    rule.isNegated = line.startsWith(u'!');
    if (rule.isNegated || line.startsWith(QStringLiteral("\\#")) || line.startsWith(QStringLiteral("\\!")))
        line.remove(0, 1);
    rule.directoryOnly = line.endsWith(u'/');
    while (line.endsWith(u'/'))
        line.chop(1);
    rule.anchored = line.startsWith(u'/');
    while (line.startsWith(u'/'))
        line.remove(0, 1);
    rule.pattern = line;
    return line.isEmpty() ? std::nullopt : std::optional(rule);
}

bool PlainRule::matches(const QString &path, bool isDirectory) const {
    if (!basePath.isEmpty() && !isInside(path, basePath))
        return false;
    const QString relative = basePath.isEmpty() ? path : path.mid(basePath.size() + 1);
    if (relative.isEmpty())
        return false;
    if (isPathPattern())
        return matchesPathPattern(relative, isDirectory);
    const QStringList names = relative.split(u'/', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (globMatches(pattern, names[i]))
            return !directoryOnly || isDirectory || i + 1 < names.size();
    }
    return false;
}

bool PlainRule::matchesPathPattern(const QString &relative, bool isDirectory) const {
    if (globMatches(pattern, relative))
        return !directoryOnly || isDirectory;
    if (isDirectory && pattern.endsWith(QStringLiteral("/*")) && pattern.size() > 2 &&
        globMatches(pattern.chopped(2), relative))
        return true;
    QStringList pieces = relative.split(u'/', Qt::SkipEmptyParts);
    while (pieces.size() > 1) {
        pieces.removeLast();
        if (globMatches(pattern, pieces.join(u'/')))
            return true;
    }
    return false;
}

bool PlainRule::canMatchDescendant(const QString &directory) const {
    if (!isPathPattern())
        return true;
    const QString full = joined(basePath, pattern);
    QString reach = full;
    const LiteralBegin begin = literalBegin(full);
    if (!begin.isAll) {
        reach = IgnoreRules::normalizePath(begin.text.left(begin.text.lastIndexOf(u'/') + 1));
        if (reach.isEmpty())
            return true;
    }
    return reach == directory || isInside(reach, directory) || isInside(directory, reach);
}

} // namespace kestor::fuzz
