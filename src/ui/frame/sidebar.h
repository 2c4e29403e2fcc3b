#pragma once

#include "controller/app_state.h"
#include "ui/frame/busy_clock.h"
#include "ui/tabs/observers.h"

#include <QWidget>

class QToolButton;

namespace kestor {

class Commands;
class FilterField;
class ProjectListView;
class ToneLabel;

/// The projects: a label that turns into a filter field, the list, and at the foot the buttons to add, to remove and to
/// hide. A row that the user chooses becomes the selected project.
class Sidebar final : public QWidget {
    Q_OBJECT

public:
    Sidebar(AppState &state, const Commands &commands, QWidget *parent);

    QWidget *list() const;
    /// Turns the label into the filter field and gives it the focus.
    void find();
    /// Selects the project `step` rows below the selected one; past an end nothing happens.
    void selectNeighbour(int step);
    /// How much of a running command shows here. While only loads run the user can leave their project.
    void showBusy(BusyPhase phase);

signals:
    void hideRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *head();
    QWidget *foot(const Commands &commands);
    /// Of a row.
    void makeMenu(const Commands &commands);
    void showRows();
    bool isHeld() const;
    void endFinding();
    void enterList();
    void selectFirst();
    void select(const QUuid &id);

    AppState &state;
    ToneLabel *label = nullptr;
    FilterField *filter = nullptr;
    QToolButton *search = nullptr;
    QToolButton *add = nullptr;
    QToolButton *remove = nullptr;
    ProjectListView *view;
    BusyPhase phase = BusyPhase::idle;
    Observers observers{};
};

} // namespace kestor
