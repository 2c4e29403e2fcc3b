#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <cstdint>

namespace kestor {

enum class PathType : std::uint8_t { file, directory };

/// The anchored rule that matches exactly the working-copy path: "/" and the path with its glob characters escaped, "/"
/// at the end for a folder. A line break in a name, which no rule can hold, becomes "?".
QString ignoreRuleFor(QStringView path, PathType type);

/// The rule that brings the path back: "!" and its rule.
QString includeRuleFor(QStringView path, PathType type);

/// The content of an ignore file with the rules it lacks at its end, in the file's own line ends; existing lines stay
/// untouched. The same content when it has them all.
QByteArray withRules(const QByteArray &content, const QStringList &rules);

} // namespace kestor
