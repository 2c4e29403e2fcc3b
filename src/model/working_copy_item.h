#pragma once

#include "model/status_kind.h"

#include <QString>

#include <optional>

namespace kestor {

/// One row of the Changes list, as the tool reported it. Identified by `path`.
struct WorkingCopyItem {
    QString path{};                                     ///< relative to the project root, "/"-separated
    SVNStatusKind kind = SVNStatusKind::unknown;        ///< status of the content
    SVNStatusKind propertiesKind = SVNStatusKind::none; ///< status of the properties
    bool treeConflict = false;                          ///< victim of a tree conflict
    std::optional<QString> revision{};                  ///< working or remote revision, as printed
    std::optional<QString> author{};                    ///< last author
    std::optional<QString> unversionedRoot{};           ///< unversioned folder in which the item was found

    const QString &id() const { return path; }
    friend bool operator==(const WorkingCopyItem &, const WorkingCopyItem &) = default;
};

} // namespace kestor

/// Long lists of them grow without being copied.
Q_DECLARE_TYPEINFO(kestor::WorkingCopyItem, Q_RELOCATABLE_TYPE);

namespace kestor {

/// In its content, its properties or its place in the tree.
bool isInConflict(const WorkingCopyItem &item);

/// "Tree Conflict", or the kind's name, followed by ", Props M" when the properties changed.
QString statusLabel(const WorkingCopyItem &item);

} // namespace kestor
