#pragma once

#include "controller/app_state.h"
#include "ui/tabs/observers.h"

#include <QTabBar>

namespace kestor {

class CountLabel;

/// The five tabs of a project, with the numbers of changes and of incoming revisions. A tab that the user chooses
/// becomes the selected one; what it lacks is loaded once nothing else is under way.
class TabStrip final : public QTabBar {
    Q_OBJECT

public:
    TabStrip(AppState &state, QWidget *parent);

    /// Chooses the tab as a click does; past an end nothing happens.
    void choose(int index);

protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void tabChosen(int index);
    void loadTab();
    void showCounts();
    void showCount(WorkflowTab tab, qsizetype count);
    void paintTab(QPainter &painter, int index) const;

    AppState &state;
    bool loadWaits = false; ///< for the running command to end
    Observers observers{};
};

} // namespace kestor
