#include "tools/argument_line.h"

#include <QStringView>
#include <QTextBoundaryFinder>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool isOneOf(QStringView character, QStringView all) {
    return character.size() == 1 && all.contains(character.front());
}

/// Takes a line character by character.
class ArgumentLine {
public:
    void take(QStringView character) {
        if (std::exchange(isEscaped, false)) {
            token += character;
            return;
        }
        if (isOneOf(character, u"\\"))
            isEscaped = true;
        else if (openQuote)
            takeQuoted(character);
        else if (isOneOf(character, u"\"'"))
            openQuote = character.front();
        else if (isOneOf(character, u" \t\n"))
            endToken();
        else
            token += character;
    }

    QStringList end() {
        if (isEscaped)
            token += u'\\';
        if (openQuote)
            throw ArgumentParsingError::unclosedQuote(*openQuote);
        endToken();
        return std::move(arguments);
    }

private:
    void takeQuoted(QStringView character) {
        if (isOneOf(character, QStringView(&*openQuote, 1)))
            openQuote.reset();
        else
            token += character;
    }

    void endToken() {
        if (!token.isEmpty())
            arguments.append(std::exchange(token, QString()));
    }

    QStringList arguments;
    QString token;
    std::optional<QChar> openQuote;
    bool isEscaped = false;
};

} // namespace

ArgumentParsingError::ArgumentParsingError(QChar character) : quote(character), utf8(errorDescription().toUtf8()) {}

QString ArgumentParsingError::errorDescription() const {
    return u"Missing closing %1 quote."_s.arg(quote);
}

QStringList parseArgumentLine(const QString &text) {
    ArgumentLine line;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    qsizetype begin = 0;
    for (qsizetype end = characters.toNextBoundary(); end >= 0; end = characters.toNextBoundary()) {
        line.take(QStringView(text).sliced(begin, end - begin));
        begin = end;
    }
    return line.end();
}

} // namespace kestor
