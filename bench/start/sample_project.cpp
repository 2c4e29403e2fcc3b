#include "sample_project.h"

#include "history_streams.h"
#include "model/project_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr int versionedPerFolder = 100;
constexpr int unversionedPerFolder = 1000;
constexpr int modifiedEvery = 10;

void writeFile(const QString &path, const QByteArray &content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

void run(const QString &program, const QStringList &arguments, const QString &directory,
         const QString &input = QProcess::nullDevice()) {
    QProcess process;
    process.setWorkingDirectory(directory);
    process.setStandardInputFile(input);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program + u' ' + arguments.join(u' ')), process.readAllStandardError().constData());
}

QString versionedFile(const QString &root, int number) {
    return u"%1/src/module%2/source_file_%3.cpp"_s.arg(root).arg(number / versionedPerFolder).arg(number);
}

void writeVersionedFiles(const QString &root, int files) {
    for (int i = 0; i < files; ++i) {
        if (i % versionedPerFolder == 0)
            QDir().mkpath(QFileInfo(versionedFile(root, i)).path());
        writeFile(versionedFile(root, i), "int value() {\n    return " + QByteArray::number(i) + ";\n}\n");
    }
}

void changeFiles(const QString &root, int files) {
    for (int i = 0; i < files; i += modifiedEvery)
        writeFile(versionedFile(root, i), "int value() {\n    return -" + QByteArray::number(i) + "; // changed\n}\n");
    for (int i = 0; i < files; ++i) {
        const QString folder = u"%1/output%2"_s.arg(root).arg(i / unversionedPerFolder);
        if (i % unversionedPerFolder == 0)
            QDir().mkpath(folder);
        writeFile(u"%1/result_%2.dat"_s.arg(folder).arg(i), "result\n");
    }
}

void makeGitRepository(const QString &root, int files) {
    writeVersionedFiles(root, files);
    run(u"git"_s, {u"init"_s, u"-q"_s}, root);
    run(u"git"_s, {u"add"_s, u"-A"_s}, root);
    run(u"git"_s,
        {u"-c"_s, u"user.name=bench"_s, u"-c"_s, u"user.email=bench@example.com"_s, u"commit"_s, u"-qm"_s, u"all"_s},
        root);
    changeFiles(root, files);
    // Leaves an index whose file times are known, as any earlier status run would.
    run(u"git"_s, {u"status"_s}, root);
}

void makeSubversionCopy(const QString &root, const QString &server, int files) {
    const QString imported = server + u".import"_s;
    const QString url = u"file://"_s + server;
    writeVersionedFiles(imported, files);
    run(u"svnadmin"_s, {u"create"_s, server}, u"/"_s);
    run(u"svn"_s, {u"import"_s, u"-qm"_s, u"all"_s, imported, url}, u"/"_s);
    // A lock for all of it instead of one for each file saves a quarter of the time.
    run(u"svn"_s,
        {u"checkout"_s, u"-q"_s, u"--config-option"_s, u"config:working-copy:exclusive-locking=true"_s, url, root},
        u"/"_s);
    QDir(imported).removeRecursively();
    changeFiles(root, files);
}

void makeGitHistory(const QString &root, int revisions) {
    const QString stream = root + u".stream"_s;
    writeFile(stream, gitHistory(revisions));
    run(u"git"_s, {u"init"_s, u"-q"_s, u"-b"_s, u"main"_s}, root);
    run(u"git"_s, {u"fast-import"_s, u"--quiet"_s}, root, stream);
    run(u"git"_s, {u"reset"_s, u"-q"_s, u"--hard"_s}, root);
    QFile::remove(stream);
}

void makeSubversionHistory(const QString &root, const QString &server, int revisions) {
    const QString stream = root + u".stream"_s;
    writeFile(stream, svnHistory(revisions));
    run(u"svnadmin"_s, {u"create"_s, server}, u"/"_s);
    // Looking for equal contents takes longer than all else.
    writeFile(server + u"/db/fsfs.conf"_s, "[rep-sharing]\nenable-rep-sharing = false\n");
    run(u"svnadmin"_s, {u"load"_s, u"-q"_s, u"--no-flush-to-disk"_s, server}, u"/"_s, stream);
    run(u"svn"_s, {u"checkout"_s, u"-q"_s, u"--depth"_s, u"empty"_s, u"file://"_s + server, root}, u"/"_s);
    QFile::remove(stream);
}

/// The project of that name, filled by `fill` (its root, a place for a server) when it is new.
template <typename Fill>
SampleProject namedProject(const QString &name, RepositoryKind kind, Fill fill) {
    const QString folder = QCoreApplication::applicationDirPath() + u"/projects/"_s + name;
    const SampleProject made{folder + u'/' + name, folder + u"/config"_s};
    const QString preferences = made.configHome + u"/KestorSVN/KestorSVN.conf"_s;
    if (QFile::exists(preferences))
        return made;
    QDir(folder).removeRecursively();
    QDir().mkpath(made.path);
    fill(made.path, folder + u"/server"_s);
    QSettings settings(preferences, QSettings::IniFormat);
    ProjectStore(settings).save({Project{QUuid::createUuid(), name, made.path, kind}});
    return made;
}

} // namespace

SampleProject sampleProject(RepositoryKind kind, int files) {
    const auto fill = [kind, files](const QString &root, const QString &server) {
        if (kind == RepositoryKind::git)
            makeGitRepository(root, files);
        else
            makeSubversionCopy(root, server, files);
    };
    return namedProject(u"%1-%2"_s.arg(rawValue(kind)).arg(files), kind, fill);
}

SampleProject sampleHistory(RepositoryKind kind, int revisions) {
    const auto fill = [kind, revisions](const QString &root, const QString &server) {
        if (kind == RepositoryKind::git)
            makeGitHistory(root, revisions);
        else
            makeSubversionHistory(root, server, revisions);
    };
    return namedProject(u"%1-history-%2"_s.arg(rawValue(kind)).arg(revisions), kind, fill);
}

} // namespace kestor
