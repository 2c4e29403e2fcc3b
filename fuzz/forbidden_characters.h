#pragma once

#include <QByteArrayView>

#include <algorithm>

namespace kestor::fuzz {

/// Whether the document holds characters that XML forbids. The reader of what svn prints takes them as they stand, but
/// expat, which it leaves unusual documents to, ends there.
inline bool holdsForbidden(QByteArrayView document) {
    const auto isControl = [](char c) {
        return c > 0 && c < ' ' && c != '\t' && c != '\n' && c != '\r';
    };
    return std::any_of(document.begin(), document.end(), isControl) || document.contains("\xEF\xBF\xBE") ||
           document.contains("\xEF\xBF\xBF");
}

} // namespace kestor::fuzz
