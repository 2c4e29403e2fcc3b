#include "support/repositories.h"

using namespace Qt::StringLiterals;

namespace kestor::testing {

SvnFixture::SvnFixture() {
    runTool(u"svnadmin"_s, {u"create"_s, tree.path(u"repo"_s)}, tree.path());
    const QString url = u"file://"_s + tree.path(u"repo"_s);
    runTool(u"svn"_s, {u"mkdir"_s, u"-m"_s, u"layout"_s, url + u"/trunk"_s, url + u"/branches"_s}, tree.path());
    runTool(u"svn"_s, {u"checkout"_s, url + u"/trunk"_s, tree.path(u"wc"_s)}, tree.path());
}

QString SvnFixture::path(const QString &relative) const {
    return tree.path(relative.isEmpty() ? u"wc"_s : u"wc/"_s + relative);
}

QByteArray SvnFixture::svn(const QStringList &arguments) const {
    return runTool(u"svn"_s, arguments, path());
}

void SvnFixture::commitAll(const QString &message) const {
    svn({u"add"_s, u"--force"_s, u"."_s});
    svn({u"commit"_s, u"-m"_s, message});
    svn({u"update"_s});
}

GitFixture::GitFixture() {
    tree.makeDirectory(u"wc"_s);
    git({u"init"_s, u"-q"_s, u"-b"_s, u"main"_s});
    git({u"config"_s, u"user.name"_s, u"Ada Test"_s});
    git({u"config"_s, u"user.email"_s, u"ada@example.org"_s});
}

QString GitFixture::path(const QString &relative) const {
    return tree.path(relative.isEmpty() ? u"wc"_s : u"wc/"_s + relative);
}

QByteArray GitFixture::git(const QStringList &arguments) const {
    return runTool(u"git"_s, arguments, path());
}

void GitFixture::commitAll(const QString &message) const {
    git({u"add"_s, u"--all"_s});
    git({u"commit"_s, u"-q"_s, u"-m"_s, message});
}

} // namespace kestor::testing
