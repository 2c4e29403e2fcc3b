#pragma once

#include "model/project.h"
#include "support/temp_tree.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace kestor::testing {

/// A real working copy or repository ("wc") in a temporary folder.
class RepositoryFixture {
public:
    virtual ~RepositoryFixture() = default;

    /// The absolute path of `relative` in the working copy.
    QString path(const QString &relative = {}) const;
    void write(const QString &relative, const QByteArray &content = "x\n") {
        tree.write(QStringLiteral("wc/") + relative, content);
    }
    void writeAll(std::initializer_list<WrittenFile> files) {
        for (const WrittenFile &file : files)
            write(file.path, file.content);
    }
    void writeAll(const QStringList &paths, const QByteArray &content) {
        for (const QString &path : paths)
            write(path, content);
    }
    QByteArray read(const QString &relative) const { return tree.read(QStringLiteral("wc/") + relative); }
    /// Runs the tool in the working copy and returns what it printed.
    virtual QByteArray run(const QStringList &arguments) const = 0;
    /// Adds everything and commits it.
    virtual void commitAll(const QString &message = QStringLiteral("change")) const = 0;
    /// The same with these files, which it writes first.
    void commit(std::initializer_list<WrittenFile> files) {
        writeAll(files);
        commitAll();
    }

    /// The same with files of one content.
    void commit(const QStringList &paths, const QByteArray &content) {
        writeAll(paths, content);
        commitAll();
    }

    RepositoryKind kind;
    TempTree tree{};

protected:
    explicit RepositoryFixture(RepositoryKind toolKind) : kind(toolKind) {}
};

/// A real Subversion repository ("repo") with a working copy of its trunk, which is at revision 1.
class SvnFixture : public RepositoryFixture {
public:
    SvnFixture();

    QByteArray run(const QStringList &arguments) const override;
    QByteArray svn(const QStringList &arguments) const { return SvnFixture::run(arguments); }
    void commitAll(const QString &message = QStringLiteral("change")) const override;
    QString url(const QString &relative) const;
};

/// A real Git repository with the branch "main".
class GitFixture : public RepositoryFixture {
public:
    GitFixture();

    QByteArray run(const QStringList &arguments) const override;
    QByteArray git(const QStringList &arguments) const { return GitFixture::run(arguments); }
    void commitAll(const QString &message = QStringLiteral("change")) const override;
};

} // namespace kestor::testing
