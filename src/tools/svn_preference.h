#pragma once

#include <QAnyStringView>
#include <QSettings>
#include <QString>

namespace kestor {

/// The key of the preference that holds the chosen `svn` executable.
inline constexpr QAnyStringView svnExecutablePathKey = u"KestorSVN.svnExecutablePath";

/// The chosen `svn` executable, "" when none is chosen.
inline QString preferredSVNPath(const QSettings &settings) {
    return settings.value(svnExecutablePathKey).toString();
}

} // namespace kestor
