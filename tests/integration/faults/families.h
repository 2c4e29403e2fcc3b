#pragma once

#include "faults.h"

#include <QList>

namespace kestor::testing {

/// One operation of the program, for one kind of working copy.
struct Family {
    QString name{};
    RepositoryKind kind = RepositoryKind::svn;
    QString alert{};    ///< the title of its failure
    unsigned needs = 0; ///< what it fails without; it goes on without anything else
    QCoro::Task<> (*start)(Session &session, const World &world) = nullptr;
};

QList<Family> allFamilies();

} // namespace kestor::testing
