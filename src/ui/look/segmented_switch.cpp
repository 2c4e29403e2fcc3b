#include "ui/look/segmented_switch.h"

#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr double radius = 4;

QRectF frameOf(const QWidget &widget) {
    return QRectF(widget.rect()).adjusted(0.5, 0.5, -0.5, -0.5);
}

class Segment final : public QAbstractButton {
public:
    Segment(const QString &text, QWidget *parent) : QAbstractButton(parent) {
        setText(text);
        setCheckable(true);
        setFocusPolicy(Qt::TabFocus);
    }

    QSize sizeHint() const override {
        return {QFontMetrics(boldFont(smallFont(font()))).horizontalAdvance(text()) + 2 * gap, rowHeight(font())};
    }

protected:
    void paintEvent(QPaintEvent *) override {
        const Theme theme = themeFor(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (isChecked())
            painter.fillPath(ground(), theme.selection);
        if (hasFocus()) {
            painter.setPen(QPen(theme.focusRing, 2));
            painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 2, 2);
        }
        painter.setPen(theme.text);
        painter.setFont(isChecked() ? boldFont(smallFont(font())) : smallFont(font()));
        painter.drawText(rect(), Qt::AlignCenter, text());
    }

private:
    /// Its part of the frame's inside.
    QPainterPath ground() const {
        QPainterPath frame;
        frame.addRoundedRect(frameOf(*parentWidget()).translated(-pos()), radius, radius);
        QPainterPath own;
        own.addRect(rect());
        return frame & own;
    }
};

} // namespace

SegmentedSwitch::SegmentedSwitch(const QStringList &texts, const QString &name, QWidget *parent)
    : QWidget(parent), group(new QButtonGroup(this)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAccessibleName(name);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (const QString &text : texts) {
        auto *const segment = new Segment(text, this);
        segment->setAccessibleName(u"%1: %2"_s.arg(name, text));
        group->addButton(segment, static_cast<int>(group->buttons().size()));
        layout->addWidget(segment);
    }
    connect(group, &QButtonGroup::idClicked, this, &SegmentedSwitch::chosen);
}

void SegmentedSwitch::setCurrent(int index) {
    group->setExclusive(false); // or no segment could be given up
    for (QAbstractButton *const segment : group->buttons())
        segment->setChecked(group->id(segment) == index);
    group->setExclusive(true);
}

void SegmentedSwitch::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme.buttonLine);
    painter.setBrush(theme.button);
    painter.drawRoundedRect(frameOf(*this), radius, radius);
    const QList<QAbstractButton *> segments = group->buttons();
    for (qsizetype i = 1; i < segments.size(); ++i)
        painter.fillRect(QRectF(segments[i]->x() - 1, 1, 1, height() - 2), theme.buttonLine);
}

} // namespace kestor
