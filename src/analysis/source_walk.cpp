#include "analysis/source_walk.h"

#include "analysis/language_memo.h"
#include "analysis/language_tables.h"
#include "analysis/source_folder.h"

#include <algorithm>
#include <condition_variable>
#include <iterator>
#include <list>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace kestor {

namespace {

/// The folders still to be read, shared by the threads of one walk.
class PendingFolders {
public:
    PendingFolders() { folders.emplace_back(); }

    /// The next folder; waits while there is none but another thread may find some. Nothing at the end of the walk.
    std::optional<PendingFolder> next() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return !folders.empty() || beingRead == 0; });
        if (folders.empty())
            return std::nullopt;
        std::optional<PendingFolder> folder = std::move(folders.back());
        folders.pop_back();
        ++beingRead;
        return folder;
    }

    /// Ends what next() began: the folder is read, and `found` are in it.
    void finish(std::vector<PendingFolder> found) {
        const std::lock_guard lock(mutex);
        std::ranges::move(found, std::back_inserter(folders));
        --beingRead;
        changed.notify_all();
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<PendingFolder> folders;
    int beingRead = 0;
};

/// The part of a walk that one thread does.
class Walker {
public:
    Walker(const QString &root, const CustomLanguages &custom, const std::stop_token &stopToken)
        : folder(root), languages(custom), stop(stopToken) {}

    void run(PendingFolders &pending) {
        while (const std::optional<PendingFolder> next = pending.next())
            pending.finish(countFolder(*next));
    }

    /// Adds what run() has counted.
    void appendTotals(std::vector<LanguageTotal> &all) const {
        const auto isCounted = [](const LanguageTotal &total) {
            return !total.firstFile.empty();
        };
        std::ranges::copy_if(totals, std::back_inserter(all), isCounted);
    }

private:
    /// Counts the folder's files and returns the folders in it.
    std::vector<PendingFolder> countFolder(const PendingFolder &pending);
    void countFile(std::size_t entry);
    LanguageTotal &totalOf(std::size_t language);

    SourceFolder folder;
    LanguageMemo languages;
    const std::stop_token &stop;
    std::vector<LanguageTotal> totals{};
};

std::vector<PendingFolder> Walker::countFolder(const PendingFolder &pending) {
    std::vector<PendingFolder> below;
    if (stop.stop_requested())
        return below;
    folder.read(pending);
    for (std::size_t entry = 0; entry < folder.size() && !stop.stop_requested(); ++entry) {
        if (!folder.isDirectory(entry))
            countFile(entry);
        else if (!isSkippedFolderName(folder.name(entry)) && !folder.isIgnored(entry))
            below.push_back(folder.folderAt(entry));
    }
    return below;
}

void Walker::countFile(std::size_t entry) {
    const std::optional<std::size_t> language = languages.positionOf(folder.name(entry));
    if (!language || folder.isIgnored(entry))
        return;
    const std::optional<qint64> size = folder.fileSize(entry);
    if (!size)
        return;
    LanguageTotal &total = totalOf(*language);
    total.bytes += *size;
    std::string path = folder.pathOf(entry);
    if (total.firstFile.empty() || comesFirst(path, total.firstFile))
        total.firstFile = std::move(path);
}

LanguageTotal &Walker::totalOf(std::size_t language) {
    while (totals.size() <= language)
        totals.push_back({.language = languages.languages()[totals.size()]});
    return totals[language];
}

/// Where the system grants no more threads, those that run do the work.
template <typename Work>
void startThread(std::vector<std::jthread> &threads, Work work) {
    try {
        threads.emplace_back(std::move(work));
    } catch (const std::system_error &) {
        return;
    }
}

} // namespace

bool comesFirst(std::string_view path, std::string_view other) {
    const auto rank = [](char byte) {
        return byte == '/' ? 0 : static_cast<unsigned char>(byte);
    };
    return std::ranges::lexicographical_compare(path, other, {}, rank, rank);
}

std::vector<LanguageTotal> sourceTotals(const QString &root, const CustomLanguages &custom,
                                        const std::stop_token &stop) {
    PendingFolders pending;
    std::list<Walker> walkers;
    for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i)
        walkers.emplace_back(root, custom, stop);
    {
        std::vector<std::jthread> threads;
        for (auto walker = std::next(walkers.begin()); walker != walkers.end(); ++walker)
            startThread(threads, [&walker = *walker, &pending] { walker.run(pending); });
        walkers.front().run(pending);
    }
    std::vector<LanguageTotal> totals;
    for (const Walker &walker : walkers)
        walker.appendTotals(totals);
    return totals;
}

} // namespace kestor
