#include "model/language_configuration_store.h"
#include "model/preferences_file.h"
#include "model/project_store.h"
#include "support/test.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>

namespace kestor {
namespace {

const QString projectsKey = u"KestorSVN.projects"_s;
const QString rulesKey = u"KestorSVN.customLanguageRules"_s;

/// Each settings() reads the file anew, as the next start of the program does.
class StoresTest : public ::testing::Test {
protected:
    std::unique_ptr<QSettings> settings() {
        return std::make_unique<QSettings>(directory.filePath(u"preferences.ini"_s), QSettings::IniFormat);
    }

    void setStored(const QString &key, const QVariant &value) { settings()->setValue(key, value); }
    QVariant stored(const QString &key) { return settings()->value(key); }

    QTemporaryDir directory;
};

TEST_F(StoresTest, listsSurviveARestartInTheirOrder) {
    const QList<Project> projects{{QUuid::createUuid(), u"b"_s, u"/größe/\"b\""_s, RepositoryKind::git},
                                  {QUuid::createUuid(), u"a"_s, u"/a"_s, RepositoryKind::svn}};
    const QList<CustomLanguageRule> rules{{QUuid::createUuid(), u"zig"_s, u"Zig"_s, u"#fff"_s, u"/x"_s},
                                          {QUuid::createUuid(), u"v"_s, u"V"_s, u""_s, std::nullopt}};
    {
        const auto preferences = settings();
        EXPECT_EQ(ProjectStore(*preferences).load(), QList<Project>());
        EXPECT_EQ(LanguageConfigurationStore(*preferences).load(), QList<CustomLanguageRule>());
        ProjectStore(*preferences).save(projects);
        LanguageConfigurationStore(*preferences).save(rules);
    }
    const auto preferences = settings();
    EXPECT_EQ(ProjectStore(*preferences).load(), projects);
    EXPECT_EQ(LanguageConfigurationStore(*preferences).load(), rules);
    EXPECT_EQ(stored(projectsKey).typeId(), QMetaType::QByteArray);
    EXPECT_EQ(preferences->allKeys(), QStringList({rulesKey, projectsKey}));
}

TEST_F(StoresTest, readsOldAndForeignValues) {
    const QByteArray good = R"({"id":"7d2f1c54-0D4B-4B8E-9F7A-0123456789AB","name":"n","path":"/p"})";
    const Rows<QVariant, qsizetype> rows{
        {"no kind", QByteArray('[' + good + ']'), 1},
        {"an element without a path",
         QByteArray('[' + good + R"(,{"id":"7D2F1C54-0D4B-4B8E-9F7A-0123456789AC","name":"n"}])"), 0},
        {"an unknown kind",
         QByteArray(R"([{"id":"7D2F1C54-0D4B-4B8E-9F7A-0123456789AB","name":"n","path":"p","kind":"cvs"}])"), 0},
        {"a malformed id", QByteArray(R"([{"id":"7D2F1C54","name":"n","path":"p"}])"), 0},
        {"no JSON", QByteArray("[{"), 0},
        {"a text instead of bytes", QString(u"[]"_s), 0},
    };
    for (const auto &[name, value, wantedProjects] : rows) {
        setStored(projectsKey, value);
        const auto preferences = settings();
        const QList<Project> projects = ProjectStore(*preferences).load();
        EXPECT_EQ(projects.size(), wantedProjects);
        for (const Project &project : projects)
            EXPECT_EQ(project.kind, RepositoryKind::svn);
    }
}

TEST_F(StoresTest, keepsBytesThatDoNotDecodeBeforeTheyAreOverwritten) {
    const QList<Project> first{{QUuid::createUuid(), u"a"_s, u"/a"_s, RepositoryKind::svn}};
    setStored(projectsKey, QByteArray("[{\"lost\":1}]"));
    setStored(rulesKey, QByteArray("{"));
    ProjectStore(*settings()).save(first);
    LanguageConfigurationStore(*settings()).save({});
    EXPECT_EQ(stored(projectsKey + u".unreadable"_s), QByteArray("[{\"lost\":1}]"));
    EXPECT_EQ(stored(rulesKey + u".unreadable"_s), QByteArray("{"));
    ProjectStore(*settings()).save({});
    EXPECT_EQ(ProjectStore(*settings()).load(), QList<Project>());
    EXPECT_EQ(stored(projectsKey + u".unreadable"_s), QByteArray("[{\"lost\":1}]"));
}

TEST_F(StoresTest, aDiskWithoutRoomForAllLeavesTheFileAsItWas) {
    const auto limitFiles = [](rlim_t bytes) {
        struct rlimit limit {};
        ::getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    };
    const auto content = [this] {
        QFile file(directory.filePath(u"preferences.ini"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    std::signal(SIGXFSZ, SIG_IGN);
    const std::unique_ptr<QSettings> preferences = settings();
    for (int key = 0; key < 20; ++key)
        preferences->setValue(u"group/key"_s + QString::number(key), QByteArray(100, '='));
    ASSERT_TRUE(writeToDisk(*preferences));
    const QByteArray before = content();
    for (const rlim_t room : {600, 2000, 40000}) {
        SCOPED_TRACE(room);
        preferences->setValue(u"large"_s, QByteArray(50000, 'x'));
        limitFiles(room);
        const bool isWritten = writeToDisk(*preferences);
        limitFiles(RLIM_INFINITY);
        EXPECT_FALSE(isWritten);
        EXPECT_EQ(content(), before);
    }
    preferences->setValue(u"large"_s, QByteArray(50000, 'x'));
    EXPECT_TRUE(writeToDisk(*preferences));
    EXPECT_GT(content().size(), 50000);
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList{u"preferences.ini"_s});
}

} // namespace
} // namespace kestor
