#pragma once

#include "support/environment_variable.h"
#include "support/temp_tree.h"

#include <QDir>
#include <QFile>
#include <QStringList>

namespace kestor::testing {

/// A trash of its own as long as it lives.
class TrashFixture {
public:
    /// Puts a file where the trash would be.
    void block() { tree.write(QStringLiteral("data")); }
    QStringList files() const {
        return QDir(tree.path(QStringLiteral("data/Trash/files")))
            .entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
    }

private:
    TempTree tree{};
    EnvironmentVariable variable{"XDG_DATA_HOME", QFile::encodeName(tree.path(QStringLiteral("data")))};
};

} // namespace kestor::testing
