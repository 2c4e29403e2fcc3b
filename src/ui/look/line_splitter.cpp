#include "ui/look/line_splitter.h"

#include "ui/look/theme.h"

#include <QPainter>
#include <QSplitterHandle>

namespace kestor {

namespace {

class LineHandle final : public QSplitterHandle {
public:
    using QSplitterHandle::QSplitterHandle;

protected:
    void paintEvent(QPaintEvent *) override {
        // Qt widens a handle of one pixel by margins that only the mouse sees.
        QPainter(this).fillRect(contentsRect(), themeFor(palette()).separator);
    }
};

} // namespace

LineSplitter::LineSplitter(Qt::Orientation orientation, QWidget *parent) : QSplitter(orientation, parent) {
    setHandleWidth(1);
    setChildrenCollapsible(false);
}

QSplitterHandle *LineSplitter::createHandle() {
    return new LineHandle(orientation(), this);
}

} // namespace kestor
