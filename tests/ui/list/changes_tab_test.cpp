#include "support/app_test.h"
#include "support/window_test.h"
#include "ui/diff/diff_pane.h"
#include "ui/list/filter_field.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/changes_tab.h"

namespace kestor {
namespace {

class ShownTab {
public:
    explicit ShownTab(AppState &state) : tab(state) {
        tab.resize(1000, 400);
        activate(tab);
        list().setFocus();
    }

    RowListView &list() { return *tab.findChild<RowListView *>(); }
    FilterField &filter() { return *tab.findChild<FilterField *>(); }
    QString pathInBar() {
        for (QAction *action : tab.diffPane()->findChildren<QAction *>()) {
            if (action->text() == u"Copy Path"_s)
                action->trigger();
        }
        return QGuiApplication::clipboard()->text();
    }
    bool says(const QString &text) const { return testing::says(tab, text); }

    ChangesTab tab;
};

TEST(ChangesTab, OnlyTheUsersChoiceOfARowRunsATool) {
    const HeldApp held(RepositoryKind::git);
    AppState &app = *held.app;
    ShownTab shown(app);
    const QList<WorkingCopyItem> items{{.path = u"a"_s, .kind = SVNStatusKind::modified},
                                       {.path = u"b"_s, .kind = SVNStatusKind::modified}};
    app.changes = items;
    app.selectedChangeID = u"b"_s;
    app.selectedCommitPaths = marked({u"a"_s});
    app.changes = items + QList<WorkingCopyItem>{{.path = u"c"_s, .kind = SVNStatusKind::modified}};
    EXPECT_EQ(app.selectedChangeID.value(), u"b"_s);
    EXPECT_EQ(shown.list().currentId(), u"b"_s);
    HeldApp::settle();
    EXPECT_EQ(shown.pathInBar(), u"b"_s) << "also before its diff is there";
    EXPECT_FALSE(shown.says(u"(select a changed file)"_s));
    EXPECT_EQ(held.tool->vectors(), QList<QStringList>());
    QTest::keyClick(&shown.list(), Qt::Key_Down);
    EXPECT_EQ(app.selectedChangeID.value(), u"c"_s);
    ASSERT_EQ(held.tool->vectors().size(), 1);
    held.tool->finish(held.tool->vectors().first(), ""); // the controller's end would wait for it
}

TEST(ChangesTab, ColorsDiffsByTheLanguageRules) {
    GitFixture repository;
    repository.commit({{u"a.own"_s}});
    repository.write(u"a.own"_s, "if\n");
    AppFixture fixture;
    ShownTab shown(fixture.app);
    const LineLooks &looks = shown.tab.diffPane()->diffView().lineLooks();
    const auto hasSpans = [&looks](qsizetype count) {
        return waitUntil([&] { return looks.find(1) != nullptr && looks.find(1)->spans.size() == count; });
    };
    fixture.open(repository);
    ASSERT_TRUE(hasSpans(0));
    fixture.app.customLanguageRules =
        QList<CustomLanguageRule>{{.fileExtension = u"own"_s, .languageName = u"C"_s, .colorHex = u"#000000"_s}};
    EXPECT_TRUE(hasSpans(1));
}

TEST(ChangesTab, FollowsTheRowsThoughTheirTextsAreEqual) {
    const GitFixture repository;
    for (const QString &inner : u"one|two|three"_list)
        repository.git({u"init"_s, u"-q"_s, inner});
    AppFixture fixture;
    ShownTab shown(fixture.app);
    fixture.open(repository);
    ASSERT_TRUE(waitUntil([&] { return shown.says(u"(unversioned directory)"_s); }));
    for (const QString &path : u"three|two"_list) {
        QTest::keyClick(&shown.tab, Qt::Key_F8);
        EXPECT_TRUE(waitUntil([&] { return shown.pathInBar() == path; })) << qPrintable(path);
    }
    EXPECT_EQ(fixture.app.diffText.value(), u"(unversioned directory)"_s);
}

TEST(ChangesTab, KeepsTheFilterTextOfEachProject) {
    const GitFixture first;
    const GitFixture second;
    AppFixture fixture;
    ShownTab shown(fixture.app);
    fixture.open(first);
    QTest::keyClicks(&shown.filter(), u"src"_s);
    fixture.open(second);
    EXPECT_EQ(shown.tab.filterText(), u""_s);
    QTest::keyClicks(&shown.filter(), u"doc"_s);
    fixture.open(first);
    EXPECT_EQ(shown.tab.filterText(), u"src"_s);
    EXPECT_TRUE(shown.tab.escape());
    EXPECT_EQ(shown.tab.filterText(), u""_s);
    fixture.open(second);
    EXPECT_EQ(shown.tab.filterText(), u"doc"_s);
}

TEST(ChangesTab, ACurrentRowThatTheFilterHidIsInViewWhenItComesBack) {
    const HeldApp held(RepositoryKind::git);
    ShownTab shown(*held.app);
    QList<WorkingCopyItem> items;
    for (int number = 100; number < 200; ++number)
        items.append({.path = u"f%1"_s.arg(number), .kind = SVNStatusKind::modified});
    held.app->changes = items;
    held.app->selectedChangeID = u"f105"_s;
    for (const QString &typed : u"f19|"_list)
        shown.filter().setText(typed);
    ASSERT_EQ(shown.list().currentIndex().row(), 5);
    EXPECT_TRUE(shown.list().viewport()->rect().contains(shown.list().visualRect(shown.list().currentIndex())));
}

TEST(ChangesTab, CallsAProjectUnchangedOnlyAfterALoadThatSucceeded) {
    const GitFixture clean;
    const TempTree noRepository;
    AppFixture fixture;
    const ShownTab shown(fixture.app);
    fixture.open(clean);
    EXPECT_TRUE(shown.says(u"No Changes"_s));
    fixture.open(noRepository.path(), RepositoryKind::git);
    EXPECT_TRUE(startsWith(fixture.alertText(), u"Status Failed"_s));
    EXPECT_FALSE(shown.says(u"No Changes"_s));
    EXPECT_TRUE(shown.says(u"Not Loaded"_s));
}

} // namespace
} // namespace kestor
