#include "ui/frame/header_text.h"

namespace kestor {

namespace {

constexpr int shortestPath = 48;

} // namespace

QString branchText(RepositoryKind kind, const RepositoryInfo &info) {
    switch (kind) {
    case RepositoryKind::svn:
        return info.relativeURL ? *info.relativeURL : info.url.value_or(QString());
    case RepositoryKind::git:
        return info.workingRevision.value_or(QString());
    }
    return {};
}

HeaderWidths headerWidths(int available, const HeaderWidths &wanted) {
    const int forPath = qMin(wanted.path, available - wanted.branch);
    const int path = forPath < qMin(wanted.path, shortestPath) ? 0 : forPath;
    return {qBound(0, available - path, wanted.branch), path};
}

} // namespace kestor
