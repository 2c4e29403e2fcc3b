#pragma once

#include "ui/look/bar.h"

#include <QString>

namespace kestor {

class RowListView;

/// The titles above the columns of a list of revisions; hidden while that has no room for columns.
class RevisionHeader final : public Bar {
    Q_OBJECT

public:
    /// `shownList` must outlive the header.
    explicit RevisionHeader(RowListView &shownList, QWidget *parent = nullptr);

    /// What the project calls a revision, for example "Commit".
    void setRevisionTitle(const QString &title);

    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void followList();

    RowListView &list;
    QString revisionTitle{};
};

} // namespace kestor
