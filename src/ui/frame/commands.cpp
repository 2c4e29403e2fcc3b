#include "ui/frame/commands.h"

#include <QAction>
#include <QActionGroup>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace kestor {

using namespace Qt::StringLiterals;

Commands::Commands(AppState &controlledState, QObject *parent)
    : QObject(parent), state(controlledState), group(new QActionGroup(this)) {
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
    for (const CommandRow &row : commandTable())
        actions.insert(row.command, newAction(row));
    observers.watch(state.busyMessage, [this] { group->setEnabled(!state.busyMessage.value().has_value()); });
}

QAction *Commands::newAction(const CommandRow &row) {
    auto *action = new QAction(row.label.toString(), group);
    action->setShortcuts(QKeySequence::listFromString(row.shortcut.toString(), QKeySequence::PortableText));
    // Platforms move items named like these to a menu of the program.
    action->setMenuRole(QAction::NoRole);
    connect(action, &QAction::triggered, this, [this, operation = row.operation] { operation(&state); });
    return action;
}

QAction *Commands::action(Command command) const {
    return actions.value(command);
}

void Commands::fill(QMenuBar &bar) const {
    QMenu *menu = nullptr;
    QStringView title;
    for (const CommandRow &row : commandTable()) {
        if (row.menu != title)
            menu = bar.addMenu(row.menu.toString());
        else if (row.place == CommandRow::Place::beginsGroup)
            menu->addSeparator();
        title = row.menu;
        menu->addAction(action(row.command));
    }
}

} // namespace kestor
