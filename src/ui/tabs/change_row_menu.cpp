#include "ui/tabs/change_row_menu.h"

#include "ui/look/elided_path.h"
#include "ui/look/metrics.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QMenu>
#include <QUrl>

namespace kestor {

namespace {

constexpr int widestHeading = 320;

QString headingText(const QString &path, const QFont &font) {
    const QFontMetricsF metrics(font);
    const ElidedPath shown =
        elidedPath(path, widestHeading, [&](const QString &text) { return metrics.horizontalAdvance(text); });
    QString text = shown.folder + shown.name;
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

QMenu *changeRowMenu(const QString &path, const QString &projectDirectory, QWidget *parent) {
    auto *menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QFont headingFont = boldFont(menu->font());
    QAction *heading = menu->addAction(headingText(path, headingFont));
    heading->setFont(headingFont);
    heading->setEnabled(false);
    QAction *copy = menu->addAction(QMenu::tr("Copy Path"), [path] { QGuiApplication::clipboard()->setText(path); });
    copy->setShortcut(QKeySequence::Copy);
    const QFileInfo file(projectDirectory + u'/' + path);
    if (file.exists()) {
        const QUrl url = QUrl::fromLocalFile(file.absoluteFilePath());
        menu->addAction(QMenu::tr("Open"), [url] { QDesktopServices::openUrl(url); });
    }
    return menu;
}

} // namespace kestor
