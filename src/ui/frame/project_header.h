#pragma once

#include "controller/app_state.h"
#include "ui/frame/busy_clock.h"
#include "ui/tabs/observers.h"

#include <QList>
#include <QWidget>

#include <cstdint>

class QToolButton;

namespace kestor {

class BranchButton;
class Commands;
enum class Command : std::uint8_t;
enum class Icon : std::uint8_t;
class KindTag;
class ToneLabel;

/// Name, kind, branch and folder of the selected project, and its commonest commands.
class ProjectHeader final : public QWidget {
    Q_OBJECT

public:
    ProjectHeader(AppState &state, const Commands &commands, QWidget *parent);

    /// The button that brings the sidebar back stands at the left while that is hidden.
    void setSidebarHidden(bool hidden);
    /// How much of a running command shows here.
    void showBusy(BusyPhase phase);

signals:
    void sidebarRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QToolButton *commandButton(const Commands &commands, Command command, Icon icon, const QString &name);
    void addMenu(const Commands &commands);
    void showProject();
    void showUpdate(RepositoryKind shown);
    QList<QWidget *> commandButtons() const;
    /// Gives the path and the branch the room that the rest leaves.
    void shareWidth();

    AppState &state;
    QToolButton *sidebar;
    ToneLabel *name;
    KindTag *kind;
    BranchButton *branch;
    ToneLabel *path;
    QToolButton *refresh;
    QToolButton *update;
    QToolButton *terminal;
    QToolButton *folder;
    QToolButton *more;
    Observers observers{};
};

} // namespace kestor
