#include "fuzz/input_text.h"
#include "fuzz/property.h"
#include "fuzz/standard_order.h"
#include "parsers/git_parsers.h"

#include <QStringList>

namespace kestor::fuzz {

namespace {

/// One list for each rank: the current branch, then local ones, then remote ones.
QList<GitBranch> plainBranches(const QString &text) {
    QList<QList<GitBranch>> ranks(4);
    const QStringList lines = text.split(u'\n');
    for (const QString &line : lines) {
        const QStringList pieces = line.split(u'\t');
        if (pieces.size() < 3 || pieces[1].endsWith(QStringLiteral("/HEAD")))
            continue;
        const GitBranch branch{pieces[2], pieces[0] == u"*", pieces[1].startsWith(QStringLiteral("refs/remotes"))};
        ranks[(branch.isCurrent ? 0 : 2) + (branch.isRemote ? 1 : 0)].append(branch);
    }
    QList<GitBranch> branches;
    for (QList<GitBranch> &rank : ranks) {
        sortByCollator(rank, &GitBranch::name);
        branches += rank;
    }
    return branches;
}

QString printed(const QList<GitBranch> &branches) {
    QString text;
    for (const GitBranch &branch : branches) {
        const QString reference = branch.isRemote ? QStringLiteral("refs/remotes/x") : QStringLiteral("refs/heads/x");
        text += (branch.isCurrent ? u'*' : u' ') + (u'\t' + reference) + u'\t' + branch.name + u'\n';
    }
    return text;
}

} // namespace

void check(QByteArrayView input) {
    const QString text = exactText(input);
    const QList<GitBranch> branches = GitParsers::parseBranches(text);
    require(branches == plainBranches(text), "the branches are those of the plain rules");
    require(GitParsers::parseBranches(printed(branches)) == branches, "printing loses nothing");
}

} // namespace kestor::fuzz
