#pragma once

#include "support/app_fixture.h"
#include "support/repositories.h"

namespace kestor::testing {

/// A repository with a working copy of its trunk, at revision 2, and a second one ("theirs") of somebody who commits on
/// the side.
class SharedRepository : public SvnFixture {
public:
    /// The trunk holds "a.c", "src/b.c" and "icon@2x.png".
    SharedRepository();

    void theyWrite(const QString &relative, const QByteArray &content) {
        tree.write(QStringLiteral("theirs/") + relative, content);
    }
    QByteArray theirSvn(const QStringList &arguments) const;
    /// Adds everything and commits it.
    void theyCommit(const QString &message) const;
    QString url(const QString &relative) const;
};

/// A controller on its Incoming tab.
class IncomingFixture : public AppFixture {
public:
    IncomingFixture() { app.selectedTab = WorkflowTab::incoming; }
    explicit IncomingFixture(const SvnFixture &project) : IncomingFixture() {
        open(project.path(), RepositoryKind::svn);
    }

    /// "r2 to r5: 5 4 3", the selected revision in brackets.
    QString range() const;
    /// The items that are out of date as "LETTER path".
    QStringList outdated() const;
    void select(qint64 revision);
    /// The added and removed lines of the published diff, without their heads.
    QStringList diffLines() const;
};

} // namespace kestor::testing
