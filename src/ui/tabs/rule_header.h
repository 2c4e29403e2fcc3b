#pragma once

#include <QHeaderView>

namespace kestor {

/// The titles above the columns of the user's languages.
class RuleHeader final : public QHeaderView {
    Q_OBJECT

public:
    explicit RuleHeader(QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter *painter, const QRect &rect, int section) const override;
};

} // namespace kestor
