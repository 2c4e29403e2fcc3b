#include "ui/frame/drop_target.h"

#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QPainter>
#include <QUrl>
#include <QWidget>
#include <QWindow>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

/// The frame around the whole window and its words.
class DropFrame final : public QWidget {
public:
    explicit DropFrame(QWidget *window) : QWidget(window) { setAttribute(Qt::WA_TransparentForMouseEvents); }

protected:
    void paintEvent(QPaintEvent *) override {
        const Theme theme = themeFor(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor veil = theme.window;
        veil.setAlphaF(0.6F);
        painter.fillRect(rect(), veil);
        painter.setPen(QPen(theme.focusRing, 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
        painter.setFont(headingFont(font()));
        painter.setPen(theme.text);
        painter.drawText(rect(), Qt::AlignCenter, u"Add as project"_s);
    }
};

} // namespace

QStringList draggedFolders(const QMimeData &dragged) {
    QStringList folders;
    for (const QUrl &url : dragged.urls()) {
        const QFileInfo file(url.toLocalFile());
        if (!url.isLocalFile() || !file.isDir())
            return {};
        folders.append(file.absoluteFilePath());
    }
    return folders;
}

DropTarget::DropTarget(QWidget *target, std::function<bool()> acceptsNow)
    : QObject(target), window(target), accepts(std::move(acceptsNow)) {
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool DropTarget::eventFilter(QObject *watched, QEvent *event) {
    if (watched == window) {
        // Drags are taken before the native window hands them to the widget below the pointer.
        if (event->type() == QEvent::WinIdChange && window->windowHandle() != nullptr)
            window->windowHandle()->installEventFilter(this);
        return false;
    }
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return handleDrag(*event);
    case QEvent::DragLeave:
        hideFrame();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool DropTarget::handleDrag(QEvent &event) {
    auto &drag = static_cast<QDropEvent &>(event);
    if (!drag.mimeData()->hasUrls())
        return false;
    if (event.type() == QEvent::DragEnter) // once: a folder on a slow mount would hold up every move
        folders = draggedFolders(*drag.mimeData());
    if (folders.isEmpty() || !accepts()) {
        hideFrame();
        drag.ignore();
        return true;
    }
    drag.setDropAction(Qt::CopyAction);
    drag.accept();
    if (event.type() != QEvent::Drop) {
        showFrame();
        return true;
    }
    hideFrame();
    emit dropped(folders);
    return true;
}

void DropTarget::showFrame() {
    if (frame == nullptr)
        frame = new DropFrame(window);
    frame->setGeometry(window->rect());
    frame->show();
    frame->raise();
}

void DropTarget::hideFrame() {
    if (frame != nullptr)
        frame->hide();
}

} // namespace kestor
