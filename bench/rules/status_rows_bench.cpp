#include "rules/status_filter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

constexpr int filesPerFolder = 100;

void writeFile(const QString &path, const QByteArray &content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// A working copy with ignore rules and the items that a tool would report for it.
class WorkingCopy {
public:
    WorkingCopy() { writeFile(root() + u"/.gitignore"_s, "*.o\nbuild/\n/dist\n*.tmp\n!keep.tmp\ndoc/*.pdf\n"); }

    QString root() const { return directory.path(); }
    const QList<WorkingCopyItem> &items() const { return reported; }

    void addFiles(const QString &folder, int count, SVNStatusKind kind) {
        for (int i = 0; i < count; ++i) {
            const QString parent = u"%1%2"_s.arg(folder).arg(i / filesPerFolder);
            if (i % filesPerFolder == 0)
                QDir(root()).mkpath(parent);
            const QString path = u"%1/file%2.cpp"_s.arg(parent).arg(i);
            writeFile(root() + u'/' + path, {});
            reported.append({.path = path, .kind = kind});
        }
    }

    void addFolder(const QString &folder, int count) {
        QDir(root()).mkpath(folder);
        for (int i = 0; i < count; ++i)
            writeFile(u"%1/%2/file%3.cpp"_s.arg(root(), folder).arg(i), {});
        reported.append({.path = folder, .kind = SVNStatusKind::unversioned});
    }

private:
    QTemporaryDir directory;
    QList<WorkingCopyItem> reported;
};

void loadRows(benchmark::State &state, const WorkingCopy &copy) {
    qsizetype rows = 0;
    while (state.KeepRunning()) {
        FolderReader folders(copy.root(), u".svn"_s);
        rows = displayedStatusItems(copy.items(), folders).size();
    }
    state.counters["rows"] = static_cast<double>(rows);
}

void modifiedAndUnversionedFiles(benchmark::State &state) {
    WorkingCopy copy;
    const int count = static_cast<int>(state.range(0));
    copy.addFiles(u"src/module"_s, count / 10, SVNStatusKind::modified);
    copy.addFiles(u"new/part"_s, count, SVNStatusKind::unversioned);
    loadRows(state, copy);
}
BENCHMARK(modifiedAndUnversionedFiles)
    ->Arg(10000)
    ->Arg(20000)
    ->Arg(40000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10);

void oneUnversionedFolder(benchmark::State &state) {
    WorkingCopy copy;
    copy.addFolder(u"new"_s, static_cast<int>(state.range(0)));
    loadRows(state, copy);
}
BENCHMARK(oneUnversionedFolder)->Arg(25000)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(10);

} // namespace
} // namespace kestor
