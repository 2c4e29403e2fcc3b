#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>

namespace kestor {

/// What a regular expression matches gets a color.
struct SyntaxHighlightRule {
    QString pattern{};
    QString colorHex{}; ///< "#RRGGBB"
    int priority = 0;   ///< where matches overlap, the higher one wins

    friend bool operator==(const SyntaxHighlightRule &, const SyntaxHighlightRule &) = default;
};

/// How a language is colored.
struct SyntaxDefinition {
    QList<SyntaxHighlightRule> rules{};

    friend bool operator==(const SyntaxDefinition &, const SyntaxDefinition &) = default;
};

/// A colored part of a line, in UTF-16 units.
struct SyntaxSpan {
    qsizetype start = 0;
    qsizetype length = 0;
    QString colorHex{};

    friend bool operator==(const SyntaxSpan &, const SyntaxSpan &) = default;
};

} // namespace kestor
