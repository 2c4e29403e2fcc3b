#pragma once

#include "faults.h"

#include <QList>

namespace kestor::testing {

/// One operation of the program, for one kind of working copy.
struct Family {
    QString name{};
    RepositoryKind kind = RepositoryKind::svn;
    QString alert{};    ///< the title of its failure, as an expression
    unsigned needs = 0; ///< what it fails without; it goes on without anything else
    QCoro::Task<> (*start)(Session &session, const World &world) = nullptr;
};

/// With KESTOR_ALL_FAULTS set all of them, else those that are run most.
QList<Family> allFamilies();

} // namespace kestor::testing
