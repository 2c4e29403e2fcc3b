#include "ui/tabs/revision_diff.h"

#include "ui/diff/diff_pane.h"
#include "ui/tabs/revision_head.h"

#include <QVBoxLayout>

namespace kestor {

RevisionDiff::RevisionDiff(QWidget *parent) : QWidget(parent), revisionHead(new RevisionHead), diffPane(new DiffPane) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(revisionHead);
    layout->addWidget(diffPane, 1);
}

void RevisionDiff::showNothing(const QString &explanation) {
    revisionHead->hide();
    diffPane->showNothing(explanation);
}

} // namespace kestor
