#include "ui/diff/diff_ruler.h"

#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace kestor {

namespace {

constexpr int markLeft = 3;
constexpr int markWidth = 6;
constexpr double viewWeight = 0.45;

} // namespace

DiffRuler::DiffRuler(QWidget *parent) : QWidget(parent) {
    setFixedWidth(stripWidth);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void DiffRuler::setMarks(std::vector<RulerMark> newMarks, double newScale) {
    marks = std::move(newMarks);
    scale = newScale;
    update();
}

void DiffRuler::setView(qint64 top, int height) {
    if (std::exchange(viewTop, top) != top || std::exchange(viewHeight, height) != height)
        update();
    viewHeight = height;
}

void DiffRuler::setTheme(const Theme &newTheme) {
    theme = newTheme;
    update();
}

void DiffRuler::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), theme.alternate);
    const QRectF view(0, static_cast<double>(viewTop) * scale, width(), viewHeight * scale);
    painter.fillRect(view.toAlignedRect().intersected(rect()), mixed(theme.alternate, theme.rulerView, viewWeight));
    painter.fillRect(QRect(0, 0, 1, height()), theme.separator);
    for (const RulerMark &mark : marks)
        paintMark(painter, mark);
}

/// Lines of both kinds in one place share its width.
void DiffRuler::paintMark(QPainter &painter, const RulerMark &mark) const {
    const bool both = mark.flags == (ChangeMarks::addition | ChangeMarks::deletion);
    const QRect whole(markLeft, mark.top, markWidth, mark.height);
    painter.fillRect(whole, (mark.flags & ChangeMarks::deletion) != 0 ? theme.delMark : theme.addMark);
    if (both)
        painter.fillRect(whole.adjusted(markWidth / 2, 0, 0, 0), theme.addMark);
}

void DiffRuler::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton)
        jump(*event);
}

void DiffRuler::mouseMoveEvent(QMouseEvent *event) {
    if (event->buttons().testFlag(Qt::LeftButton))
        jump(*event);
}

void DiffRuler::jump(const QMouseEvent &event) {
    emit jumpRequested(static_cast<qint64>(event.position().y() / scale));
}

} // namespace kestor
