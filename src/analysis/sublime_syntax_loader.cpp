#include "analysis/sublime_syntax_loader.h"

#include "rules/glob.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// No syntax file comes near it; what is larger is something else.
constexpr qint64 largestFile = 16 * 1024 * 1024;

struct ScopeColor {
    QLatin1StringView part{};
    QLatin1StringView colorHex{};
};
/// In the order that decides.
constexpr std::array scopeColors = std::to_array<ScopeColor>({
    {"comment"_L1, "#6A737D"_L1},
    {"string"_L1, "#0A7F42"_L1},
    {"keyword"_L1, "#B42D8D"_L1},
    {"storage"_L1, "#B42D8D"_L1},
    {"entity.name"_L1, "#0550AE"_L1},
    {"support.function"_L1, "#0550AE"_L1},
    {"constant"_L1, "#953800"_L1},
    {"numeric"_L1, "#953800"_L1},
    {"variable"_L1, "#0A7A83"_L1},
    {"invalid"_L1, "#CF222E"_L1},
});
constexpr QLatin1StringView otherColor = "#57606A"_L1;

struct ScopePriority {
    QLatin1StringView part{};
    int priority = 0;
};
/// In the order that decides.
constexpr std::array scopePriorities = std::to_array<ScopePriority>({
    {"comment"_L1, 100},
    {"string"_L1, 90},
    {"keyword"_L1, 60},
    {"storage"_L1, 60},
});
constexpr int otherPriority = 40;

/// The first row whose part the scope holds in any case; null when there is none.
template <typename Rows>
auto rowOf(const Rows &rows, QStringView scope) {
    const QString lowered = scope.toString().toLower();
    const auto row = std::ranges::find_if(rows, [&](const auto &each) { return lowered.contains(each.part); });
    return row == rows.end() ? nullptr : &*row;
}

/// Only regular files: opening a pipe would wait for its other end.
std::optional<QByteArray> fileBytes(const QString &path) {
    QFile file(path);
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > largestFile || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.read(info.size());
}

/// As UTF-8, else as Latin-1, which all bytes are.
QString decoded(const QByteArray &bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return decoder.hasError() ? QString::fromLatin1(bytes) : text;
}

template <typename Visit>
void forEachLine(QStringView text, const Visit &visit) {
    const auto endsLine = [](QChar character) {
        return isLineBreak(character.unicode());
    };
    for (auto begin = text.begin(); begin != text.end();) {
        const auto end = std::find_if(begin, text.end(), endsLine);
        visit(QStringView(begin, end).trimmed());
        begin = end == text.end() ? end : end + 1;
    }
}

QStringView withoutOuterBlanks(QStringView text) {
    constexpr QStringView blanks = u" \t";
    while (!text.isEmpty() && blanks.contains(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && blanks.contains(text.back()))
        text.chop(1);
    return text;
}

bool isQuotedBy(QStringView value, QChar quote) {
    return value.size() >= 2 && value.front() == quote && value.back() == quote;
}

} // namespace

std::optional<SyntaxDefinition> SublimeSyntaxLoader::definition(const QString &path) {
    const std::optional<QByteArray> bytes = fileBytes(path);
    if (!bytes)
        return std::nullopt;
    SyntaxDefinition definition;
    std::optional<QString> pattern;
    forEachLine(decoded(*bytes), [&](QStringView line) {
        if (std::optional<QString> match = yamlScalarValue(u"match", line)) {
            pattern = std::move(match);
        } else if (const std::optional<QString> scope = yamlScalarValue(u"scope", line); scope && pattern) {
            definition.rules.append({*pattern, colorHex(*scope), priority(*scope)});
            pattern.reset();
        }
    });
    return definition;
}

std::optional<QString> SublimeSyntaxLoader::yamlScalarValue(QStringView key, QStringView line) {
    constexpr QStringView listItem = u"- ";
    const QStringView entry = line.startsWith(listItem) ? line.sliced(listItem.size()) : line;
    if (!entry.startsWith(key) || !entry.sliced(key.size()).startsWith(u':'))
        return std::nullopt;
    const QStringView value = withoutOuterBlanks(entry.sliced(key.size() + 1));
    if (value.isEmpty() || value.startsWith(u'|') || value.startsWith(u'>'))
        return std::nullopt;
    return unquoted(value);
}

QString SublimeSyntaxLoader::unquoted(QStringView value) {
    if (isQuotedBy(value, u'\''))
        return value.sliced(1).chopped(1).toString().replace(u"''"_s, u"'"_s);
    if (isQuotedBy(value, u'"'))
        return value.sliced(1).chopped(1).toString().replace(u"\\\\"_s, u"\\"_s).replace(u"\\\""_s, u"\""_s);
    return value.toString();
}

QString SublimeSyntaxLoader::colorHex(QStringView scope) {
    const ScopeColor *row = rowOf(scopeColors, scope);
    return row ? row->colorHex : otherColor;
}

int SublimeSyntaxLoader::priority(QStringView scope) {
    const ScopePriority *row = rowOf(scopePriorities, scope);
    return row ? row->priority : otherPriority;
}

} // namespace kestor
