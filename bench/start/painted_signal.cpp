#include "painted_signal.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>

#include <unistd.h>

namespace kestor {

namespace {

/// Longer than any list of projects, shorter than the lists of changes that are measured.
constexpr int longList = 1000;

} // namespace

PaintedSignal::PaintedSignal(int fileDescriptor) : descriptor(fileDescriptor) {
    qApp->installEventFilter(this);
}

bool PaintedSignal::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Paint && watched->isWidgetType()) {
        const auto *widget = static_cast<QWidget *>(watched);
        const auto *view = qobject_cast<QAbstractItemView *>(widget->parentWidget());
        if (widget->isWindow())
            announce(windowPainted);
        else if (view && view->model() && view->model()->rowCount() >= longList)
            announce(listPainted);
    }
    return QObject::eventFilter(watched, event);
}

void PaintedSignal::announce(char letter) {
    if (announced.contains(letter))
        return;
    announced.append(letter);
    const auto tell = [this, letter] {
        if (::write(descriptor, &letter, 1) != 1)
            qFatal("nobody listens");
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

} // namespace kestor
