#pragma once

#include "rules/folder_reader.h"
#include "rules/folder_set.h"
#include "rules/ignore_rules.h"

namespace kestor {

/// The rules of the folders' ignore files, shallower folders first. Folders that the rules so far ignore are left out,
/// unless a negated rule could bring back something inside them.
IgnoreRules loadIgnoreRules(FolderReader &reader, const FolderSet &folders);

} // namespace kestor
