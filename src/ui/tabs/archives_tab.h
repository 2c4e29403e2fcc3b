#pragma once

#include "ui/tabs/deferred.h"
#include "ui/tabs/list_tab.h"
#include "ui/tabs/revision_rows.h"

class QAction;

namespace kestor {

class ArchiveDetail;
class RevisionHeader;
class ToneLabel;

/// The Archives tab: every revision beside the zip that can be made of the selected one.
class ArchivesTab final : public ListTab {
    Q_OBJECT

public:
    /// `state` and `createZipAction` must outlive the tab.
    ArchivesTab(AppState &state, QAction *createZipAction, QWidget *parent = nullptr);

    static constexpr int defaultListWidth = 680;

    /// List, changed paths.
    QList<QWidget *> focusPanes() const override;

protected:
    void setAccess(TickAccess access) override;

private:
    void observeState();
    void showEntries();
    void showKind();
    void showEmptyText();
    void showDetail();
    void openRowMenu(const QPoint &position);

    LogRows rows{RowShape::columns};
    FilteredList *column;
    RevisionHeader *header;
    ToneLabel *count;
    ArchiveDetail *detail;
    QAction *createZip;
    Deferred showing{[this] {
        showDetail();
    }};
};

} // namespace kestor
