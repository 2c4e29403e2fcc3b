#pragma once

#include "controller/app_state.h"
#include "ui/tabs/busy_access.h"
#include "ui/tabs/deferred.h"
#include "ui/tabs/executable_section.h"
#include "ui/tabs/observers.h"
#include "ui/tabs/tab_page.h"

class QScrollArea;

namespace kestor {

class LanguageColumn;
class RepositorySection;
class RulesSection;

/// The Configuration tab: the languages of the project beside what is known of its repository, the `svn` in use and the
/// user's own languages. Those can be edited while a command runs, as they need no tool.
class ConfigurationTab final : public TabPage {
    Q_OBJECT

public:
    /// All must outlive the tab.
    ConfigurationTab(AppState &shownState, const ExecutableActions &actions, QWidget *parent = nullptr);

    /// Languages, detail.
    QList<QWidget *> focusPanes() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void layOutDetail();
    void observeState();
    void showRepository();
    void scrollToCell();

    AppState &state;
    LanguageColumn *column;
    RepositorySection *repository;
    ExecutableSection *executable;
    RulesSection *rules;
    QScrollArea *detail;
    BusyAccess busyAccess{state, [this](TickAccess access) {
                              executable->setHeld(access == TickAccess::held);
                          }};
    Deferred scrolling{[this] {
        scrollToCell();
    }};
    Observers observers{};
};

} // namespace kestor
