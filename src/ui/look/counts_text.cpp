#include "ui/look/counts_text.h"

#include <QLocale>

namespace kestor {

CountsText countsText(const LineChangeSummary &changes) {
    const QLocale locale;
    return {u'+' + locale.toString(changes.additions), u'−' + locale.toString(changes.deletions)};
}

} // namespace kestor
