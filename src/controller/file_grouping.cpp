#include "controller/file_grouping.h"

#include "controller/repository_paths.h"
#include "model/file_order.h"

#include <QHash>

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr quint32 noFile = std::numeric_limits<quint32>::max();

/// Finds the files of a log in two passes: the first counts the changes of each, the second puts them in their places.
class Grouping {
public:
    Grouping(const QList<LogEntry> &entries, const QString &relativeURL)
        : source(std::make_shared<FileHistorySource>()), folder(repositoryFolder(relativeURL)) {
        source->entries = entries;
        source->relativeURL = relativeURL;
    }

    FileHistory history() {
        for (const LogEntry &entry : std::as_const(source->entries)) {
            for (const SVNPathChange &change : entry.paths)
                count(change);
        }
        positions.clear();
        placeChanges();
        sortFiles();
        packPaths();
        return FileHistory(std::exchange(source, nullptr));
    }

private:
    void count(const SVNPathChange &change) {
        const quint32 file = change.kind == u"dir"_s ? noFile : fileOf(change.path);
        fileOfChange.push_back(file);
        if (file != noFile)
            ++source->files[file].changeCount;
    }

    quint32 fileOf(const QString &repositoryPath) {
        const QStringView path = workingCopyPath(repositoryPath, folder);
        if (path.isEmpty() || path == u".")
            return noFile;
        const auto known = positions.constFind(path);
        if (known != positions.constEnd())
            return *known;
        const auto file = static_cast<quint32>(source->files.size());
        positions.insert(path, file);
        source->files.push_back({path, 0, 0});
        return file;
    }

    void placeChanges() {
        quint32 total = 0;
        for (FileHistorySource::File &file : source->files) {
            file.firstChange = total;
            total += std::exchange(file.changeCount, 0);
        }
        source->changes.resize(total);
        std::size_t position = 0;
        for (qsizetype entry = 0; entry < source->entries.size(); ++entry) {
            for (qsizetype path = 0; path < std::as_const(source->entries)[entry].paths.size(); ++path)
                place(fileOfChange[position++], {static_cast<quint32>(entry), static_cast<quint32>(path)});
        }
    }

    void place(quint32 file, FileHistorySource::Change change) {
        if (file == noFile)
            return;
        FileHistorySource::File &slice = source->files[file];
        source->changes[slice.firstChange + slice.changeCount++] = change;
    }

    qint64 newestRevision(const FileHistorySource::File &file) const {
        return std::as_const(source->entries)[source->changes[file.firstChange].entry].revision;
    }

    void sortFiles() {
        std::vector<FileHistorySource::File> &files = source->files;
        const auto isNewer = [this](const FileHistorySource::File &a, const FileHistorySource::File &b) {
            return newestRevision(a) > newestRevision(b);
        };
        std::stable_sort(files.begin(), files.end(), isNewer);
        for (auto begin = files.begin(); begin != files.end();) {
            const auto end = std::upper_bound(begin, files.end(), *begin, isNewer);
            sortByPath(begin, end);
            begin = end;
        }
    }

    using Files = std::vector<FileHistorySource::File>::iterator;
    void sortByPath(Files begin, Files end) {
        if (end - begin < 2)
            return;
        QStringList paths;
        paths.reserve(end - begin);
        for (auto file = begin; file != end; ++file)
            paths.append(QString::fromRawData(file->path.data(), file->path.size()));
        std::vector<FileHistorySource::File> sorted;
        sorted.reserve(static_cast<std::size_t>(end - begin));
        for (const qsizetype position : order.positions(paths))
            sorted.push_back(begin[position]);
        std::copy(sorted.begin(), sorted.end(), begin);
    }

    /// Until now they were slices of the log's paths.
    void packPaths() {
        qsizetype size = 0;
        for (const FileHistorySource::File &file : source->files)
            size += file.path.size();
        QString &paths = source->paths;
        paths.reserve(size);
        for (FileHistorySource::File &file : source->files) {
            const qsizetype start = paths.size();
            paths.append(file.path);
            file.path = QStringView(paths).sliced(start);
        }
    }

    std::shared_ptr<FileHistorySource> source;
    QString folder;
    QHash<QStringView, quint32> positions; ///< of the files; the keys are slices of the log's paths
    std::vector<quint32> fileOfChange;
    StandardOrder order;
};

} // namespace

FileHistory groupedByFile(const QList<LogEntry> &entries, const QString &relativeURL) {
    return Grouping(entries, relativeURL).history();
}

} // namespace kestor
