#pragma once

#include "model/working_copy_item.h"
#include "rules/ignore_rules.h"

#include <QList>
#include <QString>
#include <QStringView>

#include <cstdint>

namespace kestor {

/// One file or folder below an unversioned folder.
struct UnversionedDescendant {
    WorkingCopyItem item{};
    bool isDirectory = false; ///< links to folders are no folders: they are listed and never entered

    friend bool operator==(const UnversionedDescendant &, const UnversionedDescendant &) = default;
};

/// Whether a scan is worth the disk access only when a negated rule could bring something back.
enum class RequireIncludedDescendant : std::uint8_t { no, yes };

/// Everything below the folder `path` (root-relative) that the rules do not ignore, in walking order, folders included.
/// ".svn" and ".git" are neither listed nor entered; folders that cannot be read count as empty. Worker threads.
QList<UnversionedDescendant> unversionedDescendants(QStringView path, const QString &root, const IgnoreRules &rules,
                                                    RequireIncludedDescendant require);

/// The scan reduced to rows worth showing: every file, and the folders without a listed entry.
QList<WorkingCopyItem> displayableUnversionedDescendants(QStringView path, const QString &root,
                                                         const IgnoreRules &rules, RequireIncludedDescendant require);

/// Whether the folder holds anything but ".svn" and ".git".
bool unversionedDirectoryContainsEntries(QStringView path, const QString &root);

} // namespace kestor
