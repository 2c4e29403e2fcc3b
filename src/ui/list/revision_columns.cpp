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

bool hasRoomForColumns(int width) {
    return width >= leastWidth;
}

RevisionColumns revisionColumns(const QRect &row) {
    const auto column = [&row](int left, int width) {
        return QRect(left, row.top(), width, row.height());
    };
    const int revision = row.left() + paneEdge;
    const int message = revision + revisionWidth + columnGap;
    const int date = row.left() + row.width() - paneEdge - dateWidth;
    const int author = date - columnGap - authorWidth;
    return {column(revision, revisionWidth), column(message, author - columnGap - message), column(author, authorWidth),
            column(date, dateWidth)};
}

} // namespace kestor
