#pragma once

#include "model/diff.h"
#include "model/line_change_summary.h"

#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace kestor {

/// `text` without the carriage returns before line feeds, of which files converted twice have several; the same shared
/// text when there is none.
QString withLineFeeds(QString text);

/// Added and removed lines over all files of `diff`.
LineChangeSummary lineChanges(const ParsedDiff &diff);

/// The same for the bytes of a printed diff, with line ends of either kind. Makes no records: for long diffs of which
/// only the sum is shown.
LineChangeSummary diffLineChanges(QByteArrayView diff);

/// Adds up the rows of `git log --numstat --format=`; "-" of a binary file counts nothing.
LineChangeSummary numstatLineChanges(QStringView text);

} // namespace kestor
