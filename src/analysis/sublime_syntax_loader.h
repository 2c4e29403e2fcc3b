#pragma once

#include "analysis/syntax_definition.h"

#include <QString>
#include <QStringView>

#include <optional>

namespace kestor {

/// Reads what of a ".sublime-syntax" file can be shown line by line: its pairs of "match" and "scope". Everything else,
/// and every value that is not on the line of its key, is passed over.
struct SublimeSyntaxLoader {
    /// The rules of the file in their order, perhaps none. Nothing when it cannot be read. For workers.
    static std::optional<SyntaxDefinition> definition(const QString &path);

    /// The value of `key` on a trimmed line that holds "key: value" or "- key: value"; nothing on other lines, for an
    /// empty value and for one on the lines below ("|", ">").
    static std::optional<QString> yamlScalarValue(QStringView key, QStringView line);
    /// A value without its quotes and the escapes of quotes and backslashes inside.
    static QString unquoted(QStringView value);

    static QString colorHex(QStringView scope);
    static int priority(QStringView scope);
};

} // namespace kestor
