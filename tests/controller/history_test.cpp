#include "support/app_fixture.h"
#include "support/printers.h"
#include "support/repositories.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::AppFixture;
using testing::awaited;
using testing::GitFixture;
using testing::SvnFixture;

/// A controller on its History tab.
class HistoryFixture : public AppFixture {
public:
    void openHistory(const QString &path, RepositoryKind kind) {
        app.selectedTab = WorkflowTab::history;
        open(path, kind);
    }
    /// The published files as "PATH: LETTER REVISION, ...", hashes as numbers counted from the newest commit.
    QStringList files() const {
        QStringList all;
        const FileHistory &history = app.fileHistoryItems.value();
        for (qsizetype i = 0; i < history.size(); ++i) {
            QStringList revisions;
            for (qsizetype r = 0; r < history[i].revisions.size(); ++r) {
                const FileHistoryRevision revision = history[i].revisions[r];
                revisions.append(revision.action + u' ' + QString::number(revision.revision));
            }
            all.append(history[i].path + u": "_s + revisions.join(u", "_s));
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
    QStringList diffLines() const {
        QStringList lines;
        for (const QString &line : app.historyDiffText.value().split(u'\n')) {
            const bool isChange = line.startsWith(u'+') || line.startsWith(u'-');
            if (isChange && !line.startsWith(u"+++ ") && !line.startsWith(u"--- "))
                lines.append(line);
        }
        return lines;
    }
};

/// A working copy of a trunk in which files were renamed, moved with their folder, replaced and deleted.
class MovedFiles : public SvnFixture {
public:
    MovedFiles() {
        write(u"icon@2x #1 50%.txt"_s, "a\n");
        write(u"old/Größe.c"_s, "x\n");
        write(u"file10"_s);
        write(u"file2"_s);
        commitAll(u"two"_s);
        write(u"icon@2x #1 50%.txt"_s, "a\nb\n");
        commitAll(u"three"_s);
        svn({u"move"_s, u"-q"_s, u"old"_s, u"new"_s});
        commitAll(u"move the folder"_s);
        write(u"new/Größe.c"_s, "x\ny\n");
        commitAll(u"five"_s);
        svn({u"move"_s, u"-q"_s, u"new/Größe.c"_s, u"new/size.c"_s});
        commitAll(u"rename"_s);
        svn({u"delete"_s, u"-q"_s, u"new/size.c"_s});
        commitAll(u"delete"_s);
        svn({u"delete"_s, u"-q"_s, u"icon@2x #1 50%.txt@"_s});
        tree.makeDirectory(u"wc/icon@2x #1 50%.txt"_s);
        commitAll(u"a folder instead"_s);
    }
};

TEST(History, ListsTheFilesOfASubversionProjectByTheirNewestRevision) {
    const MovedFiles repository;
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::svn);
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.files(),
              (QStringList{u"new/size.c: D 7, A 6"_s, u"new/Größe.c: D 6, M 5"_s, u"icon@2x #1 50%.txt: M 3, A 2"_s,
                           u"file2: A 2"_s, u"file10: A 2"_s, u"old/Größe.c: A 2"_s}));
    EXPECT_EQ(f.app.selectedHistoryPath.value(), u"new/size.c"_s);
    EXPECT_EQ(f.app.selectedRevision.value(), 7);
    EXPECT_EQ(f.app.historyDiffID.value(), (FileRevisionID{u"new/size.c"_s, 7}));
    EXPECT_EQ(f.app.historyLineSummary.value(), (LineChangeSummary{2, 0}));
    EXPECT_EQ(f.app.busyMessage.value(), std::nullopt);
}

TEST(History, ShowsWhatARevisionChangedInAFileWhateverBecameOfIt) {
    struct Row {
        const char *name;
        QString path;
        qint64 revision;
        QStringList lines;
    };
    const Row rows[] = {
        {"deleted", u"new/size.c"_s, 7, {u"-x"_s, u"-y"_s}},
        {"renamed without a change", u"new/size.c"_s, 6, {}},
        {"renamed away", u"new/Größe.c"_s, 6, {u"-x"_s, u"-y"_s}},
        {"moved with its folder since", u"old/Größe.c"_s, 2, {u"+x"_s}},
        {"changed below a moved folder", u"new/Größe.c"_s, 5, {u"+y"_s}},
        {"replaced by a folder since", u"icon@2x #1 50%.txt"_s, 3, {u"+b"_s}},
        {"added", u"icon@2x #1 50%.txt"_s, 2, {u"+a"_s}},
    };
    const MovedFiles repository;
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::svn);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        f.select(row.path, row.revision);
        EXPECT_EQ(f.diffLines(), row.lines);
        EXPECT_EQ(f.app.historyDiffID.value(), (FileRevisionID{row.path, row.revision}));
        EXPECT_EQ(f.app.historyDiffText.value() == u"(no text diff)"_s, row.lines.isEmpty());
    }
}

} // namespace
} // namespace kestor
