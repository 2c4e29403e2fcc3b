#pragma once

#include "ui/list/row_model.h"
#include "ui/look/theme.h"

#include <QAbstractItemDelegate>

#include <cstdint>

class QStyle;

namespace kestor {

enum class TickAccess : std::uint8_t {
    editable,
    readOnly, ///< ticks stay as they are
    held,     ///< read-only, and drawn so
};

/// Paints the rows of a RowModel: tick box, badge, path and label on one line.
class RowDelegate final : public QAbstractItemDelegate {
    Q_OBJECT

public:
    RowDelegate(const RowModel &model, QObject *parent);

    void setTheme(const Theme &wanted) { theme = wanted; }
    void setTickAccess(TickAccess wanted) { access = wanted; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    /// Whether a click at `x` in a row is meant for its tick box.
    static bool isAtTickBox(int x);

private:
    void paintBackground(QPainter &painter, const QStyleOptionViewItem &option) const;
    void paintTick(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect, Tick tick) const;
    /// Paints the label at the right end of `rect` and returns its width with the gap before it.
    int paintLabel(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect, const PathRow &row) const;
    void paintPath(QPainter &painter, const QFont &font, const QRect &rect, const QString &path) const;

    const RowModel &rows;
    Theme theme{};
    TickAccess access = TickAccess::editable;
};

} // namespace kestor
