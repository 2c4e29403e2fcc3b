#include "sample_project.h"

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

void run(const QString &program, const QStringList &arguments, const QString &directory) {
    QProcess process;
    process.setWorkingDirectory(directory);
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

} // namespace

SampleProject sampleProject(RepositoryKind kind, int files) {
    const QString name = u"%1-%2"_s.arg(rawValue(kind)).arg(files);
    const QString folder = QCoreApplication::applicationDirPath() + u"/projects/"_s + name;
    const SampleProject made{folder + u'/' + name, folder + u"/config"_s};
    const QString preferences = made.configHome + u"/KestorSVN/KestorSVN.conf"_s;
    if (QFile::exists(preferences))
        return made;
    QDir(folder).removeRecursively();
    QDir().mkpath(made.path);
    if (kind == RepositoryKind::git)
        makeGitRepository(made.path, files);
    else
        makeSubversionCopy(made.path, folder + u"/server"_s, files);
    QSettings settings(preferences, QSettings::IniFormat);
    ProjectStore(settings).save({Project{QUuid::createUuid(), name, made.path, kind}});
    return made;
}

} // namespace kestor
