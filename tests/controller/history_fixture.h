#pragma once

#include "support/app_fixture.h"
#include "support/repositories.h"

namespace kestor::testing {

/// A controller on its History tab.
class HistoryFixture : public AppFixture {
public:
    HistoryFixture() = default;
    explicit HistoryFixture(const SvnFixture &project) { openHistory(project.path(), RepositoryKind::svn); }
    explicit HistoryFixture(const GitFixture &project) { openHistory(project.path(), RepositoryKind::git); }

    void openHistory(const QString &path, RepositoryKind kind) {
        app.selectedTab = WorkflowTab::history;
        open(path, kind);
    }
    /// The published files as "PATH: LETTER REVISION, ...".
    QStringList files() const;
    void select(const QString &path, std::optional<qint64> revision = {});
    /// The added and removed lines of the published diff, without their heads.
    QStringList diffLines() const;
};

/// A working copy of a trunk in which files were renamed, moved with their folder, replaced and deleted.
class MovedFiles : public SvnFixture {
public:
    MovedFiles();
};

} // namespace kestor::testing
