#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace kestor {

/// What `svn info`, or the Git commands that stand for it, say of a project. All absent before anything was loaded.
struct RepositoryInfo {
    std::optional<QString> workingCopyRoot{};
    std::optional<QString> url{};
    std::optional<QString> relativeURL{}; ///< Subversion only, for example "^/trunk"
    std::optional<QString> repositoryRoot{};
    std::optional<QString> repositoryUUID{};
    std::optional<QString> revision{};
    std::optional<QString> workingRevision{}; ///< the branch name for Git
    std::optional<QString> lastChangedRevision{};
    std::optional<QString> lastChangedAuthor{};
    std::optional<QDateTime> lastChangedDate{};

    friend bool operator==(const RepositoryInfo &, const RepositoryInfo &) = default;
};

} // namespace kestor
