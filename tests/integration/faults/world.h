#pragma once

#include "controller/app_state.h"
#include "support/repositories.h"
#include "support/scripted_user.h"

#include <QMap>
#include <QSettings>

#include <memory>

namespace kestor::testing {

/// A working copy ("wc") with changes of every kind, and all that is around it: other folders, preferences, the user's
/// home and the folder for temporary files. Tools are found through scripts that behave as FAULT says.
class World {
    std::unique_ptr<SvnFixture> svn;
    std::unique_ptr<GitFixture> git;

public:
    /// `preparation` is a shell script that changes the working copy, in which it runs, before it is kept as it is.
    explicit World(RepositoryKind repositoryKind, const char *preparation = "");
    ~World();
    Q_DISABLE_COPY_MOVE(World)

    /// Everything as it was made.
    void reset();
    /// The tools without what a fault did to them.
    void repairTools();
    /// The rows of the working copy, as the real tool has them.
    QStringList rows() const;
    QString path(const QString &relative) const { return live.path(relative); }
    /// Of the repository, for what makes a new working copy.
    QString url() const;
    /// The files of the user by their paths: those of "wc", "outside" and "out".
    QMap<QString, QByteArray> files() const;
    /// How often a tool has run since the reset.
    int toolRuns() const { return static_cast<int>(tools.read(QStringLiteral("runs")).count('\n')); }

    RepositoryKind kind;
    TempTree &live;
    TempTree tools{}; ///< "bin" comes first in PATH

private:
    void fill();

    TempTree original{};
};

/// The controller over the working copy of a world, with everything loaded and ticked, but no tool run. Its user has an
/// answer to every question.
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
