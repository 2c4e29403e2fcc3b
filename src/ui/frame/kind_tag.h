#pragma once

#include "ui/look/tone_label.h"

namespace kestor {

/// "SVN" or "Git" in a rounded frame.
class KindTag final : public ToneLabel {
public:
    explicit KindTag(QWidget *parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace kestor
