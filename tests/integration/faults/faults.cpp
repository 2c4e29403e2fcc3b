#include "faults.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace kestor::testing {

namespace {

void setToolFault(const char *name) {
    qputenv("FAULT", name);
    qputenv("FAULT_AT", "all");
}

void limitFiles(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN); // a full disk is an error, not a death
    struct rlimit limit {};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

enum class Access { readOnly, full };

void setAccess(const QString &root, Access access) {
    QStringList all(root);
    QDirIterator walk(root, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        all.append(walk.next());
    for (const QString &path : std::as_const(all)) {
        QFile::Permissions permissions = QFile::permissions(path);
        permissions.setFlag(QFile::WriteOwner, access == Access::full);
        permissions.setFlag(QFile::WriteUser, access == Access::full);
        QFile::setPermissions(path, permissions);
    }
}

void breakInterpreter(World &world) {
    for (const QString &name : {u"svn"_s, u"svnadmin"_s, u"git"_s}) {
        world.tools.write(u"bin/"_s + name, "#!/no/such/program\n");
    }
}

} // namespace

const QList<Fault> &allFaults() {
    static const QList<Fault> faults{
        {"the tool is missing", tool, breakInterpreter},
        {"the tool exits 1 silently", tool,
         [](World &) {
             setToolFault("silent");
         }},
        {"the tool is killed", tool,
         [](World &) {
             setToolFault("killed");
         }},
        {"300 kB of errors, then success", 0,
         [](World &) {
             setToolFault("flood");
         }},
        {"300 kB of errors, then failure", tool,
         [](World &) {
             setToolFault("flood-and-fail");
         }},
        {"output in Latin-1", 0,
         [](World &) {
             setToolFault("latin1");
         }},
        {"invalid UTF-8, then failure", tool,
         [](World &) {
             setToolFault("invalid-and-fail");
         }},
        {"the tool is replaced while it runs", 0,
         [](World &) {
             setToolFault("replaced");
         }},
        {"the tool is deleted while it runs", laterRuns,
         [](World &) {
             setToolFault("gone");
         }},
        {"the project folder is removed", folder,
         [](World &world) {
             QDir(world.path(u"wc"_s)).removeRecursively();
         }},
        {"the project folder is moved", folder,
         [](World &world) { QDir().rename(world.path(u"wc"_s), world.path(u"moved"_s)); },
         [](World &world) {
             QDir().rename(world.path(u"moved"_s), world.path(u"wc"_s));
         }},
        {"the project folder is read-only", writableFolder,
         [](World &world) { setAccess(world.path(u"wc"_s), Access::readOnly); },
         [](World &world) {
             setAccess(world.path(u"wc"_s), Access::full);
         }},
        {"the disk is full", disk, [](World &) { limitFiles(16); },
         [](World &) {
             limitFiles(RLIM_INFINITY);
         }},
        {"the preferences are unreadable", preferencesFile | readablePreferences,
         [](World &world) { QFile::setPermissions(world.path(u"preferences/test.conf"_s), {}); },
         [](World &world) {
             QFile::setPermissions(world.path(u"preferences/test.conf"_s), QFile::ReadOwner | QFile::WriteOwner);
         }},
        {"the preferences are read-only", preferencesFile,
         [](World &world) { setAccess(world.path(u"preferences"_s), Access::readOnly); },
         [](World &world) {
             setAccess(world.path(u"preferences"_s), Access::full);
         }},
    };
    return faults;
}

const QList<Fault> &faultsOfOneRun() {
    static const QList<Fault> faults{
        {"exits 1 silently", tool,
         [](World &) {
             setToolFault("silent");
         }},
        {"is killed", tool,
         [](World &) {
             setToolFault("killed");
         }},
    };
    return faults;
}

void strikeAt(int run) {
    qputenv("FAULT_AT", QByteArray::number(run));
}

void healTools() {
    qunsetenv("FAULT");
    qunsetenv("FAULT_AT");
}

} // namespace kestor::testing
