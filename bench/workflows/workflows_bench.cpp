// What the user waits for when many files are committed or deleted at once, against the same done by hand with the
// tools. The repositories are real and made anew for every round; the best of the rounds counts.

#include "../support/measures.h"
#include "controller/deletion.h"
#include "support/app_fixture.h"
#include "support/repositories.h"

#include <QCoreApplication>

#include <algorithm>
#include <functional>
#include <limits>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::AppFixture;
using testing::GitFixture;
using testing::runTool;
using testing::SvnFixture;
using testing::TempTree;

constexpr int committedFiles = 5000; ///< a multiple of eight
constexpr int deletedFiles = 20000;
constexpr int filesPerFolder = 100;
constexpr int commits = 2;
constexpr int deletions = 3;

double secondsOf(const QElapsedTimer &timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

double seconds(const std::function<void()> &work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return secondsOf(timer);
}

/// Each round makes what it needs and returns the seconds of the part that counts. A quarter and half of the files tell
/// how it grows.
void compare(const QByteArray &name, int files, int rounds, double (*byHand)(), double (*measured)(int files)) {
    double byHandBest = std::numeric_limits<double>::max();
    double best[] = {byHandBest, byHandBest, byHandBest};
    for (int round = 0; round < rounds; ++round) {
        byHandBest = std::min(byHandBest, byHand());
        for (const int size : {0, 1, 2})
            best[size] = std::min(best[size], measured(files >> (2 - size)));
    }
    report(name, best[2], "s", byHandBest);
    for (const int size : {0, 1, 2})
        report("growth/" + name + '/' + QByteArray::number(files >> (2 - size)), best[size], "s");
}

QString fileName(int number) {
    return u"src/module_%1/file_%2.c"_s.arg(number / filesPerFolder).arg(number);
}

QStringList fileNames(int first, int step) {
    QStringList names;
    for (int i = first; i < committedFiles; i += step)
        names.append(fileName(i));
    return names;
}

/// Every second file is changed, the others are new.
template <typename Repository>
void changeFiles(Repository &repository, int count = committedFiles) {
    for (int i = 0; i < count; i += 2)
        repository.write(fileName(i), "one\n");
    repository.commitAll(u"first"_s);
    for (int i = 0; i < count; ++i)
        repository.write(fileName(i), "two\n");
}

/// Until the output of the commit is there to read; the lists load again afterwards.
double commitWithWindow(const QString &path, RepositoryKind kind) {
    AppFixture f;
    f.open(path, kind);
    f.app.setCommitSelection(MarkedPaths::all(f.app.changes), true);
    f.app.commitMessage = u"all"_s;
    QElapsedTimer timer;
    double taken = 0;
    const auto committed = f.app.commandOutput.onValueChanged([&] { taken = secondsOf(timer); });
    timer.start();
    QCoro::waitFor(f.app.commitSelected());
    if (f.app.alert.value() || !f.app.changes.value().isEmpty())
        qFatal("the commit failed");
    return taken;
}

double commitToSubversion(int count) {
    SvnFixture repository;
    changeFiles(repository, count);
    return commitWithWindow(repository.path(), RepositoryKind::svn);
}

/// The same files, named in a file as a careful hand would.
double commitToSubversionByHand() {
    SvnFixture repository;
    changeFiles(repository);
    repository.tree.write(u"new"_s, fileNames(1, 2).join(u'\n').toUtf8());
    repository.tree.write(u"all"_s, fileNames(0, 1).join(u'\n').toUtf8());
    return seconds([&repository] {
        repository.svn({u"add"_s, u"-q"_s, u"--targets"_s, u"../new"_s});
        repository.svn({u"commit"_s, u"-m"_s, u"all"_s, u"--targets"_s, u"../all"_s});
    });
}

double commitToGit(int count) {
    GitFixture repository;
    changeFiles(repository, count);
    return commitWithWindow(repository.path(), RepositoryKind::git);
}

double commitToGitByHand() {
    GitFixture repository;
    changeFiles(repository);
    repository.tree.write(u"all"_s, fileNames(0, 1).join(u'\n').toUtf8());
    return seconds([&repository] {
        repository.git({u"add"_s, u"--all"_s, u"--pathspec-from-file=../all"_s});
        repository.git({u"commit"_s, u"-m"_s, u"all"_s, u"--pathspec-from-file=../all"_s});
    });
}

QList<UnversionedPath> filledTree(TempTree &tree, int count = deletedFiles) {
    QList<UnversionedPath> paths;
    for (int i = 0; i < count; ++i) {
        paths.append({fileName(i), u"src"_s});
        tree.write(fileName(i), "x\n");
    }
    return paths;
}

double deleteFiles(int count) {
    TempTree tree;
    const QList<UnversionedPath> paths = filledTree(tree, count);
    return seconds([&] {
        if (deleteUnversionedItems(paths, tree.path()).deleted != count)
            qFatal("the deletion failed");
    });
}

double deleteFilesByHand() {
    TempTree tree;
    filledTree(tree);
    return seconds([&tree] { runTool(u"rm"_s, {u"-r"_s, u"src"_s}, tree.path()); });
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) {
    using namespace kestor;
    const QCoreApplication application(argc, argv);
    qputenv("GIT_CONFIG_GLOBAL", "/dev/null");
    qputenv("XDG_DATA_HOME", "/dev/null"); // no trash: what is removed is gone
    compare("commit to Subversion", committedFiles, 1, commitToSubversionByHand, commitToSubversion);
    compare("commit to Git", committedFiles, commits, commitToGitByHand, commitToGit);
    compare("deletion of unversioned files", deletedFiles, deletions, deleteFilesByHand, deleteFiles);
}
