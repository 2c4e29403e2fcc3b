#pragma once

#include "ui/tabs/deferred.h"
#include "ui/tabs/incoming_column.h"
#include "ui/tabs/list_tab.h"

#include <optional>

class QAction;

namespace kestor {

class RevisionDiff;

/// The Incoming tab: the revisions that an update would bring, what each of them changes, and the items that are out of
/// date. For a Git project it offers to pull.
class IncomingTab final : public ListTab {
    Q_OBJECT

public:
    /// `update` brings what is incoming. Both must outlive the tab.
    IncomingTab(AppState &state, QAction *update, QWidget *parent = nullptr);

    /// Revisions, items that are out of date, detail.
    QList<QWidget *> focusPanes() const override;

    /// The height of the revisions; 0 until the user has chosen one.
    int revisionsHeight() const { return column->revisionsHeight(); }
    void setRevisionsHeight(int height) { column->setRevisionsHeight(height); }

protected:
    bool isDetailUpToDate() const override { return shown == app.selectedIncomingRevision.value(); }
    void setAccess(TickAccess access) override;

private:
    void observeState();
    void showEntries();
    void showRange();
    void showEmptyText();
    void showDetail();
    void showDiff(const LogEntry &entry);
    void chooseRevision(const QString &id);
    void openRowMenu(const QPoint &position);

    LogRows revisions{RowShape::twoLines};
    OutdatedRows outdated{};
    IncomingColumn *column;
    RevisionDiff *detail;
    QAction *updateProject;
    QAction *refresh;
    Deferred showing{[this] {
        showDetail();
    }};
    std::optional<qint64> shown{}; ///< whose diff the pane shows
};

} // namespace kestor
