#pragma once

#include "controller/app_state.h"
#include "support/awaited.h"
#include "support/repositories.h"
#include "support/scripted_user.h"
#include "support/temp_tree.h"

#include <QSettings>

namespace kestor::testing {

/// A controller with preferences of its own, a scripted user and the real tools.
class AppFixture {
public:
    AppFixture() : app(settings, user, systemTools(settings)) {}
    explicit AppFixture(const SvnFixture &project) : AppFixture() { open(project.path(), RepositoryKind::svn); }
    explicit AppFixture(const GitFixture &project) : AppFixture() { open(project.path(), RepositoryKind::git); }

    /// Registers and selects the folder and waits until everything is loaded.
    void open(const QString &path, RepositoryKind kind) { awaited(app.addProject(path, kind)); }
    /// The published rows as "LETTER path", a "*" in front of ticked ones.
    QStringList rows() const {
        QStringList all;
        for (const WorkingCopyItem &item : app.changes.value()) {
            const QString tick = app.selectedCommitPaths.value().contains(item.path) ? QStringLiteral("*") : QString();
            all.append(tick + shortName(item.kind) + u' ' + item.path);
        }
        return all;
    }
    /// "TITLE: MESSAGE" of the alert, "" when there is none.
    QString alertText() const {
        const std::optional<AppAlert> alert = app.alert;
        return alert ? alert->title + QStringLiteral(": ") + alert->message : QString();
    }

    TempTree preferences{};
    QSettings settings{preferences.path(QStringLiteral("test.conf")), QSettings::IniFormat};
    ScriptedUser user{};
    AppState app;
};

} // namespace kestor::testing
