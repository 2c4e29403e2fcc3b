#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace kestor::testing {

struct WrittenFile {
    QString path;
    QByteArray content = "x\n";
};

/// A temporary folder with files, removed at the end.
class TempTree {
public:
    TempTree();

    /// The absolute, canonical path of `relative` below the folder; of the folder itself for "".
    QString path(const QString &relative = {}) const;
    /// Writes a file and the folders on the way to it.
    void write(const QString &relative, const QByteArray &content = "x\n");
    void writeAll(std::initializer_list<WrittenFile> files) {
        for (const WrittenFile &file : files)
            write(file.path, file.content);
    }
    /// Writes a shell script that can be run.
    void writeProgram(const QString &relative, const QByteArray &script);
    void makeDirectory(const QString &relative);
    QByteArray read(const QString &relative) const;
    bool exists(const QString &relative) const;
    /// Every file, folder ("/" at the end) and link below `relative`, sorted, metadata folders left out.
    QStringList entries(const QString &relative = {}) const;

private:
    QTemporaryDir directory;
    QString root;
};

/// Runs a real tool to its end in `directory` with "C.UTF-8" messages and returns its standard output; aborts the test
/// program when it fails.
QByteArray runTool(const QString &program, const QStringList &arguments, const QString &directory);

} // namespace kestor::testing
