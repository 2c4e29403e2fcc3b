#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <exception>

namespace kestor {

/// Why a typed line is no list of arguments. A user-readable description comes with it.
class ArgumentParsingError : public std::exception {
public:
    /// The quote that `character` opened is never closed.
    static ArgumentParsingError unclosedQuote(QChar character) { return ArgumentParsingError(character); }

    QChar character() const { return quote; }
    QString errorDescription() const;
    const char *what() const noexcept override { return utf8.constData(); }

private:
    explicit ArgumentParsingError(QChar character);

    QChar quote;
    QByteArray utf8;
};

/// The arguments of a typed line, which no shell sees. Blanks, tabs and line feeds part them; double and single quotes
/// hold them together, also within a word; a backslash takes the next character as it is, in quotes too. Characters are
/// what the reader sees: a quote with a combining mark is no quote. Empty arguments are dropped, quoted ones as well.
/// Throws ArgumentParsingError.
QStringList parseArgumentLine(const QString &text);

} // namespace kestor
