#pragma once

#include <QString>

namespace kestor::testing {

/// One file as `svn diff` prints it: two hunks, the second one with a note. Thirteen rows.
QString oneFileDiff();
/// Three files, the second one without text.
QString threeFileDiff();
/// A diff of one file and one hunk of `lines` added lines.
QString longDiff(int lines);

} // namespace kestor::testing
