#pragma once

#include "ui/diff/text_columns.h"

#include <QStringView>

#include <vector>

namespace kestor {

/// Columns within lines of any length: lines above a few thousand characters are measured once, when the document is
/// made, so that painting the far end of a line of megabytes reads only what it shows.
class LongLines {
public:
    /// Measures `line` and returns the column after it. Lines are added in the order of the text.
    qint64 add(QStringView line);

    /// The column of the character at `index` of `line`, a line that was added or a short one.
    qint64 columnOf(QStringView line, qsizetype index) const;
    /// The last character of `line` that begins at or before `column`.
    ColumnPosition positionAt(QStringView line, qint64 column) const;

private:
    struct Checkpoint {
        const QChar *place;
        qint64 column;
    };
    ColumnPosition fromLastCheckpoint(QStringView line, const Checkpoint *end) const;

    std::vector<Checkpoint> checkpoints; ///< ascending by place; pointers into the text that the document keeps
};

} // namespace kestor
