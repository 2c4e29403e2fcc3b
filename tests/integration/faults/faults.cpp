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
    for (const QString &name : {u"svn"_s, u"svnadmin"_s, u"git"_s})
        world.tools.write(u"bin/"_s + name, "#!/no/such/program\n");
}

void moveProject(const World &world, const QString &from, const QString &to) {
    QDir().rename(world.path(from), world.path(to));
}

void setPreferencesAccess(const World &world, QFile::Permissions permissions) {
    QFile::setPermissions(world.path(u"preferences/test.conf"_s), permissions);
}

constexpr rlim_t fullDisk = 16; ///< bytes, of any file

} // namespace

const QList<Fault> &allFaults() {
    static const QList<Fault> faults{
        {"the tool is missing", breakInterpreter, nullptr, tool},
        {"the tool exits 1 silently", [](World &) { setToolFault("silent"); }, nullptr, tool},
        {"the tool is killed", [](World &) { setToolFault("killed"); }, nullptr, tool},
        {"300 kB of errors, no UTF-8, then failure", [](World &) { setToolFault("noisy"); }, nullptr, tool},
        {"300 kB of errors, output in Latin-1, replaced while it runs, then success",
         [](World &) { setToolFault("odd"); }, nullptr, 0},
        {"the tool is deleted while it runs", [](World &) { setToolFault("gone"); }, nullptr, laterRuns},
        {"the project folder is removed", [](World &w) { QDir(w.path(u"wc"_s)).removeRecursively(); }, nullptr, folder},
        {"the project folder is moved", [](World &w) { moveProject(w, u"wc"_s, u"moved"_s); },
         [](World &w) { moveProject(w, u"moved"_s, u"wc"_s); }, folder},
        {"the project folder is read-only", [](World &w) { setAccess(w.path(u"wc"_s), Access::readOnly); },
         [](World &w) { setAccess(w.path(u"wc"_s), Access::full); }, writableFolder},
        {"the disk is full", [](World &) { limitFiles(fullDisk); }, [](World &) { limitFiles(RLIM_INFINITY); }, disk},
        {"the preferences are unreadable", [](World &w) { setPreferencesAccess(w, {}); },
         [](World &w) { setPreferencesAccess(w, QFile::ReadOwner | QFile::WriteOwner); },
         preferencesFile | readablePreferences},
        {"the preferences are read-only", [](World &w) { setAccess(w.path(u"preferences"_s), Access::readOnly); },
         [](World &w) { setAccess(w.path(u"preferences"_s), Access::full); }, preferencesFile},
    };
    return faults;
}

void failInRun(int run) {
    qputenv("FAULT", "silent");
    qputenv("FAULT_AT", QByteArray::number(run));
}

void healTools() {
    qunsetenv("FAULT");
    qunsetenv("FAULT_AT");
}

} // namespace kestor::testing
