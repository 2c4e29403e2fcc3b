// A pair of images of 24 megapixels in the detail pane: how long it takes until both are decoded, scaled to fit and
// painted, against the bare decoding of the same bytes on as many threads (one for each image), and how long the event
// loop ever stands still meanwhile and afterwards. The two are measured in turn; the medians are compared.

#include "../support/measures.h"
#include "ui/preview/detail_pane.h"
#include "ui/preview/image_view.h"
#include "ui/preview/preview_pane.h"

#include <QApplication>
#include <QBuffer>
#include <QImageReader>
#include <QScrollBar>
#include <QThread>
#include <QtConcurrent>

#include <algorithm>
#include <functional>
#include <random>
#include <vector>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize imageSize24(6000, 4000);
constexpr int rounds = 9;

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// Soft shapes with grain, as a camera has it.
QByteArray photo(const char *format, int seed) {
    std::mt19937 random(static_cast<unsigned>(seed));
    QImage image(imageSize24, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grain = static_cast<int>(random() & 7U);
            line[x] = qRgb((x / 32 + grain) & 255, (y / 24 + grain) & 255, ((x + y) / 48 + seed * 16 + grain) & 255);
        }
    }
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 90);
    return data;
}

QImage decoded(const QByteArray &data) {
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader(&buffer).read();
}

double bareDecoding(const DiffPreview &preview) {
    QElapsedTimer timer;
    timer.start();
    const QList<QImage> images =
        QtConcurrent::blockingMapped(QList<QByteArray>{*preview.oldData, *preview.newData}, decoded);
    return images.first().isNull() ? 0 : milliseconds(timer);
}

struct Pause {
    double passed = 0; ///< on the clock, which other programs lengthen
    double own = 0;    ///< spent by the main thread itself

    void measure(const std::function<void()> &turn) {
        QElapsedTimer timer;
        timer.start();
        const double used = ownMilliseconds();
        turn();
        passed = std::max(passed, milliseconds(timer));
        own = std::max(own, ownMilliseconds() - used);
    }
    /// Processes events until `ended`.
    void measureUntil(const std::function<bool()> &ended) {
        while (!ended()) {
            measure([] { QCoreApplication::processEvents(); });
            QThread::usleep(500);
        }
    }
};

DiffSubject subjectOf(const QString &path) {
    return {path, WorkingCopyItem{.path = path, .kind = SVNStatusKind::modified}};
}

/// Everything a user does with a shown pair.
void useImages(DetailPane &pane, Pause &pause) {
    ImageView &view = *pane.findChild<ImageView *>();
    const auto settle = [&pause] {
        QElapsedTimer timer;
        timer.start();
        pause.measureUntil([&timer] { return timer.elapsed() > 150; });
    };
    for (const int steps : {1, 1, -1}) {
        pause.measure([&] { emit view.zoomRequested(steps); });
        settle();
    }
    pause.measure([&] { view.horizontalScrollBar()->setValue(500); });
    settle();
    for (const QSize size : {QSize(820, 600), QSize(900, 700)}) {
        pause.measure([&] { pane.resize(size); });
        settle();
    }
}

void run(const char *format) {
    const QString name = QString::fromLatin1(format);
    const QString path = u"photo."_s + name.toLower();
    const DiffPreview preview{DiffPreviewKind::image, path, {}, {}, photo(format, 1), photo(format, 2)};
    DetailPane pane;
    pane.resize(900, 700);
    pane.show();
    std::vector<double> bare;
    std::vector<double> shown;
    Pause pause;
    for (int round = 0; round < rounds; ++round) {
        bare.push_back(bareDecoding(preview));
        QElapsedTimer timer;
        timer.start();
        pause.measure([&] { pane.showFile(subjectOf(path), u"Binary files differ\n"_s, preview); });
        const PreviewPane &previews = *pane.findChild<PreviewPane *>();
        pause.measureUntil([&previews] { return !previews.isLoading(); });
        pause.measure([&pane] { pane.repaint(); });
        shown.push_back(milliseconds(timer));
        useImages(pane, pause);
        pause.measure([&pane] { pane.showNothing(u"(select a changed file)"_s); });
    }
    const QByteArray pair = QByteArray(format) + " pair";
    report(pair + ": chosen to painted", median(shown), "ms", median(bare));
    report(pair + ": longest pause", pause.passed, "ms");
    report(pair + ": longest pause, own time", pause.own, "ms");
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    for (const char *const format : {"PNG", "JPG"})
        kestor::run(format);
}
