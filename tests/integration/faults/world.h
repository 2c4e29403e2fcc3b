#pragma once

#include "controller/app_state.h"
#include "support/repositories.h"
#include "support/scripted_user.h"

#include <QMap>
#include <QSettings>

#include <memory>
#include <variant>

namespace kestor::testing {

/// A working copy ("wc") with changes of every kind, and all that is around it: other folders, preferences, the user's
/// home and the folder for temporary files. Tools are found through scripts that behave as FAULT says.
class World {
public:
    explicit World(RepositoryKind repositoryKind);
    ~World();
    Q_DISABLE_COPY_MOVE(World)

    /// Everything as it was made.
    void reset();
    /// The tools without what a fault did to them.
    void repairTools();
    /// The rows of the working copy, as the real tool has them.
    QStringList rows() const;
    QString path(const QString &relative) const { return live().path(relative); }
    /// The files of the user by their paths: those of "wc", "outside", "import" and "out".
    QMap<QString, QByteArray> files() const;
    const TempTree &live() const;
    TempTree &live();
    /// How often a tool has run since the reset.
    int toolRuns() const { return static_cast<int>(tools.read(QStringLiteral("runs")).count('\n')); }

    RepositoryKind kind;
    TempTree tools{}; ///< "bin" comes first in PATH

private:
    void fill();

    std::variant<std::monostate, SvnFixture, GitFixture> fixture{};
    TempTree original{};
};

/// The controller over the working copy of a world, with everything loaded, but no tool run.
struct Session {
    explicit Session(const World &world);
    /// Publishes what `loaded` has.
    void show(const Session &loaded);
    QStringList rows() const;

    QSettings settings;
    ScriptedUser user{};
    AppState app;
    Project project;
};

} // namespace kestor::testing
