#include "history_fixture.h"

using namespace Qt::StringLiterals;

namespace kestor::testing {

QStringList HistoryFixture::files() const {
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

void HistoryFixture::select(const QString &path, std::optional<qint64> revision) {
    app.selectedHistoryPath = path;
    awaited(app.selectedHistoryPathChanged());
    if (!revision)
        return;
    app.selectedRevision = revision;
    awaited(app.selectedHistoryRevisionChanged());
}

QStringList HistoryFixture::diffLines() const {
    QStringList lines;
    for (const QString &line : app.historyDiffText.value().split(u'\n')) {
        const bool isChange = line.startsWith(u'+') || line.startsWith(u'-');
        if (isChange && !line.startsWith(u"+++ ") && !line.startsWith(u"--- "))
            lines.append(line);
    }
    return lines;
}

MovedFiles::MovedFiles() {
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

} // namespace kestor::testing
