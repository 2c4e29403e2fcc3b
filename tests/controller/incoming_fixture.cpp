#include "incoming_fixture.h"

#include "support/lists.h"

using namespace Qt::StringLiterals;

namespace kestor::testing {

SharedRepository::SharedRepository() {
    write(u"a.c"_s, "one\n");
    write(u"src/b.c"_s, "b\n");
    write(u"icon@2x.png"_s, "\x89PNG one");
    commitAll(u"two"_s);
    runTool(u"svn"_s, {u"checkout"_s, u"-q"_s, url(u"trunk"_s), tree.path(u"theirs"_s)}, tree.path());
}

QByteArray SharedRepository::theirSvn(const QStringList &arguments) const {
    return runTool(u"svn"_s, arguments, tree.path(u"theirs"_s));
}

void SharedRepository::theyCommit(const QString &message) const {
    theirSvn(u"add|-q|--force|."_list);
    theirSvn({u"commit"_s, u"-q"_s, u"-m"_s, message});
    theirSvn(u"update|-q"_list);
}

QString SharedRepository::url(const QString &relative) const {
    return u"file://"_s + tree.path(u"repo"_s) + u'/' + relative;
}

QString IncomingFixture::range() const {
    QStringList revisions;
    for (const LogEntry &entry : app.incomingEntries.value()) {
        const QString number = QString::number(entry.revision);
        const bool selected = app.selectedIncomingRevision.value() == entry.revision;
        revisions.append(selected ? u'[' + number + u']' : number);
    }
    return app.incoming.incomingRangeDescription().value_or(u"-"_s) + u": "_s + revisions.join(u' ');
}

QStringList IncomingFixture::outdated() const {
    QStringList all;
    for (const WorkingCopyItem &item : app.incomingOutdatedItems.value())
        all.append(shortName(item.kind) + u' ' + item.path);
    return all;
}

void IncomingFixture::select(qint64 revision) {
    app.selectedIncomingRevision = revision;
    awaited(app.incoming.selectedIncomingRevisionChanged());
}

QStringList IncomingFixture::diffLines() const {
    QStringList lines;
    for (const QString &line : app.incomingDiffText.value().split(u'\n')) {
        const bool isChange = line.startsWith(u'+') || line.startsWith(u'-');
        if (isChange && !line.startsWith(u"+++ ") && !line.startsWith(u"--- "))
            lines.append(line);
    }
    return lines;
}

} // namespace kestor::testing
