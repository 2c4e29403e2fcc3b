#pragma once

#include "ui/list/row_model.h"
#include "ui/look/theme.h"

#include <QAbstractItemDelegate>

#include <cstdint>

class QStyle;

namespace kestor {

class RowTextPainter;

enum class TickAccess : std::uint8_t {
    editable,
    readOnly, ///< ticks stay as they are
    held,     ///< read-only, and drawn so
};

/// Rows of languages are no wider, so that the eye finds from a name to its share.
inline constexpr int languageRowWidth = 640;

/// Paints the rows of a RowModel: paths with tick box, badge and label, revisions on one or two lines, or languages.
class RowDelegate final : public QAbstractItemDelegate {
    Q_OBJECT

public:
    RowDelegate(const RowModel &model, QObject *parent);

    void setTheme(const Theme &wanted) { theme = wanted; }
    void setTickAccess(TickAccess wanted) { access = wanted; }
    /// The height of every row of a list of that width.
    int rowHeight(const QFont &font, int width) const;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    /// Whether a click at `x` in a row is meant for its tick box.
    static bool isAtTickBox(int x);

private:
    bool hasColumns(const QFont &font, int width) const;
    void paintBackground(QPainter &painter, const QStyleOptionViewItem &option) const;
    void paintRow(QPainter &painter, const QStyleOptionViewItem &option, const PathRow &row) const;
    void paintRow(QPainter &painter, const QStyleOptionViewItem &option, const RevisionRow &row) const;
    void paintRow(QPainter &painter, const QStyleOptionViewItem &option, const LanguageRow &row) const;
    void paintTick(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect, Tick tick) const;
    /// Paints the label at the right end of `rect` and returns its width.
    int paintLabel(QPainter &painter, const QFont &font, const QRect &rect, const PathRow &row) const;
    static void paintTwoLines(RowTextPainter &texts, const QFont &font, const QRect &rect, const RevisionRow &row);
    static void paintColumns(RowTextPainter &texts, const QFont &font, const QRect &rect, const RevisionRow &row);

    const RowModel &rows;
    Theme theme{};
    TickAccess access = TickAccess::editable;
};

} // namespace kestor
