#include "support/app_test.h"

#include <QElapsedTimer>
#include <QSemaphore>

namespace kestor {
namespace {

/// While it lives, no count begins.
class HeldWorkers {
public:
    HeldWorkers() {
        for (int thread = 0; thread < threads; ++thread)
            QThreadPool::globalInstance()->start([this] { free.acquire(); });
    }
    ~HeldWorkers() { free.release(threads); }
    Q_DISABLE_COPY_MOVE(HeldWorkers)

private:
    const int threads = QThreadPool::globalInstance()->maxThreadCount();
    QSemaphore free{};
};

/// Each language with its bytes; "not counted" before there is a count.
QString shares(const AppState &app) {
    const auto distribution = app.languageDistribution.value();
    if (!distribution)
        return u"not counted"_s;
    QStringList texts;
    for (const LanguageDistributionEntry &entry : *distribution)
        texts.append(entry.name + u' ' + QString::number(entry.bytes));
    return texts.join(u", "_s);
}

TEST(LanguageShares, AreCountedWhenTheyAreShownAndOutOfDate) {
    GitFixture project;
    project.write(u"a.c"_s, "12345");
    AppFixture fixture(project);
    AppState &app = fixture.app;

    EXPECT_EQ(shares(app), u"not counted"_s) << "another tab is shown";
    fixture.showTab(WorkflowTab::configuration);
    EXPECT_EQ(shares(app), u"C 5"_s);

    project.write(u"b.cpp"_s, "1234567");
    fixture.showTab(WorkflowTab::changes);
    fixture.showTab(WorkflowTab::configuration);
    EXPECT_EQ(shares(app), u"C 5"_s) << "shown again";
    awaited(app.refreshAll());
    EXPECT_EQ(shares(app), u"C++ 7, C 5"_s);

    project.write(u"c.py"_s, "1");
    fixture.showTab(WorkflowTab::changes);
    awaited(app.refreshAll());
    EXPECT_EQ(shares(app), u"C++ 7, C 5"_s) << "the refresh waits for the tab";
    fixture.showTab(WorkflowTab::configuration);
    EXPECT_EQ(shares(app), u"C++ 7, C 5, Python 1"_s);
}

TEST(LanguageShares, FollowTheLastOfSeveralEditsOfTheRules) {
    GitFixture project;
    project.write(u"a.c"_s, "12345");
    AppFixture fixture(project);
    AppState &app = fixture.app;

    fixture.showTab(WorkflowTab::configuration);
    QStringList published;
    const auto notifier = app.languageDistribution.addNotifier([&] { published.append(shares(app)); });
    QElapsedTimer sinceEdit;
    const QUuid id = app.languageRules.addCustomLanguageRule();
    for (const QString &name : u"One|Two|Three"_list) {
        sinceEdit.start();
        app.languageRules.updateCustomLanguageRule({id, u"C"_s, name, u"#123456"_s, {}});
        waitUntil([&] { return sinceEdit.hasExpired(200); });
    }
    EXPECT_TRUE(waitUntil([&] { return !published.isEmpty(); }));
    EXPECT_EQ(published, u"Three 5"_list);
}

TEST(LanguageShares, OfAnotherProjectAreNeverShown) {
    GitFixture one;
    one.write(u"a.c"_s);
    GitFixture two;
    two.write(u"a.py"_s, "123");
    AppFixture fixture(one);
    AppState &app = fixture.app;

    fixture.open(two);
    const QUuid second = *app.selectedProjectID.value();
    app.selectedProjectID = app.projects.value().at(app.projects.value().first().id == second ? 1 : 0).id;
    awaited(app.projectSelectionChanged());
    QStringList published;
    const auto notifier = app.languageDistribution.addNotifier([&] { published.append(shares(app)); });
    app.selectedTab = WorkflowTab::configuration;
    std::vector<QCoro::Task<>> tasks;
    {
        const HeldWorkers held;
        tasks.push_back(app.tabChanged());
        app.selectedProjectID = second;
        tasks.push_back(app.projectSelectionChanged());
    }
    for (QCoro::Task<> &task : tasks)
        awaited(std::move(task));
    EXPECT_EQ(published, u"Python 3"_list);
    awaited(app.removeSelectedProject());
    EXPECT_EQ(published.at(1), u"not counted"_s);
}

TEST(LanguageShares, EndWithTheProgram) {
    GitFixture project;
    project.write(u"a.c"_s);
    auto fixture = std::make_unique<AppFixture>(project);
    QString published;
    const auto notifier = fixture->app.languageDistribution.addNotifier([&] { published = shares(fixture->app); });
    fixture->app.selectedTab = WorkflowTab::configuration;
    fixture->app.tabChanged();
    fixture.reset();
    EXPECT_EQ(published, QString());
}

TEST(LanguageRules, ASyntaxFileThatColorsNothingIsToldOf) {
    AppFixture fixture;
    TempTree folder;
    folder.writeAll({{u"good"_s, "- match: x\n  scope: keyword\n"}, {u"other"_s, "key: [value\n"}});
    const QUuid id = fixture.app.languageRules.addCustomLanguageRule();
    for (const QString &name : u"good|other|missing"_list) {
        fixture.app.alert = std::nullopt;
        fixture.user.chosenFile = folder.path(name);
        awaited(fixture.app.languageRules.chooseCustomLanguageSyntaxFile(id));
        EXPECT_EQ(fixture.app.customLanguageRules.value().first().syntaxFilePath, folder.path(name));
        EXPECT_EQ(fixture.app.alert.value().has_value(), name != u"good") << name.toStdString();
    }
}

} // namespace
} // namespace kestor
