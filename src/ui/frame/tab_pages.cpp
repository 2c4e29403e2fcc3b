#include "ui/frame/tab_pages.h"

#include "ui/frame/commands.h"
#include "ui/preview/detail_pane.h"
#include "ui/tabs/archives_tab.h"
#include "ui/tabs/changes_tab.h"
#include "ui/tabs/configuration_tab.h"
#include "ui/tabs/history_tab.h"
#include "ui/tabs/incoming_tab.h"

namespace kestor {

TabPages::TabPages(AppState &shownState, const Commands &shownCommands, QWidget *parent)
    : QStackedWidget(parent), state(shownState), commands(shownCommands) {
    tabPages.insert(WorkflowTab::changes, newPage(WorkflowTab::changes));
    addWidget(changesTab);
    observers.watch(state.selectedTab, [this] { showPage(); });
}

TabPage *TabPages::newPage(WorkflowTab tab) {
    switch (tab) {
    case WorkflowTab::changes:
        break;
    case WorkflowTab::incoming:
        return newIncoming();
    case WorkflowTab::history:
        return newHistory();
    case WorkflowTab::archives:
        return newArchives();
    case WorkflowTab::configuration:
        return newConfiguration();
    }
    return newChanges();
}

ListTab *TabPages::newChanges() {
    changesTab = new ChangesTab(state, this);
    const auto actionsOf = [this](const QList<Command> &wanted) {
        QList<QAction *> actions;
        for (const Command command : wanted)
            actions.append(commands.action(command));
        return actions;
    };
    changesTab->setRowActions(
        {.edits = actionsOf(
             {Command::addSelected, Command::deleteSelected, Command::revertSelected, Command::ignoreSelected}),
         .resolveUsingWorking = commands.action(Command::resolveUsingWorking),
         .resolveUsingOneSide = actionsOf({Command::resolveUsingMineFull, Command::resolveUsingTheirsFull}),
         .svnEdits = actionsOf({Command::lockSelected, Command::unlockSelected, Command::createChangelist,
                                Command::removeFromChangelist})});
    prepare(*changesTab);
    return changesTab;
}

ListTab *TabPages::newIncoming() {
    auto *page = new IncomingTab(state, commands.action(Command::update), this);
    prepare(*page);
    page->setRevisionsHeight(layout.incomingHeight);
    return page;
}

ListTab *TabPages::newHistory() {
    const HistoryActions actions{.pullFile = commands.action(Command::pullFileAtRevision),
                                 .diffAgainst = commands.action(Command::diffAgainstRevision),
                                 .blame = commands.action(Command::blamePath),
                                 .createZip = commands.action(Command::createArchiveZip),
                                 .rollback = commands.action(Command::rollbackRevision),
                                 .exportFile = commands.action(Command::exportFileAtRevision)};
    auto *page = new HistoryTab(state, actions, this);
    prepare(*page);
    page->setSizes(layout.history);
    return page;
}

/// Its list keeps a width of its own.
ListTab *TabPages::newArchives() {
    auto *page = new ArchivesTab(state, commands.action(Command::createArchiveZip), this);
    page->setListWidth(layout.archivesWidth);
    connect(page, &ListTab::listWidthChosen, this, [this](int width) { layout.archivesWidth = width; });
    return page;
}

TabPage *TabPages::newConfiguration() {
    const ExecutableActions actions{.choose = commands.action(Command::setExecutable),
                                    .useFromPath = commands.action(Command::useFromPath)};
    auto *page = new ConfigurationTab(state, actions, this);
    followListWidth(*page);
    return page;
}

void TabPages::followListWidth(TabPage &page) {
    page.setListWidth(layout.listWidth);
    connect(&page, &TabPage::listWidthChosen, this, &TabPages::shareListWidth);
}

void TabPages::prepare(ListTab &page) {
    followListWidth(page);
    if (DiffPane *pane = page.diffPane()) {
        pane->setTextSizeDelta(layout.textSize);
        connect(pane, &DiffPane::textSizeDeltaChanged, this, &TabPages::setTextSize);
        page.detailPane()->setFormChoices(layout.forms);
        connect(page.detailPane(), &DetailPane::formChoicesChanged, this,
                [this, changed = page.detailPane()] { shareForms(changed->formChoices()); });
    }
}

void TabPages::shareListWidth(int width) {
    layout.listWidth = width;
    for (const WorkflowTab tab :
         {WorkflowTab::changes, WorkflowTab::incoming, WorkflowTab::history, WorkflowTab::configuration}) {
        TabPage *page = tabPages.value(tab);
        if (page != nullptr)
            page->setListWidth(width);
    }
}

void TabPages::setTextSize(int delta) {
    if (delta == layout.textSize)
        return;
    changesTab->diffPane()->setTextSizeDelta(delta);
    layout.textSize = changesTab->diffPane()->textSizeDelta(); // within its bounds
    for (QWidget *page : std::as_const(tabPages)) {
        auto *tab = qobject_cast<ListTab *>(page);
        if (tab != nullptr && tab->diffPane() != nullptr)
            tab->diffPane()->setTextSizeDelta(layout.textSize);
    }
    emit textSizeChanged(layout.textSize);
}

void TabPages::shareForms(const FormChoices &choices) {
    layout.forms = choices;
    for (QWidget *page : std::as_const(tabPages)) {
        auto *tab = qobject_cast<ListTab *>(page);
        if (tab != nullptr && tab->detailPane() != nullptr)
            tab->detailPane()->setFormChoices(choices);
    }
}

TabPage &TabPages::current() const {
    return *static_cast<TabPage *>(currentWidget());
}

void TabPages::restore(const WindowState &saved) {
    layout = saved;
    layout.textSize = 0;
    setTextSize(saved.textSize);
    shareForms(saved.forms);
    changesTab->setListWidth(saved.listWidth);
    if (saved.messageHeight > 0)
        changesTab->setPanelHeight(saved.messageHeight);
}

void TabPages::save(WindowState &current) const {
    current.listWidth = layout.listWidth;
    current.archivesWidth = layout.archivesWidth;
    current.textSize = layout.textSize;
    current.forms = layout.forms;
    current.messageHeight = changesTab->panelHeight();
    const auto *history = qobject_cast<const HistoryTab *>(tabPages.value(WorkflowTab::history));
    current.history = history ? history->sizes() : layout.history;
    const auto *incoming = qobject_cast<const IncomingTab *>(tabPages.value(WorkflowTab::incoming));
    current.incomingHeight = incoming ? incoming->revisionsHeight() : layout.incomingHeight;
}

/// The focus stays in the pages; one that never had it begins with its list.
void TabPages::showPage() {
    const WorkflowTab tab = state.selectedTab.value();
    TabPage *&page = tabPages[tab];
    if (page == nullptr) {
        page = newPage(tab);
        addWidget(page);
    }
    const QWidget *focused = window()->focusWidget();
    const bool begins = focused != nullptr && isAncestorOf(focused) && page->focusWidget() == nullptr;
    setCurrentWidget(page);
    if (begins)
        page->focusPanes().first()->setFocus(Qt::OtherFocusReason);
}

} // namespace kestor
