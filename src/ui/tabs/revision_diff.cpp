#include "ui/tabs/revision_diff.h"

#include "ui/preview/detail_pane.h"
#include "ui/tabs/revision_head.h"

#include <QVBoxLayout>

namespace kestor {

RevisionDiff::RevisionDiff(QWidget *parent)
    : QWidget(parent), revisionHead(new RevisionHead), detailPane(new DetailPane) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(revisionHead);
    layout->addWidget(detailPane, 1);
}

void RevisionDiff::showNothing(const QString &explanation) {
    revisionHead->hide();
    detailPane->showNothing(explanation);
}

} // namespace kestor
