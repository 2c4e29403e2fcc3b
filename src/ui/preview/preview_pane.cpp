#include "ui/preview/preview_pane.h"

#include "ui/look/metrics.h"
#include "ui/look/theme.h"
#include "ui/preview/image_view.h"
#include "ui/preview/preview_side.h"
#include "ui/preview/worker_release.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace kestor {

namespace {

constexpr int stackedBelow = 560;
/// The version before stays that long while the next one is decoded.
constexpr std::chrono::milliseconds patienceTime{200};

/// The same bytes are most often the same piece of memory; comparing long ones would hold up the window.
bool isSame(const std::optional<QByteArray> &one, const std::optional<QByteArray> &other) {
    if (!one || !other)
        return one.has_value() == other.has_value();
    return one->size() == other->size() && one->constData() == other->constData();
}

bool isSame(const DiffPreview &one, const DiffPreview &other) {
    return one.kind == other.kind && one.path == other.path && isSame(one.oldData, other.oldData) &&
           isSame(one.newData, other.newData);
}

} // namespace

PreviewPane::PreviewPane(QWidget *parent)
    : QWidget(parent), sides(new QBoxLayout(QBoxLayout::LeftToRight)), before(new PreviewSide(Side::before, this)),
      after(new PreviewSide(Side::after, this)), bar(new ZoomBar(this)) {
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(paneEdge, paneEdge, paneEdge, paneEdge);
    layout->setSpacing(paneEdge);
    layout->addLayout(sides, 1);
    layout->addWidget(bar);
    sides->setSpacing(paneEdge);
    sides->addWidget(before, 1);
    sides->addWidget(after, 1);
    setFocusPolicy(Qt::StrongFocus);
    bar->hide();
    patience.setSingleShot(true);
    patience.setInterval(patienceTime);
    connect(&patience, &QTimer::timeout, this, &PreviewPane::showLate);
    connect(&loader, &PreviewLoader::loaded, this, &PreviewPane::showVersions);
    connect(bar, &ZoomBar::fitRequested, this, [this] {
        shownZoom.fits = true;
        updateFit();
    });
    connect(bar, &ZoomBar::factorRequested, this, [this](double factor) { setZoom({false, factor}); });
    for (PreviewSide *const side : {before, after})
        connect(&side->imageView(), &ImageView::zoomRequested, this, &PreviewPane::stepZoom);
    linkScrolling();
}

/// Both images show the same part.
void PreviewPane::linkScrolling() {
    const auto follow = [](QScrollBar *leader, QScrollBar *follower) {
        connect(leader, &QScrollBar::valueChanged, follower, [leader, follower](int value) {
            if (follower->maximum() == leader->maximum())
                follower->setValue(value);
        });
    };
    ImageView &left = before->imageView();
    ImageView &right = after->imageView();
    follow(left.horizontalScrollBar(), right.horizontalScrollBar());
    follow(right.horizontalScrollBar(), left.horizontalScrollBar());
    follow(left.verticalScrollBar(), right.verticalScrollBar());
    follow(right.verticalScrollBar(), left.verticalScrollBar());
}

PreviewPlace PreviewPane::place() const {
    return {before->imageBox().boundedTo(after->imageBox()), devicePixelRatioF()};
}

void PreviewPane::load(const DiffPreview &preview) {
    if (isSame(preview, wanted) && (isShown || loader.isLoading())) {
        if (isShown)
            emit ready();
        return;
    }
    releaseOnWorker(std::exchange(wanted, preview));
    isShown = false;
    bar->setVisible(preview.kind == DiffPreviewKind::image);
    layout()->activate();
    loader.load(preview, place());
    patience.start();
}

void PreviewPane::clear() {
    loader.cancel();
    patience.stop();
    releaseOnWorker(std::exchange(wanted, {}));
    isShown = false;
    imageSizes.clear();
    before->showEmpty();
    after->showEmpty();
}

void PreviewPane::showVersions(const PreviewVersion &oldVersion, const PreviewVersion &newVersion) {
    patience.stop();
    isShown = true;
    imageSizes = {oldVersion.image.size, newVersion.image.size};
    before->showVersion(oldVersion, wanted.path);
    after->showVersion(newVersion, wanted.path);
    setFocusProxy(newVersion.isShown() ? after : before);
    bar->setSentence(differenceText(oldVersion, newVersion));
    bar->setVisible(wanted.kind == DiffPreviewKind::image && (oldVersion.isShown() || newVersion.isShown()));
    layout()->activate();
    setZoom(shownZoom);
    updateFit();
    emit ready();
}

/// The picture of another file must not stand there for long.
void PreviewPane::showLate() {
    before->showEmpty();
    after->showEmpty();
    bar->setSentence({});
    emit ready();
}

void PreviewPane::setZoom(const Zoom &zoom) {
    shownZoom = zoom;
    before->imageView().setFactor(zoom.factor);
    after->imageView().setFactor(zoom.factor);
    bar->showZoom(zoom);
}

void PreviewPane::updateFit() {
    if (shownZoom.fits && isShown)
        setZoom({true, fitFactor(imageSizes, place().box)});
}

void PreviewPane::stepZoom(int steps) {
    setZoom({false, steppedFactor(shownZoom.factor, steps)});
}

void PreviewPane::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    sides->setDirection(width() < stackedBelow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    layout()->activate();
    updateFit();
}

void PreviewPane::paintEvent(QPaintEvent *event) {
    QPainter(this).fillRect(event->rect(), themeFor(palette()).base);
}

} // namespace kestor
