#pragma once

#include "model/project.h"

#include <QString>

namespace kestor {

/// A project on disk and the preferences folder that names it alone.
struct SampleProject {
    QString path{};
    QString configHome{};
};

/// A project of `files` versioned files, every tenth modified, and as many unversioned ones in folders of a thousand.
/// Made once, which takes up to a minute, and found again by later runs.
SampleProject sampleProject(RepositoryKind kind, int files);

/// A clean project with a log of `revisions` entries of five files each; the working copy of Subversion has no files.
/// Made once as well.
SampleProject sampleHistory(RepositoryKind kind, int revisions);

} // namespace kestor
