#pragma once

#include "ui/list/row_delegate.h"
#include "ui/tabs/path_change_rows.h"

#include <QWidget>

class QAction;
class QStackedLayout;

namespace kestor {

class ArchiveCard;
class RevisionHead;
class RowListView;
class SectionBar;

/// The detail of the Archives tab: the revision, the zip that can be made of it, and the paths that it changed.
class ArchiveDetail final : public QWidget {
    Q_OBJECT

public:
    /// `createZip` must outlive the detail.
    explicit ArchiveDetail(QAction *createZip, QWidget *parent = nullptr);

    RevisionHead &head() { return *revisionHead; }
    RowListView &pathList() { return *paths; }

    void showNothing();
    /// `rootName` is the name of the zip without its extension, and of the one folder in it.
    void showEntry(const LogEntry &entry, const QString &rootName);
    void setAccess(TickAccess access);

private:
    QWidget *revisionPage(QAction *createZip);

    PathChangeRows rows{};
    RevisionHead *revisionHead = nullptr;
    ArchiveCard *card = nullptr;
    SectionBar *pathBar = nullptr;
    RowListView *paths = nullptr;
    QStackedLayout *stack;
};

} // namespace kestor
