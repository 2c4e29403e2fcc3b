#pragma once

#include "model/line_change_summary.h"

#include <QWidget>

namespace kestor {

/// "+214  −87" in the colors of added and removed lines; nothing for the zero summary.
class LineSummaryLabel final : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    void setSummary(const LineChangeSummary &wanted);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    LineChangeSummary summary{};
};

} // namespace kestor
