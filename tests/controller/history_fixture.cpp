#include "history_fixture.h"

#include "support/lists.h"

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
    svn(u"move|-q|old|new"_list);
    commitAll(u"move the folder"_s);
    write(u"new/Größe.c"_s, "x\ny\n");
    commitAll(u"five"_s);
    svn(u"move|-q|new/Größe.c|new/size.c"_list);
    commitAll(u"rename"_s);
    svn(u"delete|-q|new/size.c"_list);
    commitAll(u"delete"_s);
    svn(u"delete|-q|icon@2x #1 50%.txt@"_list);
    tree.makeDirectory(u"wc/icon@2x #1 50%.txt"_s);
    commitAll(u"a folder instead"_s);
}

} // namespace kestor::testing
