#pragma once

#include "ui/tabs/deferred.h"
#include "ui/tabs/history_column.h"
#include "ui/tabs/list_tab.h"

#include <optional>

class QAction;

namespace kestor {

class RevisionDiff;

/// What the History tab offers for the selected revision. The actions must outlive the tab.
struct HistoryActions {
    QAction *pullFile = nullptr;
    QAction *diffAgainst = nullptr;
    QAction *blame = nullptr;
    QAction *createZip = nullptr;
    QAction *rollback = nullptr;
    QAction *exportFile = nullptr;
};

/// The History tab: every file of the log, the revisions of the selected one, and what the selected revision changed in
/// it. In a wide window the two lists stand side by side.
class HistoryTab final : public ListTab {
    Q_OBJECT

public:
    /// `state` must outlive the tab.
    HistoryTab(AppState &state, const HistoryActions &offered, QWidget *parent = nullptr);

    /// Files, revisions, detail.
    QList<QWidget *> focusPanes() const override;
    /// Has no effect while the lists stand side by side.
    void setListWidth(int width) override;

    const HistorySizes &sizes() const { return column->sizes(); }
    void setSizes(const HistorySizes &wanted) { column->setSizes(wanted); }

protected:
    bool sharesListWidth() const override { return column->columns() == HistoryColumns::stacked; }
    bool isDetailUpToDate() const override { return shown == selected(); }
    bool chooseBeside(Walk walk, CaretDirection direction) override;
    void setAccess(TickAccess access) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void observeState();
    void addHeadActions();
    void fitColumns();

    void showFiles();
    void showRevisions();
    void showEmptyText();
    void showDetail();

    std::optional<FileRevisionID> selected() const;
    void chooseFile(const QString &path);
    void chooseRevision(const QString &id);
    void openRowMenu(const QPoint &position);

    HistoryActions actions;
    HistoryFileRows files{};
    FileRevisionRows revisions{};
    HistoryColumn *column;
    RevisionDiff *detail;
    QAction *copyPath;
    Deferred showing{[this] {
        showDetail();
    }};
    int stackedWidth;
    std::optional<FileRevisionID> shown{}; ///< whose diff the pane shows
};

} // namespace kestor
