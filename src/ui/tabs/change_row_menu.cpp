#include "ui/tabs/change_row_menu.h"

#include "ui/look/elided_path.h"
#include "ui/look/metrics.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLocale>
#include <QMenu>
#include <QUrl>

namespace kestor {

namespace {

constexpr int widestHeading = 320;

QString shortened(const QString &path, const QFont &font) {
    const QFontMetricsF metrics(font);
    const ElidedPath shown =
        elidedPath(path, widestHeading, [&](const QString &text) { return metrics.horizontalAdvance(text); });
    return shown.folder + shown.name;
}

void addHeading(QMenu &menu, QString text) {
    QAction *heading = menu.addAction(text.replace(u'&', QStringLiteral("&&")));
    heading->setFont(boldFont(menu.font()));
    heading->setEnabled(false);
}

void addPathActions(QMenu &menu, const ChangeRowMenu &content) {
    QAction *copy =
        menu.addAction(QMenu::tr("Copy Path"), [path = content.path] { QGuiApplication::clipboard()->setText(path); });
    copy->setShortcut(QKeySequence::Copy);
    const QFileInfo file(content.projectDirectory + u'/' + content.path);
    if (!file.exists())
        return;
    const QUrl url = QUrl::fromLocalFile(file.absoluteFilePath());
    menu.addAction(QMenu::tr("Open"), [url] { QDesktopServices::openUrl(url); });
}

} // namespace

QString actionPathsText(int tickedPaths, const QLocale &locale) {
    if (tickedPaths == 0)
        return QStringLiteral("Acts on the selected path");
    return tickedPaths == 1 ? QStringLiteral("Acts on 1 ticked path")
                            : QStringLiteral("Acts on %1 ticked paths").arg(locale.toString(tickedPaths));
}

QMenu *changeRowMenu(const ChangeRowMenu &content, QWidget *parent) {
    auto *menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addHeading(*menu, actionPathsText(content.tickedPaths, menu->locale()));
    for (const QList<QAction *> &group : content.tickedGroups) {
        menu->addActions(group);
        menu->addSeparator();
    }
    addHeading(*menu, shortened(content.path, boldFont(menu->font())));
    menu->addActions(content.rowActions);
    addPathActions(*menu, content);
    menu->addSeparator();
    menu->addAction(content.listAction);
    return menu;
}

} // namespace kestor
