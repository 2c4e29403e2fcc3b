#include "tools/argument_line.h"

#include "fuzz/input_text.h"
#include "fuzz/property.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <optional>

namespace kestor::fuzz {

namespace {

QStringList charactersOf(const QString &text) {
    QStringList characters;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype begin = 0, end = finder.toNextBoundary(); end >= 0; begin = end, end = finder.toNextBoundary())
        characters.append(text.mid(begin, end - begin));
    return characters;
}

/// The arguments by the plain rules; nothing when a quote is left open.
std::optional<QStringList> plainArguments(const QString &text) {
    QStringList arguments(QString{});
    QString quote;
    const QStringList characters = charactersOf(text);
    for (qsizetype i = 0; i < characters.size(); ++i) {
        const QString &character = characters[i];
        if (character == u"\\")
            arguments.back() += i + 1 < characters.size() ? characters[++i] : character;
        else if (!quote.isEmpty() && character == quote)
            quote.clear();
        else if (quote.isEmpty() && (character == u"\"" || character == u"'"))
            quote = character;
        else if (quote.isEmpty() && (character == u" " || character == u"\t" || character == u"\n"))
            arguments.append(QString());
        else
            arguments.back() += character;
    }
    arguments.removeAll(QString());
    return quote.isEmpty() ? std::optional(arguments) : std::nullopt;
}

std::optional<QStringList> parsed(const QString &line) {
    try {
        return parseArgumentLine(line);
    } catch (const ArgumentParsingError &error) {
        require(error.errorDescription() == QStringLiteral("Missing closing %1 quote.").arg(error.character()),
                "the description names the quote");
        return std::nullopt;
    }
}

/// An argument as a user may type it: behind backslashes, or in quotes of either kind.
QString quoted(const QString &argument) {
    const qsizetype style = argument.size() % 3;
    const QString quote = style == 0 ? QString() : QString(style == 1 ? u'"' : u'\'');
    QString text;
    for (const QChar c : argument) {
        const bool needsBackslash = c == u'\\' || (quote.isEmpty() ? QStringView(u"\"' \t\n").contains(c) : c == quote);
        text += needsBackslash ? QStringLiteral("\\") + c : QString(c);
    }
    return quote + text + quote;
}

} // namespace

void check(QByteArrayView input) {
    const QString text = anyText(input);
    require(parsed(text) == plainArguments(text), "the arguments are those of the plain rules");

    // Signs that combine with a quote beside them make another character of it, so plain ones only.
    QString plain;
    std::copy_if(text.begin(), text.end(), std::back_inserter(plain),
                 [](QChar c) { return c > u'\0' && c < u'\x7f' && c != u'\r'; });
    const QStringList arguments = plain.split(u'|', Qt::SkipEmptyParts);
    QStringList words;
    std::transform(arguments.begin(), arguments.end(), std::back_inserter(words), quoted);
    require(parsed(words.join(u' ')) == arguments, "quoted arguments come back");
}

} // namespace kestor::fuzz
