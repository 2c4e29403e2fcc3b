#pragma once

#include <QColor>
#include <QString>

namespace kestor {

/// What a row of languages says.
struct LanguageRow {
    QColor color{};
    QString name{};
    QString size{};
    QString share{}; ///< "48.2%"
};

/// The row as it is read aloud: "C++, 1.8 MB, 48.2%".
inline QString accessibleText(const LanguageRow &row) {
    return row.name + QStringLiteral(", ") + row.size + QStringLiteral(", ") + row.share;
}

} // namespace kestor
