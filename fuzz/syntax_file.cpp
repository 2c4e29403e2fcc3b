#include "analysis/sublime_syntax_loader.h"
#include "fuzz/input_text.h"
#include "fuzz/property.h"

#include <QStringList>
#include <QUtf8StringView>

#include <array>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace kestor::fuzz {

namespace {

/// By way of a file that is in memory alone.
std::optional<SyntaxDefinition> loaded(QByteArrayView bytes) {
    static const int file = memfd_create("syntax", MFD_CLOEXEC);
    const bool isWritten = file >= 0 && ftruncate(file, 0) == 0 &&
                           pwrite(file, bytes.data(), static_cast<std::size_t>(bytes.size()), 0) == bytes.size();
    require(isWritten, "the file can be written");
    return SublimeSyntaxLoader::definition(QStringLiteral("/proc/self/fd/%1").arg(file));
}

QString plainUnquoted(QString value) {
    const auto isIn = [&value](QChar quote) {
        return value.size() >= 2 && value.startsWith(quote) && value.endsWith(quote);
    };
    if (isIn(u'\''))
        return value.mid(1).chopped(1).split(QStringLiteral("''")).join(u'\'');
    if (isIn(u'"'))
        return value.mid(1)
            .chopped(1)
            .split(QStringLiteral("\\\\"))
            .join(u'\\')
            .split(QStringLiteral("\\\""))
            .join(u'"');
    return value;
}

QString withoutBlanks(QString text) {
    while (text.startsWith(u' ') || text.startsWith(u'\t'))
        text.remove(0, 1);
    while (text.endsWith(u' ') || text.endsWith(u'\t'))
        text.chop(1);
    return text;
}

std::optional<QString> plainValue(const QString &key, QString line) {
    if (line.startsWith(QStringLiteral("- ") + key + u':'))
        line.remove(0, 2);
    if (!line.startsWith(key + u':'))
        return std::nullopt;
    const QString value = withoutBlanks(line.mid(key.size() + 1));
    const bool isBlock = value.startsWith(u'|') || value.startsWith(u'>');
    return value.isEmpty() || isBlock ? std::nullopt : std::optional(plainUnquoted(value));
}

struct Scope {
    const char *part;
    const char *colorHex;
};
constexpr std::array<Scope, 11> scopes{{{"comment", "#6A737D"},
                                        {"string", "#0A7F42"},
                                        {"keyword", "#B42D8D"},
                                        {"storage", "#B42D8D"},
                                        {"entity.name", "#0550AE"},
                                        {"support.function", "#0550AE"},
                                        {"constant", "#953800"},
                                        {"numeric", "#953800"},
                                        {"variable", "#0A7A83"},
                                        {"invalid", "#CF222E"},
                                        {"", "#57606A"}}};

SyntaxHighlightRule plainRule(const QString &pattern, const QString &scope) {
    std::size_t row = 0;
    while (!scope.toLower().contains(QLatin1String(scopes.at(row).part)))
        ++row;
    const int priority = row == 0 ? 100 : row == 1 ? 90 : row <= 3 ? 60 : 40;
    return {pattern, QString::fromLatin1(scopes.at(row).colorHex), priority};
}

SyntaxDefinition plainDefinition(QString text) {
    for (const QChar lineBreak : QStringView(u"\v\f\r\u0085\u2028\u2029"))
        text.replace(lineBreak, u'\n');
    SyntaxDefinition definition;
    std::optional<QString> pattern;
    const QStringList lines = text.split(u'\n');
    for (const QString &line : lines) {
        const std::optional<QString> match = plainValue(QStringLiteral("match"), line.trimmed());
        const std::optional<QString> scope = plainValue(QStringLiteral("scope"), line.trimmed());
        if (match)
            pattern = match;
        if (scope && pattern)
            definition.rules.append(plainRule(*std::exchange(pattern, std::nullopt), *scope));
    }
    return definition;
}

/// The definition as a file, with patterns in single and in double quotes in turn.
QByteArray printed(const SyntaxDefinition &definition) {
    QString text;
    for (const SyntaxHighlightRule &rule : definition.rules) {
        QString pattern = rule.pattern;
        if (text.size() % 2 == 0)
            pattern = u'\'' + pattern.replace(u'\'', QStringLiteral("''")) + u'\'';
        else
            pattern =
                u'"' + pattern.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\"")) + u'"';
        text += QStringLiteral("  - match: ") + pattern + QStringLiteral("\n    scope: x\n");
    }
    return text.toUtf8();
}

} // namespace

void check(QByteArrayView input) {
    const std::optional<SyntaxDefinition> definition = loaded(input);
    require(definition.has_value(), "every file can be read");
    if (!QUtf8StringView(input).isValidUtf8())
        return;
    require(definition == plainDefinition(QString::fromUtf8(input)), "the rules are those of the plain reading");
    const std::optional<SyntaxDefinition> again = loaded(printed(*definition));
    require(again && again->rules.size() == definition->rules.size(), "printing loses no rule");
    for (qsizetype i = 0; i < definition->rules.size(); ++i)
        require(again->rules[i].pattern == definition->rules[i].pattern, "printing loses no pattern");
}

} // namespace kestor::fuzz
