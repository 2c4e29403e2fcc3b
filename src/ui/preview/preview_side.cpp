#include "ui/preview/preview_side.h"

#include "ui/look/metrics.h"
#include "ui/look/placeholder.h"
#include "ui/preview/audio_view.h"
#include "ui/preview/font_view.h"
#include "ui/preview/image_view.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int leastHeadHeight = 32;
constexpr double radius = 4;

} // namespace

PreviewSide::PreviewSide(Side shownSide, QWidget *parent)
    : QWidget(parent), side(shownSide), theme(themeFor(palette())), stack(new QStackedWidget(this)),
      placeholder(new Placeholder), image(new ImageView), font(new FontView) {
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(stack);
    layout->setContentsMargins(inside());
    for (QWidget *const part :
         {static_cast<QWidget *>(placeholder), static_cast<QWidget *>(image), static_cast<QWidget *>(font)})
        stack->addWidget(part);
    setMinimumHeight(2 * leastHeadHeight);
}

int PreviewSide::headHeight() const {
    return qMax(leastHeadHeight, QFontMetrics(QWidget::font()).height() + paneEdge);
}

QMargins PreviewSide::inside() const {
    return {1, headHeight(), 1, 2};
}

QString PreviewSide::title() const {
    return side == Side::before ? u"− Before"_s : u"+ After"_s;
}

AudioView &PreviewSide::audioView() {
    if (audio == nullptr) {
        audio = new AudioView(this);
        stack->addWidget(audio);
    }
    return *audio;
}

/// The widget that shows it, with the version in it.
QWidget *PreviewSide::widgetFor(const PreviewVersion &version) {
    if (!version.isShown()) {
        placeholder->setText({.explanation = missingText(version)});
        return placeholder;
    }
    switch (version.kind) {
    case DiffPreviewKind::font:
        font->setLines(version.picture);
        return font;
    case DiffPreviewKind::audio:
        return &audioView();
    default:
        image->setImage(version.image, version.picture);
        return image;
    }
}

void PreviewSide::showVersion(const PreviewVersion &version, const QString &path) {
    silence();
    QWidget *const shown = widgetFor(version);
    headText = versionText(version);
    const QString spoken = side == Side::before ? u"Before"_s : u"After"_s;
    shown->setAccessibleName(u"%1: %2, %3"_s.arg(spoken, path, version.isShown() ? headText : missingText(version)));
    stack->setCurrentWidget(shown);
    setFocusProxy(shown);
    if (shown != image)
        image->setImage({}, {});
    if (audio != nullptr && shown == audio)
        audio->open(version.sound, path);
    update();
}

void PreviewSide::showEmpty() {
    silence();
    headText.clear();
    placeholder->setText({});
    stack->setCurrentWidget(placeholder);
    image->setImage({}, {});
    update();
}

void PreviewSide::silence() {
    if (audio != nullptr)
        audio->close();
}

QSize PreviewSide::imageBox() const {
    return ImageView::roomIn(size().shrunkBy(inside())) * devicePixelRatioF();
}

void PreviewSide::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        theme = themeFor(palette());
    if (event->type() == QEvent::FontChange)
        layout()->setContentsMargins(inside());
}

void PreviewSide::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath frame;
    frame.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    QPainterPath head;
    head.addRect(0, 0, width(), headHeight());
    painter.fillPath(frame, theme.base);
    painter.fillPath(frame & head, theme.alternate);
    painter.fillRect(0, headHeight() - 1, width(), 1, theme.separator);
    painter.strokePath(frame, theme.separator);

    const QRect text(paneEdge + 1, 0, width() - 2 * (paneEdge + 1), headHeight());
    painter.setFont(boldFont(QWidget::font()));
    painter.setPen(side == Side::before ? theme.delText : theme.addText);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, title());
    const int titleWidth = painter.fontMetrics().horizontalAdvance(title());
    painter.setFont(smallFont(QWidget::font()));
    painter.setPen(theme.muted);
    const QRect rest = text.adjusted(titleWidth + gap, 0, 0, 0);
    painter.drawText(rest, Qt::AlignVCenter | Qt::AlignRight,
                     painter.fontMetrics().elidedText(headText, Qt::ElideLeft, rest.width()));
}

} // namespace kestor
