#include "side_by_side.h"
#include "tools/zip_writer.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

constexpr int filesPerFolder = 50;

/// Source files of 1 to 8 kB.
qint64 writeTree(const QString &root, int files) {
    qint64 bytes = 0;
    for (int i = 0; i < files; ++i) {
        const QString folder = root + u"/part_"_s + QString::number(i / filesPerFolder);
        QDir().mkpath(folder);
        QByteArray content;
        for (int line = 0; line < 20 + i % 120; ++line)
            content += "    const auto position = layout.positionOf(item, " + QByteArray::number(i * line) + ");\n";
        QFile file(folder + u"/source-file"_s + QString::number(i) + u".cpp"_s);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        bytes += content.size();
    }
    return bytes;
}

void runZip(const QString &directory) {
    QFile::remove(directory + u"/zip.zip"_s);
    QProcess zip;
    zip.setWorkingDirectory(directory);
    zip.start(u"zip"_s, {u"-r"_s, u"-q"_s, u"zip.zip"_s, u"tree"_s});
    if (!zip.waitForFinished(-1) || zip.exitCode() != 0)
        qFatal("zip failed");
}

void BM_zip(benchmark::State &state) {
    const QTemporaryDir directory;
    const qint64 bytes = writeTree(directory.filePath(u"tree"_s), static_cast<int>(state.range(0)));
    const auto write = [&directory] {
        const QString failure = writeZip(directory.filePath(u"tree"_s), directory.filePath(u"own.zip"_s), {});
        if (!failure.isEmpty())
            qFatal("%s", qPrintable(failure));
    };
    runSideBySide(
        state, bytes, [&directory] { runZip(directory.path()); }, write);
}

BENCHMARK(BM_zip)->Arg(5000)->Arg(10000)->Arg(20000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
} // namespace kestor
