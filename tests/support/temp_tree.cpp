#include "support/temp_tree.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

namespace kestor::testing {

TempTree::TempTree() : root(QFileInfo(directory.path()).canonicalFilePath()) {}

QString TempTree::path(const QString &relative) const {
    return relative.isEmpty() ? root : root + u'/' + relative;
}

void TempTree::write(const QString &relative, const QByteArray &content) {
    QDir().mkpath(QFileInfo(path(relative)).path());
    QFile file(path(relative));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(relative));
}

void TempTree::writeProgram(const QString &relative, const QByteArray &script) {
    write(relative, "#!/bin/sh\n" + script);
    QFile::setPermissions(path(relative), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void TempTree::makeDirectory(const QString &relative) {
    QDir().mkpath(path(relative));
}

QByteArray TempTree::read(const QString &relative) const {
    QFile file(path(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool TempTree::exists(const QString &relative) const {
    const QFileInfo info(path(relative));
    return info.exists() || info.isSymLink();
}

QStringList TempTree::entries(const QString &relative) const {
    QStringList found;
    const QString base = path(relative);
    QDirIterator walk(base, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString entry = walk.next().mid(base.size() + 1);
        const QStringList pieces = entry.split(u'/');
        if (pieces.contains(QStringLiteral(".svn")) || pieces.contains(QStringLiteral(".git")))
            continue;
        const bool folder = walk.fileInfo().isDir() && !walk.fileInfo().isSymLink();
        found.append(folder ? entry + u'/' : entry);
    }
    found.sort();
    return found;
}

QByteArray runTool(const QString &program, const QStringList &arguments, const QString &directory) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(directory);
    process.start(program, arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        qFatal("%s %s failed: %s", qPrintable(program), qPrintable(arguments.join(u' ')),
               process.readAllStandardError().constData());
    }
    return process.readAllStandardOutput();
}

} // namespace kestor::testing
