#pragma once

#include "ui/frame/command_table.h"
#include "ui/tabs/observers.h"

#include <QHash>
#include <QObject>

class QAction;
class QActionGroup;
class QMenuBar;

namespace kestor {

/// The actions of the menu bar, which buttons and shortcuts share. While the state is busy all of them are disabled.
class Commands final : public QObject {
    Q_OBJECT

public:
    Commands(AppState &state, QObject *parent);

    QAction *action(Command command) const;
    /// Adds the menus.
    void fill(QMenuBar &bar) const;

private:
    QAction *newAction(const CommandRow &row);

    AppState &state;
    QActionGroup *group;
    QHash<Command, QAction *> actions{};
    Observers observers{};
};

} // namespace kestor
