#pragma once

#include "rules/folder_reader.h"
#include "rules/ignore_rules.h"
#include "rules/unversioned_scan.h"

#include <QList>
#include <QString>

#include <functional>

namespace kestor {

/// Calls `visit` for everything below the normalised `folder` that the rules do not ignore, in walking order, folders
/// before what they hold. Ignored folders are entered only when a negated rule could bring back something inside them.
void walkUnversioned(FolderReader &reader, const QString &folder, const IgnoreRules &rules,
                     const std::function<void(const FolderEntry &)> &visit);

/// displayableUnversionedDescendants() of a normalised folder, over a reader that several scans share.
QList<WorkingCopyItem> displayableRows(FolderReader &reader, const QString &folder, const IgnoreRules &rules);

} // namespace kestor
