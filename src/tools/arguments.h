#pragma once

#include <QAnyStringView>
#include <QStringList>

namespace kestor {

/// An argument vector of the given texts. Stands for a braced list, which GCC 12 rejects inside an await statement.
template <typename... Texts>
QStringList args(const Texts &...texts) {
    QStringList list;
    list.reserve(static_cast<qsizetype>(sizeof...(texts)));
    (list.append(QAnyStringView(texts).toString()), ...);
    return list;
}

} // namespace kestor
