#pragma once

#include "model/working_copy_item.h"
#include "rules/folder_reader.h"
#include "rules/ignore_rules.h"

#include <QList>
#include <QString>

#include <cstdint>

namespace kestor {

/// Whether unversioned folders are replaced by the unversioned files inside them.
enum class ExpandUnversioned : std::uint8_t { no, yes };

/// The rows of the Changes list of a project: statusItemsByApplyingIgnoreRules() with
/// ignoreRulesForStatusItems(), both expanding, but each folder and each ignore file is read once for both steps, and
/// an unversioned folder that is a repository of its own is one row: the tools take what is in it for that one's.
/// `folders` are those of the project, closed by its kind's metadata. Reads the disk; worker threads.
QList<WorkingCopyItem> displayedStatusItems(const QList<WorkingCopyItem> &items, FolderReader &folders);

/// The rules that decide about `items` of the project at `root` (absolute), those inside unversioned folders included
/// when they are expanded. Reads the disk; worker threads.
IgnoreRules ignoreRulesForStatusItems(const QList<WorkingCopyItem> &items, const QString &root,
                                      ExpandUnversioned expand);

/// `items` less what the rules ignore, unversioned folders replaced by their displayable contents, without duplicates,
/// in the localised standard order of their paths. Ignored items stay when a negated rule brings them back. A folder
/// without displayable contents is shown as itself when it holds no entry that the rules ignore, else dropped. Reads
/// the disk; worker threads.
QList<WorkingCopyItem> statusItemsByApplyingIgnoreRules(const QList<WorkingCopyItem> &items, const QString &root,
                                                        const IgnoreRules &rules, ExpandUnversioned expand);

} // namespace kestor
