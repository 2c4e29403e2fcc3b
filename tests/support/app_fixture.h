#pragma once

#include "controller/app_state.h"
#include "support/awaited.h"
#include "support/marked.h"
#include "support/repositories.h"
#include "support/scripted_user.h"
#include "support/temp_tree.h"

#include <QSettings>

namespace kestor::testing {

/// A controller with preferences of its own, a scripted user and the real tools.
class AppFixture {
public:
    AppFixture() : app(settings, user, systemTools(settings)) {}
    explicit AppFixture(const RepositoryFixture &project) : AppFixture() { open(project); }

    /// Registers and selects the folder and waits until everything is loaded.
    void open(const QString &path, RepositoryKind kind) { awaited(app.addProject(path, kind)); }
    void open(const RepositoryFixture &project) { open(project.path(), project.kind); }
    void showTab(WorkflowTab tab) {
        app.selectedTab = tab;
        awaited(app.tabChanged());
    }
    /// Runs a command of the project's tool, after which everything is loaded again.
    void run(const QString &title, const QStringList &arguments) {
        awaited(app.runSelectedProjectCommand(title, arguments, RefreshAfter::yes, ShowOutput::always));
    }
    /// Commits the rows of these paths and no others.
    void commit(const QStringList &paths, const QString &message = QStringLiteral("why")) {
        app.setCommitSelection(MarkedPaths::all(app.changes), false);
        app.setCommitSelection(marked(paths), true);
        app.commitMessage = message;
        awaited(app.commitSelected());
    }
    /// The published rows as "LETTER path", a "*" in front of ticked ones.
    QStringList rows() const {
        QStringList all;
        const MarkedPaths ticked = app.selectedCommitPaths.value().in(app.changes);
        for (const WorkingCopyItem &item : app.changes.value()) {
            const QString tick = ticked.isMarked(all.size()) ? QStringLiteral("*") : QString();
            all.append(tick + shortName(item.kind) + u' ' + item.path);
        }
        return all;
    }
    /// "TITLE: MESSAGE" of the alert, "" when there is none.
    QString alertText() const {
        const std::optional<AppAlert> alert = app.alert;
        return alert ? alert->title + QStringLiteral(": ") + alert->message : QString();
    }
    /// What the output sheet shows.
    CommandOutput output() const { return app.commandOutput.value().value_or(CommandOutput()); }

    TempTree preferences{};
    QSettings settings{preferences.path(QStringLiteral("test.conf")), QSettings::IniFormat};
    ScriptedUser user{};
    AppState app;
};

/// The added and removed lines of a diff, without its heads.
inline QStringList changedLines(const QString &diff) {
    QStringList lines;
    for (const QString &line : diff.split(u'\n')) {
        const bool isChange = line.startsWith(u'+') || line.startsWith(u'-');
        if (isChange && !line.startsWith(u"+++ ") && !line.startsWith(u"--- "))
            lines.append(line);
    }
    return lines;
}

} // namespace kestor::testing
