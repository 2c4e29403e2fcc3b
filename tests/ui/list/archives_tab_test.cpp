#include "support/app_test.h"
#include "support/window_test.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/archives_tab.h"

namespace kestor {
namespace {

class ShownArchives {
public:
    ShownArchives() {
        tab.resize(1100, 500);
        activate(tab);
        list().setFocus();
    }

    RowListView &list() { return *qobject_cast<RowListView *>(tab.focusPanes().at(0)); }
    RowListView &paths() { return *qobject_cast<RowListView *>(tab.focusPanes().at(1)); }
    bool says(const QString &text) const {
        return waitUntil([&] { return testing::says(tab, text); });
    }

    AppFixture fixture{};
    QAction zip{u"Create Archive Zip..."_s};
    ArchivesTab tab{fixture.app, &zip};
};

TEST(ArchivesTab, ARevisionChosenShowsItsZipAndPaths) {
    SvnFixture repository;
    repository.commit({{u"a"_s}});
    repository.commit({{u"b"_s}});
    ShownArchives shown;
    shown.fixture.open(repository);
    awaited(shown.fixture.app.loadArchives());
    EXPECT_TRUE(shown.says(u"3 revisions"_s));
    EXPECT_TRUE(shown.says(u"(select a revision)"_s));
    QTest::keyClick(&shown.list(), Qt::Key_Down);
    QTest::keyClick(&shown.list(), Qt::Key_Down);
    EXPECT_EQ(shown.fixture.app.selectedArchiveEntryID.value(), 2);
    EXPECT_FALSE(shown.fixture.app.busyMessage.value().has_value()) << "choosing a revision loads nothing";
    EXPECT_TRUE(shown.says(u"wc-r2.zip"_s));
    EXPECT_TRUE(shown.says(u"One folder inside: wc-r2"_s));
    shown.paths().setFocus();
    QTest::keyClick(&shown.paths(), Qt::Key_Down);
    QTest::keyClick(&shown.paths(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"/trunk/a"_s);
    QSignalSpy asked(&shown.zip, &QAction::triggered);
    clickButton(shown.tab, shown.zip.text());
    EXPECT_EQ(asked.size(), 1);
}

} // namespace
} // namespace kestor
