#include "model/project_store.h"
#include "support/awaited.h"
#include "support/printers.h"
#include "support/temp_tree.h"

#include <QProcess>
#include <QSettings>

#include <csignal>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::TempTree;
using testing::waitUntil;

/// The program itself, started as often as wanted with the preferences of one temporary home.
class ProgramStart : public ::testing::Test {
protected:
    struct End {
        void operator()(QProcess *program) const {
            program->kill();
            program->waitForFinished();
            delete program;
        }
    };
    using Program = std::unique_ptr<QProcess, End>;

    /// In the folder "work" of the home.
    Program start(const QStringList &words, const QString &preferences = u"config"_s) {
        tree.makeDirectory(u"run"_s);
        QFile::setPermissions(tree.path(u"run"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        tree.makeDirectory(u"work"_s);
        Program program(new QProcess);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, tree.path());
        environment.insert(u"XDG_CONFIG_HOME"_s, tree.path(preferences));
        environment.insert(u"XDG_RUNTIME_DIR"_s, tree.path(u"run"_s));
        program->setProcessEnvironment(environment);
        program->setWorkingDirectory(tree.path(u"work"_s));
        program->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program->start(QStringLiteral(KESTOR_PROGRAM), words);
        EXPECT_TRUE(program->waitForStarted());
        return program;
    }
    /// Until it can be handed something.
    Program startFirst() {
        Program program = start({});
        EXPECT_TRUE(waitUntil([this] { return !tree.entries(u"run"_s).isEmpty(); }));
        return program;
    }
    QString repository(const QString &name) {
        tree.makeDirectory(u"work/"_s + name);
        testing::runTool(u"git"_s, {u"init"_s, u"-q"_s}, tree.path(u"work/"_s + name));
        return name;
    }
    /// Each look reads a copy of its own: QSettings takes the time and size of a file after it has read it, and so may
    /// hold an old text for the newest one for ever.
    bool waitForProjects(QStringList names) {
        names.sort();
        return waitUntil([&] {
            const QString copy = tree.path(u"look %1"_s.arg(++looks));
            QFile::copy(tree.path(u"config/KestorSVN/KestorSVN.conf"_s), copy);
            QSettings settings(copy, QSettings::IniFormat);
            QStringList listed;
            for (const Project &project : ProjectStore(settings).load())
                listed.append(project.name);
            listed.sort();
            return listed == names;
        });
    }
    static bool isRunning(const Program &program) { return program->state() == QProcess::Running; }
    static bool endsWell(const Program &program) {
        return waitUntil([&] { return !isRunning(program); }) && program->exitStatus() == QProcess::NormalExit &&
               program->exitCode() == EXIT_SUCCESS;
    }
    static void signal(const Program &program, int number) { ::kill(static_cast<pid_t>(program->processId()), number); }

    TempTree tree{};
    int looks = 0;
};

TEST_F(ProgramStart, HandsItsFoldersToTheRunningWindow) {
    const Program first = startFirst();
    const QStringList names{u"plain"_s, u"with blank"_s, u"line\nend"_s, u"-style"_s, u"größe"_s};
    QStringList words;
    for (const QString &name : names)
        words.append(repository(name));
    tree.write(u"work/file"_s);
    EXPECT_TRUE(endsWell(start(words + QStringList{u"../work/plain/"_s, u"file"_s, u"gone"_s, QString()})));
    EXPECT_TRUE(waitForProjects(names));
    EXPECT_TRUE(isRunning(first));
}

TEST_F(ProgramStart, HasOneWindowHoweverManyStartAtOnce) {
    QStringList names;
    for (int i = 0; i < 5; ++i)
        names.append(repository(u"project %1"_s.arg(i)));
    std::vector<Program> programs;
    for (const QString &name : std::as_const(names))
        programs.push_back(start({name}));
    EXPECT_TRUE(waitForProjects(names));
    const auto running = [&] {
        return std::ranges::count_if(programs, isRunning);
    };
    EXPECT_TRUE(waitUntil([&] { return running() == 1; })) << running();
}

TEST_F(ProgramStart, IsAnotherProgramWithOtherPreferences) {
    const Program first = startFirst();
    const Program other = start({}, u"other"_s);
    EXPECT_TRUE(waitUntil([this] { return tree.entries(u"run"_s).size() == 2; }));
    EXPECT_TRUE(isRunning(first) && isRunning(other));
}

TEST_F(ProgramStart, WaitsForAWindowThatDoesNotAnswer) {
    struct Row {
        const char *name;
        int signal;  ///< what the silent window gets in the end
        bool second; ///< whether the second one is the window then
    };
    const Row rows[] = {{"goes on", SIGCONT, false}, {"dies and leaves its socket", SIGKILL, true}};
    QStringList names;
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        // The socket of a window that was killed is none of the next one.
        for (const QString &socket : tree.entries(u"run"_s))
            QFile::remove(tree.path(u"run/"_s + socket));
        const Program silent = startFirst();
        signal(silent, SIGSTOP);
        names.append(repository(QString::fromLatin1(row.name)));
        const Program second = start({names.last()});
        EXPECT_FALSE(second->waitForFinished(3000));
        signal(silent, row.signal);
        EXPECT_TRUE(waitForProjects(names));
        EXPECT_EQ(row.second ? isRunning(second) : !endsWell(second), row.second);
        EXPECT_TRUE(endsWell(start({})));
    }
}

} // namespace
} // namespace kestor
