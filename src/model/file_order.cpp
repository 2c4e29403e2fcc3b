#include "model/file_order.h"

#include <QLocale>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <string_view>

namespace kestor {

namespace {

/// Sort weights of the printable ASCII characters in the collator's own order; zero for all other characters. The
/// weights of digits follow each other; both cases of a letter share one.
constexpr std::array<char, 128> asciiWeights = [] {
    constexpr std::string_view order = " _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$0123456789abcdefghijklmnopqrstuvwxyz";
    std::array<char, 128> weights{};
    for (std::size_t i = 0; i < order.size(); ++i)
        weights[static_cast<unsigned char>(order[i])] = static_cast<char>(i + 1);
    for (std::size_t letter = 'A'; letter <= 'Z'; ++letter)
        weights[letter] = weights[letter - 'A' + 'a'];
    return weights;
}();

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

char weightOf(QChar c) {
    return c.unicode() < asciiWeights.size() ? asciiWeights[c.unicode()] : '\0';
}

/// Sort keys of texts of printable ASCII characters. Comparing them byte by byte gives the collator's order at a
/// fraction of its cost.
class AsciiKeys {
public:
    /// False when the order of `text` is left to the collator.
    bool append(QStringView text) {
        for (qsizetype i = 0; i < text.size();) {
            const qsizetype digits = isDigit(text[i]) ? digitCount(text.sliced(i)) : 0;
            if (weightOf(text[i]) == '\0' || digits > longestNumber)
                return false;
            if (digits == 0) {
                bytes.push_back(weightOf(text[i]));
            } else {
                appendNumber(text.sliced(i, digits));
            }
            i += std::max<qsizetype>(digits, 1);
        }
        ends.push_back(bytes.size());
        return true;
    }

    /// The eight bytes of the key from `depth` on, the first one highest; zeros follow the last byte of a key.
    std::uint64_t word(qsizetype position, std::size_t depth) const {
        const auto index = static_cast<std::size_t>(position);
        const std::size_t begin = (index == 0 ? 0 : ends[index - 1]) + depth;
        std::array<char, sizeof(std::uint64_t)> word{};
        if (begin < ends[index])
            std::memcpy(word.data(), bytes.data() + begin, std::min(word.size(), ends[index] - begin));
        return qFromBigEndian<std::uint64_t>(word.data());
    }

private:
    static constexpr qsizetype longestNumber = 100;

    static qsizetype digitCount(QStringView text) {
        return std::find_if_not(text.begin(), text.end(), isDigit) - text.begin();
    }

    /// A number stands where digits stand among the other characters; then the longer one is the greater one.
    void appendNumber(QStringView digits) {
        while (digits.size() > 1 && digits.front() == u'0')
            digits = digits.sliced(1);
        bytes.push_back(weightOf(u'0'));
        bytes.push_back(static_cast<char>(digits.size()));
        for (const QChar digit : digits)
            bytes.push_back(weightOf(digit));
    }

    std::vector<char> bytes;
    std::vector<std::size_t> ends;
};

std::optional<AsciiKeys> asciiKeys(const QStringList &texts) {
    AsciiKeys keys;
    const bool complete =
        std::all_of(texts.cbegin(), texts.cend(), [&](const QString &text) { return keys.append(text); });
    return complete ? std::optional(std::move(keys)) : std::nullopt;
}

/// Sorts by one word of the keys after another, and by a further one only where all before are the same.
std::vector<qsizetype> asciiOrder(const AsciiKeys &keys, qsizetype count) {
    struct Range {
        std::size_t begin;
        std::size_t end;
        std::size_t depth;
    };
    std::vector<std::pair<std::uint64_t, qsizetype>> sorted(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < sorted.size(); ++i)
        sorted[i].second = static_cast<qsizetype>(i);
    std::vector<Range> alike{{0, sorted.size(), 0}};
    while (!alike.empty()) {
        const Range range = alike.back();
        alike.pop_back();
        const auto end = sorted.begin() + static_cast<std::ptrdiff_t>(range.end);
        auto run = sorted.begin() + static_cast<std::ptrdiff_t>(range.begin);
        for (auto text = run; text != end; ++text)
            text->first = keys.word(text->second, range.depth);
        std::sort(run, end);
        while (run != end) {
            const std::uint64_t word = run->first;
            const auto runEnd = std::find_if(run, end, [word](const auto &text) { return text.first != word; });
            const bool goesOn = (word & 0xFF) != 0;
            if (goesOn && runEnd - run > 1)
                alike.push_back({static_cast<std::size_t>(run - sorted.begin()),
                                 static_cast<std::size_t>(runEnd - sorted.begin()), range.depth + sizeof(word)});
            run = runEnd;
        }
    }
    std::vector<qsizetype> positions;
    positions.reserve(sorted.size());
    for (const auto &text : sorted)
        positions.push_back(text.second);
    return positions;
}

std::vector<qsizetype> collatedOrder(const QStringList &texts, const QCollator &collator) {
    std::vector<QCollatorSortKey> keys;
    keys.reserve(static_cast<std::size_t>(texts.size()));
    for (const QString &text : texts)
        keys.push_back(collator.sortKey(text));
    std::vector<qsizetype> positions(keys.size());
    std::iota(positions.begin(), positions.end(), qsizetype{0});
    std::stable_sort(positions.begin(), positions.end(), [&keys](qsizetype a, qsizetype b) {
        return keys[static_cast<std::size_t>(a)].compare(keys[static_cast<std::size_t>(b)]) < 0;
    });
    return positions;
}

} // namespace

QCollator standardCollator() {
    // A collator of the C locale ignores numeric mode, so the locale is fixed rather than the user's.
    QCollator collator{QLocale(QLocale::English)};
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

std::vector<qsizetype> standardOrder(const QStringList &texts) {
    return StandardOrder().positions(texts);
}

std::vector<qsizetype> StandardOrder::positions(const QStringList &texts) {
    if (const std::optional<AsciiKeys> keys = asciiKeys(texts))
        return asciiOrder(*keys, texts.size());
    if (!collator)
        collator = standardCollator();
    return collatedOrder(texts, *collator);
}

} // namespace kestor
