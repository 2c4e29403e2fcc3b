#include "ui/tabs/copy_path_menu.h"

#include "ui/list/row_list_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

namespace kestor {

void addCopyPathMenu(RowListView &list, const RowModel &rows) {
    QObject::connect(&list, &RowListView::rowMenuRequested, &list, [&](int row, const QPoint &position) {
        auto *menu = new QMenu(&list);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->addAction(QMenu::tr("Copy Path"),
                        [path = rows.copiedText(rows.recordAt(row))] { QGuiApplication::clipboard()->setText(path); });
        menu->popup(position);
    });
}

} // namespace kestor
