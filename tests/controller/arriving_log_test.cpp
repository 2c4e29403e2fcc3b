#include "controller/arriving_log.h"
#include "support/app_test.h"
#include "tools/svn_preference.h"

namespace kestor {
namespace {

QByteArray svnEntry(const QByteArray &revision, const QByteArray &message) {
    return "<logentry\n   revision=\"" + revision +
           "\">\n<author>jo</author>\n<paths>\n<path action=\"M\" kind=\"file\">/f" + revision +
           ".c</path>\n</paths>\n<msg>" + message + "</msg>\n</logentry>\n";
}

QByteArray gitEntry(const QByteArray &hash, const QByteArray &message) {
    return "--KESTOR-GIT-COMMIT--" + hash + "\tjo\t2024-05-01T10:20:30+02:00\t" + message + "\n\nM\ta.c\nR100\tb\tc\n";
}

TEST(ArrivingLog, ReadsPiecesAsTheWhole) {
    const QByteArray svnBegin = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<log>\n";
    const QByteArray three = svnEntry("9", "größe &lt;/logentry&gt;") + svnEntry("11", "") + svnEntry("3", "\xE9");
    const Rows<RepositoryKind, QByteArray, qsizetype> rows{
        {"Subversion", RepositoryKind::svn, svnBegin + three + "</log>\n", 3},
        {"broken off", RepositoryKind::svn, svnBegin + three.chopped(30), 2},
        {"no XML in the middle", RepositoryKind::svn, svnBegin + svnEntry("9", "<b>") + three + "</log>\n", 0},
        {"an end that is text", RepositoryKind::svn,
         svnBegin + svnEntry("9", "<![CDATA[</logentry>]]>") + three + "</log>\n", 4},
        {"nothing", RepositoryKind::svn, {}, 0},
        {"Git", RepositoryKind::git, gitEntry("abc", "größe") + gitEntry("def", "\xE9") + gitEntry("012", ""), 3},
    };
    for (const auto &[name, kind, output, count] : rows) {
        ArrivingLog whole(kind);
        const QList<LogEntry> entries = whole.entriesOf(output);
        EXPECT_EQ(entries.size(), count);
        for (const qsizetype size : {1, 7, 100, 200}) {
            ArrivingLog log(kind);
            for (qsizetype start = 0; start + size < output.size(); start += size) {
                log.add(QByteArrayView(output).sliced(start, size));
                const QList<LogEntry> soFar = log.entriesSoFar();
                EXPECT_LE(soFar.size(), count);
            }
            EXPECT_EQ(log.entriesOf(output), entries) << size;
        }
    }
}

TEST(ArrivingLog, IsShownFromItsBeginningAndNotAfterAFailure) {
    const Rows<QByteArray, qsizetype, QString> rows{
        {"the rest arrives", "0", 3, u""_s},
        {"the tool fails", "1", 0, u"History Failed: broken pipe\n"_s},
    };
    for (const auto &[name, status, count, alert] : rows) {
        AppFixture f;
        TempTree &tree = f.preferences;
        // Prints the beginning at once and the rest when it is told to.
        tree.writeProgram(u"svn"_s, "cd \"${0%/*}\"\n[ $1 = log ] || exit 1\ncat first\n"
                                    "until [ -e go ]; do sleep 0.01; done\ncat rest; echo broken pipe >&2; exit " +
                                        status + "\n");
        tree.write(u"first"_s, "<log>" + svnEntry("9", "") + svnEntry("8", ""));
        tree.write(u"rest"_s, svnEntry("7", "") + "</log>");
        f.settings.setValue(svnExecutablePathKey, tree.path(u"svn"_s));
        const Project project{QUuid::createUuid(), u"p"_s, tree.path(), RepositoryKind::svn};
        f.app.projects = QList<Project>{project};
        f.app.selectedProjectID = project.id;
        QCoro::Task<> loading = f.app.loadHistory();
        EXPECT_TRUE(waitUntil([&f] { return f.app.logEntries.value().size() == 2; }));
        EXPECT_FALSE(f.app.historyLoaded.value());
        f.app.selectedHistoryPath = u"f8.c"_s;
        tree.write(u"go"_s);
        awaited(std::move(loading));
        EXPECT_EQ(f.app.logEntries.value().size(), count);
        EXPECT_EQ(f.app.historyLoaded.value(), count > 0);
        EXPECT_EQ(f.app.selectedHistoryPath.value().has_value(), count > 0);
        EXPECT_EQ(f.app.selectedHistoryPath.value().value_or(u"f8.c"_s), u"f8.c"_s);
        EXPECT_EQ(f.alertText(), alert);
    }
}

} // namespace
} // namespace kestor
