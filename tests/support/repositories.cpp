#include "support/repositories.h"

#include "support/lists.h"

using namespace Qt::StringLiterals;

namespace kestor::testing {

QString RepositoryFixture::path(const QString &relative) const {
    return tree.path(relative.isEmpty() ? u"wc"_s : u"wc/"_s + relative);
}

SvnFixture::SvnFixture() : RepositoryFixture(RepositoryKind::svn) {
    runTool(u"svnadmin"_s, u"create|repo"_list, tree.path());
    runTool(u"svn"_s, {u"mkdir"_s, u"-m"_s, u"layout"_s, url(u"trunk"_s), url(u"branches"_s)}, tree.path());
    runTool(u"svn"_s, {u"checkout"_s, url(u"trunk"_s), tree.path(u"wc"_s)}, tree.path());
}

QByteArray SvnFixture::run(const QStringList &arguments) const {
    return runTool(u"svn"_s, arguments, path());
}

void SvnFixture::commitAll(const QString &message) const {
    svn(u"add|--force|."_list);
    svn({u"commit"_s, u"-m"_s, message});
    svn(u"update"_list);
}

QString SvnFixture::url(const QString &relative) const {
    return u"file://"_s + tree.path(u"repo/"_s + relative);
}

GitFixture::GitFixture() : RepositoryFixture(RepositoryKind::git) {
    tree.makeDirectory(u"wc"_s);
    git(u"init|-q|-b|main"_list);
    git(u"config|user.name|Ada Test"_list);
    git(u"config|user.email|ada@example.org"_list);
}

QByteArray GitFixture::run(const QStringList &arguments) const {
    return runTool(u"git"_s, arguments, path());
}

void GitFixture::commitAll(const QString &message) const {
    git(u"add|--all"_list);
    git({u"commit"_s, u"-q"_s, u"-m"_s, message});
}

} // namespace kestor::testing
