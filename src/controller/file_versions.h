#pragma once

#include "model/project.h"
#include "tools/tool.h"

#include <QByteArray>
#include <QCoroTask>
#include <QString>

#include <memory>
#include <optional>

namespace kestor {

/// One version of a file as svnContent takes it.
struct SvnVersion {
    QString source{};
    qint64 revision = 0;

    friend bool operator==(const SvnVersion &, const SvnVersion &) = default;
};

/// The versions of a file before and after a revision, as far as there are such.
struct SvnVersions {
    std::optional<SvnVersion> before{};
    std::optional<SvnVersion> after{};

    friend bool operator==(const SvnVersions &, const SvnVersions &) = default;
};

/// The contents of a file before and after a revision, as far as there are such.
struct FileContents {
    std::optional<QByteArray> before{};
    std::optional<QByteArray> after{};
};

// The bytes of one version of one file. A version that the tool cannot print is absent, as one that does not exist is;
// an empty file is there, with no bytes. They throw as Tool::run does when the tool itself cannot be run.

/// What a working copy's file was before the change; svn has none for a replaced file. `path` is relative to the
/// project, for a renamed file of a Git repository its old path.
QCoro::Task<std::optional<QByteArray>> baseContent(std::shared_ptr<Tool> tool, Project project, QString path);

/// The file at `path`, relative to the repository's root, as `revision` has it.
QCoro::Task<std::optional<QByteArray>> gitContent(std::shared_ptr<Tool> git, Project project, QString revision,
                                                  QString path);

/// The file at `source` as `revision` has it. `source` is a target as svn takes it: a URL, or a path made by svnTarget.
QCoro::Task<std::optional<QByteArray>> svnContent(std::shared_ptr<Tool> svn, Project project, QString source,
                                                  qint64 revision);
/// Both of `versions`, one after the other.
QCoro::Task<FileContents> svnContents(std::shared_ptr<Tool> svn, Project project, SvnVersions versions);

} // namespace kestor
