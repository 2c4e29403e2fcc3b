#include "ui/tabs/archive_detail.h"

#include "ui/list/row_list_view.h"
#include "ui/list/section_bar.h"
#include "ui/look/placeholder.h"
#include "ui/tabs/archive_card.h"
#include "ui/tabs/copy_path_menu.h"
#include "ui/tabs/revision_head.h"

#include <QLocale>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace kestor {

ArchiveDetail::ArchiveDetail(QAction *createZip, QWidget *parent) : QWidget(parent), stack(new QStackedLayout(this)) {
    stack->addWidget(new Placeholder({{}, tr("(select a revision)"), {}}));
    stack->addWidget(revisionPage(createZip));
    addCopyPathMenu(*paths, rows);
}

QWidget *ArchiveDetail::revisionPage(QAction *createZip) {
    auto *page = new QWidget;
    revisionHead = new RevisionHead;
    card = new ArchiveCard(createZip);
    pathBar = new SectionBar;
    paths = new RowListView(rows);
    paths->setAccessibleName(tr("Changed paths"));
    revisionHead->setMenuActions({createZip});
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(revisionHead);
    layout->addWidget(card);
    layout->addWidget(pathBar);
    layout->addWidget(paths, 1);
    return page;
}

void ArchiveDetail::showNothing() {
    stack->setCurrentIndex(0);
}

void ArchiveDetail::showEntry(const LogEntry &entry, const QString &rootName) {
    revisionHead->setRevision(revisionText(entry));
    card->setRootName(rootName);
    pathBar->setTexts(tr("Changed paths"), locale().toString(static_cast<qlonglong>(entry.paths.size())));
    rows.publish(entry.paths);
    stack->setCurrentIndex(1);
}

void ArchiveDetail::setAccess(TickAccess access) {
    revisionHead->setAccess(access);
    card->setAccess(access);
}

} // namespace kestor
