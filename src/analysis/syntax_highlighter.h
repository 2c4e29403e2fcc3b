#pragma once

#include "analysis/syntax_definition.h"
#include "model/custom_language_rule.h"

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

namespace kestor {

/// Where the definition for a file comes from.
struct SyntaxSource {
    QString languageName{};              ///< names a built-in definition; "" for unknown languages
    std::optional<QString> syntaxFile{}; ///< wins over the built-in one when it can be read and has rules

    friend bool operator==(const SyntaxSource &, const SyntaxSource &) = default;
};

/// Which parts of a line have which color. Any thread.
struct SyntaxHighlighter {
    /// The built-in definition for a language name in any case; nothing for languages without one.
    static std::optional<SyntaxDefinition> defaultDefinition(QStringView named);

    /// The last rule for the file's extension decides, else the built-in language of the file. Reads no file.
    static SyntaxSource source(QStringView path, const QList<CustomLanguageRule> &rules);
    /// Reads the syntax file when there is one: for workers then.
    static std::optional<SyntaxDefinition> definition(const SyntaxSource &source);
    /// The definition for the file at `path`. Reads the syntax file of the rule that decides: for workers.
    static std::optional<SyntaxDefinition> definition(QStringView path, const QList<CustomLanguageRule> &rules);

    /// The colored parts of one line; see CompiledSyntax, which compiles once for many lines.
    static QList<SyntaxSpan> collectedMatches(QStringView text, const QList<SyntaxHighlightRule> &rules);
};

} // namespace kestor
