#include "support/awaited.h"
#include "support/temp_tree.h"
#include "support/test.h"
#include "tools/arguments.h"
#include "tools/child_process.h"

#include <QElapsedTimer>

#include <csignal>
#include <unistd.h>
#include <vector>

namespace kestor {
namespace {

ChildCommand shell(const QString &script) {
    return {.executable = u"/bin/sh"_s,
            .displayName = u"the shell"_s,
            .arguments = args("-c", script),
            .environment = QProcessEnvironment::systemEnvironment()};
}

SVNCommandResult runShell(const QString &script) {
    ChildProcesses children;
    const ChildCommand command = shell(script);
    return awaited(children.run(command, CheckStatus::no));
}

QString failureOf(const ChildCommand &command, CheckStatus check = CheckStatus::yes) {
    ChildProcesses children;
    try {
        awaited(children.run(command, check));
    } catch (const SVNClientError &error) {
        return error.errorDescription();
    }
    return u"(none)"_s;
}

TEST(ChildProcess, StatusOfEndsOtherThanExit) {
    const Rows<QString, int> rows{{"killed", u"kill -KILL $$"_s, 128 + SIGKILL},
                                  {"terminated after output", u"echo x; kill -TERM $$"_s, 128 + SIGTERM},
                                  {"plain end", u"true"_s, 0},
                                  {"highest exit status", u"exit 255"_s, 255}};
    for (const auto &[name, wantedScript, status] : rows)
        EXPECT_EQ(runShell(wantedScript).status, status);
}

TEST(ChildProcess, FloodOfErrorsDoesNotStallWhileOutputIsOpen) {
    const SVNCommandResult result = runShell(u"head -c 300000 /dev/zero >&2; head -c 20000000 /dev/zero; echo end"_s);
    EXPECT_EQ(result.stderrData.size(), 300000);
    EXPECT_EQ(result.stdoutData.size(), 20000004);
    EXPECT_TRUE(result.stdoutData.endsWith("end\n"));
}

TEST(ChildProcess, LaunchFailuresSayWhy) {
    TempTree tree;
    tree.makeDirectory(u"folder"_s);
    tree.writeAll({{u"plain"_s}, {u"no-program"_s, "\177ELF garbage"}});
    QFile::setPermissions(tree.path(u"no-program"_s), QFile::ReadOwner | QFile::ExeOwner);
    const Rows<QString, QString, QString> rows{
        {"missing", tree.path(u"none"_s), {}, u"The file does not exist."_s},
        {"bare name that PATH has", u"sh"_s, {}, u"The file does not exist."_s},
        {"folder", tree.path(u"folder"_s), {}, u"It is a folder, not a program."_s},
        {"not executable", tree.path(u"plain"_s), {}, u"The file is not executable."_s},
        {"garbage", tree.path(u"no-program"_s), {}, u"Exec format error"_s},
        {"vanished directory", u"/bin/sh"_s, tree.path(u"gone"_s),
         u"The folder %1 does not exist."_s.arg(tree.path(u"gone"_s))},
        {"directory is a file", u"/bin/sh"_s, tree.path(u"plain"_s),
         u"%1 is not a folder."_s.arg(tree.path(u"plain"_s))},
    };
    for (const auto &[name, executable, directory, reason] : rows) {
        const ChildCommand command{.executable = executable, .displayName = u"X"_s, .directory = directory};
        EXPECT_EQ(failureOf(command, CheckStatus::no), u"Could not launch X: "_s + reason);
    }
}

TEST(ChildProcess, HasASessionOfItsOwnAndTheInheritedInput) {
    const QString script = u"ps -o sid= -p $$ | tr -d ' '; echo $$; readlink /proc/$$/fd/0"_s;
    const QStringList lines = runShell(script).stdoutText().split(u'\n');
    ASSERT_GE(lines.size(), 3);
    EXPECT_EQ(lines[0], lines[1]);
    EXPECT_EQ(lines[2], QFile::symLinkTarget(u"/proc/self/fd/0"_s));
}

TEST(ChildProcess, OverlappingChildrenRunAtTheSameTime) {
    constexpr int count = 30;
    TempTree tree;
    // Each child waits for all others to have started, so the test ends only if none waits for another's end.
    const QString script = u"touch $$; until [ $(ls | wc -l) -ge %1 ]; do sleep 0.05; done; echo $$"_s.arg(count);
    ChildCommand command = shell(script);
    command.directory = tree.path();
    ChildProcesses children;
    std::vector<QCoro::Task<SVNCommandResult>> tasks;
    tasks.reserve(count);
    for (int i = 0; i < count; ++i)
        tasks.push_back(children.run(command, CheckStatus::yes));
    QStringList ids;
    for (QCoro::Task<SVNCommandResult> &task : tasks)
        ids.append(awaited(std::move(task)).stdoutText().trimmed());
    ids.sort();
    EXPECT_EQ(ids, tree.entries());
}

/// A workflow as its owner sees it: what it got from its run.
QCoro::Task<> noteFailure(ChildProcesses *children, QString script, QStringList *failures) {
    const ChildCommand command = shell(script);
    try {
        co_await children->run(command, CheckStatus::no);
    } catch (const SVNClientError &error) {
        failures->append(error.errorDescription());
    }
}

bool hasEnded(pid_t process) {
    const QByteArray state = runShell(u"ps -o stat= -p %1"_s.arg(process)).stdoutData;
    return state.isEmpty() || state.startsWith('Z');
}

TEST(ChildProcess, StopEndsTheWaitBeforeItReturnsAndLetsChildrenCleanUp) {
    TempTree tree;
    QStringList failures;
    ChildProcesses children;
    tree.write(u"child"_s, "trap 'touch cleaned; exit' TERM; sh nested & wait");
    tree.write(u"nested"_s, "echo $$ > id; exec sleep 60");
    noteFailure(&children, u"cd %1; . ./child"_s.arg(tree.path()), &failures);
    ASSERT_TRUE(waitUntil([&] { return tree.read(u"id"_s).endsWith('\n'); }));
    noteFailure(&children, u"exit 0"_s, &failures);

    children.stop();
    noteFailure(&children, u"exit 0"_s, &failures);
    const QString stopped = u"the shell was stopped: The application is closing."_s;
    EXPECT_EQ(failures, args(stopped, stopped, "Could not launch the shell: The application is closing."));
    EXPECT_TRUE(waitUntil([&] { return tree.exists(u"cleaned"_s); }));
    EXPECT_TRUE(waitUntil([&] { return hasEnded(tree.read(u"id"_s).trimmed().toInt()); }));
}

TEST(ChildProcess, StopAlsoEndsChildrenThatDoNotListenAllAtTheSameTime) {
    TempTree tree;
    QStringList failures;
    ChildProcesses children;
    const QStringList names = u"1|2|3"_list;
    for (const QString &name : names) {
        noteFailure(&children, u"trap '' TERM; cd %1; echo $$ > %2; sleep 60"_s.arg(tree.path(), name), &failures);
        ASSERT_TRUE(waitUntil([&] { return tree.read(name).endsWith('\n'); }));
    }
    QElapsedTimer timer;
    timer.start();
    children.stop();
    EXPECT_LT(timer.elapsed(), 1900) << "one second for all, not for each";
    for (const QString &name : names)
        EXPECT_TRUE(waitUntil([&] { return hasEnded(tree.read(name).trimmed().toInt()); }));
}

TEST(ChildProcess, TheFirstRunTakesWhatWasBegunForIt) {
    const Rows<QString, int, QByteArray> rows{
        {"a plain end", u"pwd; echo ONE=$ONE"_s, 0, "\nONE=1\n"},
        {"a flood that nobody reads", u"head -c 20000000 /dev/zero; echo end"_s, 0, "\0end\n"},
        {"errors and a failure", u"echo x >&2; exit 3"_s, 3, ""},
        {"a signal", u"kill -KILL $$"_s, 128 + SIGKILL, ""},
    };
    for (const auto &[name, script, status, end] : rows) {
        TempTree tree;
        ChildCommand command = shell(u"echo >> runs; "_s + script);
        command.directory = tree.path();
        command.environment.insert(u"ONE"_s, u"1"_s);
        ChildProcesses children;
        children.begin(command);
        command.environment.remove(u"ONE"_s);
        const SVNCommandResult early = awaited(children.run(command, CheckStatus::no));
        EXPECT_EQ(early.status, status);
        EXPECT_TRUE(early.stdoutData.endsWith(end));
        EXPECT_EQ(early.stderrData, status == 3 ? "x\n" : "");
        EXPECT_EQ(tree.read(u"runs"_s), "\n");
        const SVNCommandResult again = awaited(children.run(command, CheckStatus::no));
        EXPECT_EQ(again.commandLine, early.commandLine);
        EXPECT_EQ(tree.read(u"runs"_s), "\n\n");
    }
}

TEST(ChildProcess, WhatWasBegunEndsWithAnotherRunAndWithItsOwner) {
    TempTree tree;
    const ChildCommand begun = shell(u"cd %1; echo $$ > id; exec sleep 60"_s.arg(tree.path()));
    const auto begin = [&](ChildProcesses &children) {
        QFile::remove(tree.path(u"id"_s));
        children.begin(begun);
        ASSERT_TRUE(waitUntil([&] { return tree.read(u"id"_s).endsWith('\n'); }));
    };
    const auto isGone = [&] {
        return hasEnded(tree.read(u"id"_s).trimmed().toInt());
    };
    ChildProcesses children;
    begin(children);
    const ChildCommand other = shell(u"echo other"_s);
    EXPECT_EQ(awaited(children.run(other, CheckStatus::yes)).stdoutData, "other\n");
    EXPECT_TRUE(waitUntil(isGone));
    begin(children);
    QStringList failures;
    noteFailure(&children, begun.arguments.last(), &failures);
    children.stop();
    EXPECT_EQ(failures, args("the shell was stopped: The application is closing."));
    EXPECT_TRUE(waitUntil(isGone));
    {
        ChildProcesses forgotten;
        begin(forgotten);
    }
    EXPECT_TRUE(waitUntil(isGone));
}

} // namespace
} // namespace kestor
