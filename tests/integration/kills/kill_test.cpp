#include "controller/app_state.h"
#include "model/language_configuration_store.h"
#include "model/project_store.h"
#include "support/repositories.h"
#include "support/test.h"
#include "tools/temporary_folder.h"

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <unistd.h>

namespace kestor {
namespace {

/// How often each operation is killed: KESTOR_KILLS where it is set.
int killsOfEach() {
    const int wanted = qEnvironmentVariableIntValue("KESTOR_KILLS");
    return wanted > 0 ? wanted : 20;
}

class Kills : public ::testing::TestWithParam<std::tuple<std::string, std::string>> {
protected:
    void SetUp() override {
        TempTree &tree = root();
        for (const QString &folder : {u"home/data"_s, u"tmp"_s, u"out"_s, u"preferences"_s})
            tree.makeDirectory(folder);
        for (int i = 0; i < 40; ++i)
            tree.write(u"wc/folder/file%1.txt"_s.arg(i), QByteArray(20000, 'x'));
        tree.write(u"wc/kept.txt"_s);
        svn ? svn->commitAll(u"first"_s) : git->commitAll(u"first"_s);
    }

    TempTree &root() { return svn ? svn->tree : git->tree; }
    bool exists(const QString &path) { return root().exists(path); }
    void killOnce(quint32 seed);
    void expectSoundState();
    void expectWholeZip();

    const QString operation = QString::fromStdString(std::get<0>(GetParam()));
    const QString kind = QString::fromStdString(std::get<1>(GetParam()));
    std::unique_ptr<SvnFixture> svn = kind == u"svn" ? std::make_unique<SvnFixture>() : nullptr;
    std::unique_ptr<GitFixture> git = kind == u"git" ? std::make_unique<GitFixture>() : nullptr;
    qsizetype rules = 0;
};

void Kills::killOnce(quint32 seed) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    QProcess victim;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, root().path(u"home"_s));
    environment.insert(u"XDG_DATA_HOME"_s, root().path(u"home/data"_s));
    environment.insert(u"TMPDIR"_s, root().path(u"tmp"_s));
    victim.setProcessEnvironment(environment);
    victim.start(QStringLiteral(KILL_VICTIM), {operation, kind, root().path()});
    ::close(ends[1]);
    while (victim.waitForReadyRead(60000) && !victim.readAllStandardOutput().contains("ready")) {
    }
    QThread::usleep(QRandomGenerator(seed).bounded(300000));
    ASSERT_EQ(victim.state(), QProcess::Running) << victim.readAllStandardError().toStdString();
    victim.kill();
    victim.waitForFinished();
    // The victim's tools go on for themselves; the last one closes the pipe that all of them have.
    char byte = 0;
    while (::read(ends[0], &byte, 1) > 0) {
    }
    ::close(ends[0]);
}

void Kills::expectWholeZip() {
    const QString path = root().path(u"out/a.zip"_s);
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden;
    EXPECT_LE(QDir(root().path(u"out"_s)).entryList({u".KestorSVN-*"_s}, all).size(), 1) << "of the last kill alone";
    if (!exists(u"out/a.zip"_s))
        return;
    const std::unique_ptr<struct archive, decltype(&archive_read_free)> zip(archive_read_new(), archive_read_free);
    archive_read_support_format_zip(zip.get());
    ASSERT_EQ(archive_read_open_filename(zip.get(), QFile::encodeName(path).constData(), 65536), ARCHIVE_OK);
    int files = 0;
    archive_entry *entry = nullptr;
    while (archive_read_next_header(zip.get(), &entry) == ARCHIVE_OK) {
        EXPECT_EQ(archive_read_data_skip(zip.get()), ARCHIVE_OK);
        files += archive_entry_filetype(entry) == AE_IFREG ? 1 : 0;
    }
    EXPECT_EQ(files, 41);
}

void Kills::expectSoundState() {
    QSettings settings(root().path(u"preferences/test.conf"_s), QSettings::IniFormat);
    EXPECT_EQ(settings.status(), QSettings::NoError);
    EXPECT_FALSE(ProjectStore(settings).load().isEmpty());
    const qsizetype loaded = LanguageConfigurationStore(settings).load().size();
    EXPECT_GE(loaded, rules);
    rules = loaded;
    expectWholeZip();
    if (svn)
        svn->svn({u"cleanup"_s});
    // Fails the test program when the working copy cannot be read.
    svn ? svn->svn({u"status"_s}) : git->git({u"status"_s});
    // The trash numbers a file whose way there was cut short before.
    const QStringList trash = root().entries(u"home/data/Trash/files"_s);
    for (const QString &file : QString::fromUtf8(root().read(u"made"_s)).split(u'\n')) {
        const bool inTrash = std::ranges::any_of(trash, [&](const QString &entry) { return entry.startsWith(file); });
        EXPECT_TRUE(inTrash || exists(u"wc/"_s + file)) << file.toStdString();
    }
    EXPECT_TRUE(exists(u"wc/folder/file39.txt"_s));
    // As the next start does.
    removeAbandonedFolders(root().path(u"tmp"_s));
    EXPECT_EQ(root().entries(u"tmp"_s), QStringList());
}

TEST_P(Kills, LeaveEverythingWholeForTheNextStart) {
    for (int kill = 0; kill < killsOfEach() && !HasFailure(); ++kill) {
        const quint32 seed = QRandomGenerator::global()->generate();
        SCOPED_TRACE("seed " + std::to_string(seed));
        killOnce(seed);
        expectSoundState();
    }
}

const std::string operations[] = {"commit", "revert", "delete", "archive", "preferences"};
const std::string kinds[] = {"svn", "git"};
INSTANTIATE_TEST_SUITE_P(Operations, Kills,
                         ::testing::Combine(::testing::ValuesIn(operations), ::testing::ValuesIn(kinds)),
                         [](const auto &row) { return std::get<0>(row.param) + std::get<1>(row.param); });

} // namespace
} // namespace kestor
