#include "ui/tabs/configuration_tab.h"

#include "ui/list/row_list_view.h"
#include "ui/look/metrics.h"
#include "ui/tabs/language_column.h"
#include "ui/tabs/repository_section.h"
#include "ui/tabs/rule_table.h"
#include "ui/tabs/rules_section.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace kestor {

ConfigurationTab::ConfigurationTab(AppState &shownState, const ExecutableActions &actions, QWidget *parent)
    : TabPage(parent), state(shownState), column(new LanguageColumn(shownState)), repository(new RepositorySection),
      executable(new ExecutableSection(actions)), rules(new RulesSection(shownState)), detail(new QScrollArea) {
    layOutDetail();
    setColumns(column, detail);
    connect(&column->list(), &RowListView::detailRequested, detail, qOverload<>(&QWidget::setFocus));
    const auto scroll = [this] {
        scrolling.start();
    };
    connect(&rules->table(), &RuleTable::currentCellChanged, this, scroll);
    // A new row can be scrolled to only when it has been laid out.
    connect(detail->verticalScrollBar(), &QScrollBar::rangeChanged, this, scroll);
    observeState();
}

/// The table of rules has the focus of all.
void ConfigurationTab::layOutDetail() {
    auto *sections = new QWidget;
    auto *layout = new QVBoxLayout(sections);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(repository);
    layout->addWidget(executable);
    layout->addWidget(rules);
    layout->addStretch();
    sections->setBackgroundRole(QPalette::Base);
    detail->setWidget(sections);
    detail->setWidgetResizable(true);
    detail->setFrameShape(QFrame::NoFrame);
    detail->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    detail->setBackgroundRole(QPalette::Base);
    detail->setFocusPolicy(Qt::NoFocus);
    detail->setFocusProxy(&rules->table());
}

void ConfigurationTab::observeState() {
    observers.watch(state.repositoryInfo, [this] { showRepository(); });
    observers.watch(state.projects, [this] { showRepository(); });
    observers.watch(state.svnExecutablePath, [this] { executable->setChosenPath(state.svnExecutablePath); });
}

QList<QWidget *> ConfigurationTab::focusPanes() const {
    return {&column->list(), detail};
}

void ConfigurationTab::showRepository() {
    const std::optional<Project> project = state.selectedProject();
    repository->setFields(repositoryFields(state.repositoryInfo, project ? project->kind : RepositoryKind::svn));
}

/// Scrolls to the cell that the keyboard has come to.
void ConfigurationTab::scrollToCell() {
    const RuleTable &table = rules->table();
    const bool hasKeyboard = table.hasFocus() || table.isAncestorOf(QApplication::focusWidget());
    if (!hasKeyboard || !table.currentIndex().isValid())
        return;
    const QRect cell = table.currentCell();
    const QPoint center = table.mapTo(detail->widget(), cell.center());
    detail->ensureVisible(center.x(), center.y(), 0, cell.height());
}

void ConfigurationTab::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape && !column->list().hasFocus())
        return column->list().setFocus();
    TabPage::keyPressEvent(event);
}

/// What could not be loaded before may be there now.
void ConfigurationTab::showEvent(QShowEvent *event) {
    TabPage::showEvent(event);
    if (state.repositoryInfo.value() == RepositoryInfo() && !state.busyMessage.value())
        state.loadInfo();
}

} // namespace kestor
