#pragma once

#include "controller/app_state.h"
#include "ui/tabs/observers.h"

#include <QWidget>

class QAction;

namespace kestor {

class LanguageView;
class RowListView;
class ToneLabel;

/// The languages of the project below a heading with their size.
class LanguageColumn final : public QWidget {
    Q_OBJECT

public:
    /// `shownState` must outlive the column.
    explicit LanguageColumn(AppState &shownState, QWidget *parent = nullptr);

    RowListView &list();

private:
    QWidget *heading();
    void showShares();

    AppState &state;
    QAction *showInSheet;
    ToneLabel *total = nullptr;
    LanguageView *languages;
    Observers observers{};
};

} // namespace kestor
