#pragma once

#include <QString>

class QLocale;

namespace kestor {

/// "34 revisions", "1 revision".
QString revisionCountText(qsizetype count, const QLocale &locale);
/// "1,284 commits", "1 commit".
QString commitCountText(qsizetype count, const QLocale &locale);
/// "5 items", "1 item".
QString itemCountText(qsizetype count, const QLocale &locale);

} // namespace kestor
