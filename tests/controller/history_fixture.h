#pragma once

#include "support/app_fixture.h"
#include "support/repositories.h"

namespace kestor::testing {

/// A controller on its History tab.
class HistoryFixture : public AppFixture {
public:
    HistoryFixture() = default;
    explicit HistoryFixture(const RepositoryFixture &project) {
        app.selectedTab = WorkflowTab::history;
        open(project);
    }

    /// The published files as "PATH: LETTER REVISION, ...".
    QStringList files() const {
        QStringList all;
        const FileHistory &history = app.fileHistoryItems.value();
        for (qsizetype i = 0; i < history.size(); ++i) {
            QStringList revisions;
            for (qsizetype r = 0; r < history[i].revisions.size(); ++r) {
                const FileHistoryRevision revision = history[i].revisions[r];
                revisions.append(revision.action + u' ' + QString::number(revision.revision));
            }
            all.append(history[i].path + QStringLiteral(": ") + revisions.join(QStringLiteral(", ")));
        }
        return all;
    }
    void select(const QString &path, std::optional<qint64> revision = {}) {
        app.selectedHistoryPath = path;
        awaited(app.selectedHistoryPathChanged());
        if (!revision)
            return;
        app.selectedRevision = revision;
        awaited(app.selectedHistoryRevisionChanged());
    }
    /// The added and removed lines of the published diff, without their heads.
    QStringList diffLines() const { return changedLines(app.historyDiffText); }
};

} // namespace kestor::testing
