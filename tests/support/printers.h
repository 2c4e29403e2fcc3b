#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

// GoogleTest finds these in the global namespace, where Qt's types live.

inline void PrintTo(const QString &text, std::ostream *out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList &texts, std::ostream *out) {
    *out << '[';
    for (const QString &text : texts)
        *out << '"' << text.toStdString() << "\" ";
    *out << ']';
}
