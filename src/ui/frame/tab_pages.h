#pragma once

#include "controller/app_state.h"
#include "ui/frame/window_state.h"
#include "ui/tabs/observers.h"

#include <QHash>
#include <QStackedWidget>

namespace kestor {

class ChangesTab;
class Commands;
class ListTab;
class TabPage;

/// The pages of the five tabs, each made when it is first shown. They share the width of their lists, Archives apart,
/// the text size of their diffs, and the choice of a preview or text.
class TabPages final : public QStackedWidget {
    Q_OBJECT

public:
    /// All must outlive the pages.
    TabPages(AppState &shownState, const Commands &shownCommands, QWidget *parent);

    ChangesTab &changes() const { return *changesTab; }
    /// The page that is shown.
    TabPage &current() const;

    /// What of a window's state is about the pages.
    void restore(const WindowState &saved);
    void save(WindowState &current) const;

    int textSize() const { return layout.textSize; }
    void setTextSize(int delta);

signals:
    void textSizeChanged(int delta);

private:
    TabPage *newPage(WorkflowTab tab);
    ListTab *newChanges();
    ListTab *newIncoming();
    ListTab *newHistory();
    ListTab *newArchives();
    TabPage *newConfiguration();
    void followListWidth(TabPage &page);
    void prepare(ListTab &page);
    void shareListWidth(int width);
    void shareForms(const FormChoices &choices);
    void showPage();

    AppState &state;
    const Commands &commands;
    QHash<WorkflowTab, TabPage *> tabPages{};
    ChangesTab *changesTab = nullptr;
    WindowState layout{}; ///< what the pages share, and what those not made yet begin with
    Observers observers{};
};

} // namespace kestor
