#pragma once

#include <QSettings>

namespace kestor {

/// Puts what was stored in `settings` on disk. False when not all of it arrived there, as on a full disk: the file is
/// then as it was before. Main thread only.
bool writeToDisk(const QSettings &settings);

} // namespace kestor
