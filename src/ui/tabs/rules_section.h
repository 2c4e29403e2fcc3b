#pragma once

#include "controller/app_state.h"
#include "ui/tabs/detail_section.h"
#include "ui/tabs/observers.h"

class QPushButton;

namespace kestor {

class RuleTable;

/// The user's own languages.
class RulesSection final : public DetailSection {
    Q_OBJECT

public:
    /// `shownState` must outlive the section.
    explicit RulesSection(AppState &shownState, QWidget *parent = nullptr);

    RuleTable &table() { return *rules; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void addButtons();
    void fitButtons();
    void connectTable();
    void showCurrent();

    AppState &state;
    QPushButton *add;
    QPushButton *remove;
    RuleTable *rules;
    Observers observers{};
};

} // namespace kestor
