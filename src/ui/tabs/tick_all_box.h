#pragma once

#include "ui/list/path_row.h"
#include "ui/list/row_delegate.h"
#include "ui/tabs/change_rows.h"

#include <QCheckBox>

namespace kestor {

/// The box above a list that stands for the tick boxes of all rows shown. It follows them: a click only asks. Room of
/// `smallGap` for the focus frame surrounds it.
class TickAllBox final : public QCheckBox {
    Q_OBJECT

public:
    explicit TickAllBox(QWidget *parent = nullptr);

    void showCounts(const TickCounts &counts);
    void setTickAccess(TickAccess wanted);
    QSize sizeHint() const override;

signals:
    /// All rows shown are to be ticked, or unticked when all of them were ticked.
    void requested(kestor::Tick wanted);

protected:
    bool hitButton(const QPoint &point) const override { return rect().contains(point); }
    void nextCheckState() override;
    void paintEvent(QPaintEvent *event) override;

private:
    TickAccess access = TickAccess::editable;
};

} // namespace kestor
