#pragma once

#include "support/temp_tree.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace kestor::testing {

/// A real Subversion repository ("repo") with a working copy ("wc") of its trunk in one temporary folder.
class SvnFixture {
public:
    SvnFixture();

    /// The absolute path of `relative` in the working copy.
    QString path(const QString &relative = {}) const;
    void write(const QString &relative, const QByteArray &content = "x\n") {
        tree.write(QStringLiteral("wc/") + relative, content);
    }
    void writeAll(std::initializer_list<WrittenFile> files) {
        for (const WrittenFile &file : files)
            write(file.path, file.content);
    }
    /// Runs svn in the working copy and returns what it printed.
    QByteArray svn(const QStringList &arguments) const;
    /// Adds everything and commits it.
    void commitAll(const QString &message) const;

    TempTree tree{};
};

/// A real Git repository ("wc") with the branch "main" in a temporary folder.
class GitFixture {
public:
    GitFixture();

    QString path(const QString &relative = {}) const;
    void write(const QString &relative, const QByteArray &content = "x\n") {
        tree.write(QStringLiteral("wc/") + relative, content);
    }
    void writeAll(std::initializer_list<WrittenFile> files) {
        for (const WrittenFile &file : files)
            write(file.path, file.content);
    }
    QByteArray git(const QStringList &arguments) const;
    void commitAll(const QString &message) const;

    TempTree tree{};
};

} // namespace kestor::testing
