#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace kestor {

/// The status of a path's content or of its properties, in the words `svn` prints. Git states map onto the same cases.
enum class SVNStatusKind : std::uint8_t {
    added,
    conflicted,
    deleted,
    external,
    ignored,
    incomplete,
    merged,
    missing,
    modified,
    none,
    normal,
    obstructed,
    replaced,
    unversioned,
    unknown,
};

/// The exact word of the XML attribute, for example "modified".
QStringView rawValue(SVNStatusKind kind);
/// The case whose raw value is exactly `text`, or nothing.
std::optional<SVNStatusKind> statusKindFromRawValue(QStringView text);
/// The word shown to the user, for example "Modified".
QStringView displayName(SVNStatusKind kind);
/// The column letter of `svn status`, a blank for `none` and `normal`.
QChar shortName(SVNStatusKind kind);
/// False for `none` and `normal`, the two kinds that say "nothing happened".
bool isChange(SVNStatusKind kind);

} // namespace kestor
