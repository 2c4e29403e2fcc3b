#include "ui/frame/arriving_folders.h"

#include "controller/app_state.h"

#include <QApplication>
#include <QFileInfo>
#include <QFileOpenEvent>

#include <algorithm>
#include <chrono>

namespace kestor {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// A load gives way to the project that is added, as when another one is selected.
bool isFree(const AppState &state) {
    const bool held = state.busyMessage.value() && state.busyKind.value() != BusyKind::load;
    return !held && QApplication::activeModalWidget() == nullptr;
}

} // namespace

ArrivingFolders::ArrivingFolders(AppState &shownState) : state(shownState) {
    retry.setSingleShot(true);
    retry.setInterval(100ms);
    connect(&retry, &QTimer::timeout, this, &ArrivingFolders::addWhenFree);
    qApp->installEventFilter(this);
}

void ArrivingFolders::add(const QStringList &paths) {
    waiting += paths;
    addWhenFree();
}

bool ArrivingFolders::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::FileOpen)
        return false;
    add({static_cast<QFileOpenEvent *>(event)->file()});
    return QObject::eventFilter(watched, event);
}

void ArrivingFolders::addWhenFree() {
    if (waiting.isEmpty())
        return;
    if (!isFree(state))
        return retry.start();
    QStringList folders = std::exchange(waiting, {});
    folders.removeDuplicates();
    const auto others = std::stable_partition(folders.begin(), folders.end(),
                                              [](const QString &path) { return QFileInfo(path).isDir(); });
    const QStringList rejected(others, folders.end());
    folders.erase(others, folders.end());
    if (!rejected.isEmpty())
        state.showAlert(u"Could Not Add Project"_s,
                        u"There is no folder at "_s + rejected.join(u"\nand none at "_s) + u'.');
    if (!folders.isEmpty())
        state.addWorkingCopies(folders);
}

} // namespace kestor
