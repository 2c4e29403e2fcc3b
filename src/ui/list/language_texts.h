#pragma once

#include "model/language.h"

#include <QColor>
#include <QList>
#include <QString>

namespace kestor {

/// The color to paint a language in: `colorHex` as users type it, else one that the name always has.
QColor languageColor(const QString &name, const QString &colorHex);

/// The sum of all shares.
qint64 totalBytes(const QList<LanguageDistributionEntry> &shares);

/// "48.2%"; "0.0%" of nothing.
QString shareText(qint64 bytes, qint64 total);

/// One line for each language, its columns separated by tabs.
QString languagesText(const QList<LanguageDistributionEntry> &shares);

} // namespace kestor
