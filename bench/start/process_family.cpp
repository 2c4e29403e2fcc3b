#include "process_family.h"

#include <QDir>
#include <QFile>
#include <QHash>

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QByteArray contents(pid_t process, const char *name) {
    QFile file(u"/proc/%1/%2"_s.arg(process).arg(QLatin1StringView(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The fields of /proc/PID/stat that follow the name: state, parent and so on; none for a process that is gone.
QList<QByteArray> statFields(pid_t process) {
    const QByteArray stat = contents(process, "stat");
    const qsizetype name = stat.lastIndexOf(')');
    return name < 0 ? QList<QByteArray>() : stat.mid(name + 2).split(' ');
}

} // namespace

void adoptOrphans() {
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
}

QList<pid_t> startedProcesses() {
    QHash<pid_t, QList<pid_t>> children;
    for (const QString &name : QDir(u"/proc"_s).entryList({u"[1-9]*"_s}, QDir::Dirs)) {
        const pid_t process = name.toInt();
        const QList<QByteArray> fields = statFields(process);
        if (fields.size() > 1 && fields[0] != "Z")
            children[fields[1].toInt()].append(process);
    }
    QList<pid_t> found = children.value(::getpid());
    for (qsizetype i = 0; i < found.size(); ++i)
        found += children.value(found[i]);
    return found;
}

double processorSeconds(const QList<pid_t> &processes) {
    double ticks = 0;
    for (const pid_t process : processes) {
        const QList<QByteArray> fields = statFields(process);
        for (qsizetype own = 11; own < 15 && fields.size() > own; ++own) // with its ended children
            ticks += fields[own].toDouble();
    }
    return ticks / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

bool anyIsBusy(const QList<pid_t> &processes) {
    return std::any_of(processes.begin(), processes.end(), [](pid_t process) {
        const QList<QByteArray> fields = statFields(process);
        return !fields.isEmpty() && (fields[0] == "R" || fields[0] == "D");
    });
}

double sharedMegabytes(const QList<pid_t> &processes) {
    double kibibytes = 0;
    for (const pid_t process : processes) {
        for (const QByteArray &line : contents(process, "smaps_rollup").split('\n')) {
            if (line.startsWith("Pss:"))
                kibibytes += line.mid(4).trimmed().chopped(3).toDouble();
        }
    }
    return kibibytes * 1024 / 1e6;
}

void endStartedProcesses() {
    for (QList<pid_t> left = startedProcesses(); !left.isEmpty(); left = startedProcesses()) {
        for (const pid_t process : left)
            ::kill(process, SIGKILL);
        ::usleep(10'000);
    }
    while (::waitpid(-1, nullptr, WNOHANG) > 0)
        continue;
}

} // namespace kestor
