#include "ui/list/revision_columns.h"

#include "ui/look/metrics.h"

namespace kestor {

namespace {

constexpr int leastWidth = 520;
constexpr int revisionWidth = 64;
constexpr int authorWidth = 96;
constexpr int dateWidth = 128;
constexpr int columnGap = 12;

} // namespace

bool hasRoomForColumns(int width, const QFont &font) {
    return width >= scaledWidth(leastWidth, font);
}

RevisionColumns revisionColumns(const QRect &row, const QFont &font) {
    const auto column = [&row](int left, int end) {
        return QRect(left, row.top(), end - left, row.height());
    };
    const int revision = row.left() + paneEdge;
    const int revisionEnd = revision + scaledWidth(revisionWidth, font);
    const int dateEnd = row.left() + row.width() - paneEdge;
    const int date = dateEnd - scaledWidth(dateWidth, font);
    const int authorEnd = date - columnGap;
    const int author = authorEnd - scaledWidth(authorWidth, font);
    return {column(revision, revisionEnd), column(revisionEnd + columnGap, author - columnGap),
            column(author, authorEnd), column(date, dateEnd)};
}

} // namespace kestor
