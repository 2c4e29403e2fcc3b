#include "ui/preview/image_shrinking.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace kestor {

namespace {

constexpr quint32 wholeWeight = 256;

/// The pixels of the source, in one direction, that one pixel of the target covers; those at the ends in part.
struct Span {
    int first = 0;
    int last = 0;
    quint32 firstWeight = wholeWeight;
    quint32 lastWeight = 0; ///< 0 when `last` is `first`

    quint32 weight() const {
        return firstWeight + lastWeight + wholeWeight * static_cast<quint32>(std::max(0, last - first - 1));
    }
    quint32 weightOf(int pixel) const {
        return pixel == first ? firstWeight : pixel == last ? lastWeight : wholeWeight;
    }
};

std::vector<Span> spans(int source, int target) {
    std::vector<Span> all(static_cast<std::size_t>(target));
    const double step = static_cast<double>(source) / target;
    for (int i = 0; i < target; ++i) {
        const double begin = i * step;
        const double end = std::min<double>(source, (i + 1) * step);
        Span &span = all[static_cast<std::size_t>(i)];
        span.first = std::min(source - 1, static_cast<int>(begin));
        span.last = std::max(span.first, static_cast<int>(std::ceil(end)) - 1);
        const auto weight = [](double part) {
            return static_cast<quint32>(std::lround(part * wholeWeight));
        };
        span.firstWeight = std::max(1U, weight(std::min(end, span.first + 1.0) - begin));
        span.lastWeight = span.last == span.first ? 0 : weight(end - span.last);
    }
    return all;
}

/// Sums of the four channels of weighted pixels, two in each number.
struct Sums {
    quint64 even = 0;
    quint64 odd = 0;

    /// Whole pixels, with a weight of one, summed up in halves of numbers as long as they hold the sums.
    void add(const QRgb *pixel, const QRgb *end) {
        constexpr std::ptrdiff_t mostAtOnce = 256;
        while (pixel < end) {
            const QRgb *const stop = pixel + std::min(end - pixel, mostAtOnce);
            quint32 evens = 0;
            quint32 odds = 0;
            for (; pixel != stop; ++pixel) {
                evens += *pixel & 0xFF00FFU;
                odds += *pixel >> 8 & 0xFF00FFU;
            }
            even += quint64{evens & 0xFFFFU} | quint64{evens >> 16} << 32;
            odd += quint64{odds & 0xFFFFU} | quint64{odds >> 16} << 32;
        }
    }
    void add(QRgb pixel, quint32 weight) {
        even += weight * (quint64{pixel & 0xFFU} | quint64{pixel >> 16 & 0xFFU} << 32);
        odd += weight * (quint64{pixel >> 8 & 0xFFU} | quint64{pixel >> 24} << 32);
    }
};

/// The channels of one line of the target, as far as it is summed up.
using Line = std::vector<float>;

void addRow(Line &line, const QRgb *row, const std::vector<Span> &columns, float weight) {
    float *sum = line.data();
    for (const Span &span : columns) {
        Sums inside;
        inside.add(row + span.first + 1, row + span.last);
        Sums sums{inside.even * wholeWeight, inside.odd * wholeWeight};
        sums.add(row[span.first], span.firstWeight);
        sums.add(row[span.last], span.lastWeight);
        const float part = weight / static_cast<float>(span.weight());
        *sum++ += part * static_cast<float>(static_cast<quint32>(sums.even));
        *sum++ += part * static_cast<float>(static_cast<quint32>(sums.odd));
        *sum++ += part * static_cast<float>(static_cast<quint32>(sums.even >> 32));
        *sum++ += part * static_cast<float>(static_cast<quint32>(sums.odd >> 32));
    }
}

void store(const Line &line, QRgb *row) {
    const auto channel = [](float value) {
        constexpr float half = 0.5F; // faster than lround, and no value is negative
        return static_cast<QRgb>(value + half);
    };
    for (std::size_t i = 0; i < line.size(); i += 4)
        *row++ = channel(line[i]) | channel(line[i + 1]) << 8 | channel(line[i + 2]) << 16 | channel(line[i + 3]) << 24;
}

QImage premultiplied(QImage image) {
    for (int y = 0; y < image.height(); ++y) {
        auto *const row = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::transform(row, row + image.width(), row, [](QRgb pixel) { return qPremultiply(pixel); });
    }
    image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    return image;
}

} // namespace

QImage paintable(QImage image) {
    if (image.format() == QImage::Format_ARGB32)
        return premultiplied(std::move(image));
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    return image;
}

QImage shrunk(const QImage &image, QSize target) {
    const QSize size = target.boundedTo(image.size());
    QImage result(size, image.format());
    if (result.isNull())
        return result;
    const std::vector<Span> columns = spans(image.width(), size.width());
    const std::vector<Span> rows = spans(image.height(), size.height());
    Line line(columns.size() * 4);
    for (int y = 0; y < size.height(); ++y) {
        const Span &span = rows[static_cast<std::size_t>(y)];
        std::ranges::fill(line, 0.0F);
        for (int from = span.first; from <= span.last; ++from) {
            const float weight = static_cast<float>(span.weightOf(from)) / static_cast<float>(span.weight());
            addRow(line, reinterpret_cast<const QRgb *>(image.constScanLine(from)), columns, weight);
        }
        store(line, reinterpret_cast<QRgb *>(result.scanLine(y)));
    }
    return result;
}

} // namespace kestor
