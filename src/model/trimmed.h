#pragma once

#include <QString>
#include <QStringView>

namespace kestor {

/// `text` without the line breaks (LF, CR, VT, FF, NEL, LS, PS) at both ends; blanks and tabs stay.
QStringView withoutOuterLineBreaks(QStringView text);

/// A commit message as lists show it: trimmed of white space, "(no message)" when nothing is left.
QString messageSummary(QStringView message);

} // namespace kestor
