#pragma once

#include "model/diff_preview.h"
#include "model/project.h"
#include "model/working_copy_item.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace kestor {

/// What the detail pane shows of one changed file.
struct LoadedDiff {
    QString text{};        ///< as published
    DiffPreview preview{}; ///< kind `empty` when the text alone is shown

    friend bool operator==(const LoadedDiff &, const LoadedDiff &) = default;
};

/// The beginning of a vector with which `svn` prints a diff that can be read here, whatever diff program or options the
/// user's own configuration names; a program of the user's would open windows in the background.
QStringList readableSvnDiff();

/// The vector that prints the diff of the working change at `path`, or of all of them. `gitBase` is the tree Git
/// compares with: "HEAD", or the empty tree before the first commit.
QStringList workingDiffArguments(RepositoryKind kind, const std::optional<QString> &path, const QString &gitBase);

/// The diff of a file that is not under version control, read from the project at `root` (absolute): its content as
/// added lines, or a text in brackets that says why there is none. Only regular files are read. Reads the disk;
/// workers.
LoadedDiff unversionedDiff(const QString &path, const QString &root);

/// A notice for a diff in which the tool says that the file is binary. It goes by the tool's words alone.
std::optional<DiffPreview> binaryPreviewIfNeeded(const QString &path, QStringView text);

} // namespace kestor
