#pragma once

#include "faults.h"

#include <QList>

#include <ostream>

namespace kestor::testing {

/// One operation of the program, for one kind of working copy.
struct Family {
    QString name{};
    RepositoryKind kind = RepositoryKind::svn;
    QString alert{};    ///< the title of its failure, as an expression
    unsigned needs = 0; ///< what it fails without; it goes on without anything else
    QCoro::Task<> (*start)(Session &session) = nullptr;
    const char *preparation = "";                     ///< as World takes it
    bool (*isShown)(const AppState &state) = nullptr; ///< what the user waits for, where no alert tells a failure

    /// Keeps addresses out of the names of tests.
    friend void PrintTo(const Family &family, std::ostream *out) { *out << family.name.toStdString(); }
};

QList<Family> allFamilies();

} // namespace kestor::testing
