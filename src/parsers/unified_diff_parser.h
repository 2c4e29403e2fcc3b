#pragma once

#include "model/diff.h"

#include <QString>
#include <QStringView>

namespace kestor {

/// Reads the unified diffs that `svn diff`, `git diff` and `git show` print. One forgiving pass; never fails.
struct UnifiedDiffParser {
    /// The files of `text`, which the result keeps and points into. Lines end at line feeds only. Any thread; linear.
    static ParsedDiff parse(QString text);
    /// Diff text that shows the whole `text` of a file not yet under version control as added.
    static QString unversionedFileDiff(QStringView path, QStringView text);
};

} // namespace kestor
