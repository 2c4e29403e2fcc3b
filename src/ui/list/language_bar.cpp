#include "ui/list/language_bar.h"

#include "ui/list/language_texts.h"
#include "ui/look/theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int barSide = 16;
constexpr double radius = 3.5;
constexpr int segmentGap = 1;
/// A pixel of color and the gap behind it.
constexpr int leastSegment = 2;

/// How many of the first languages there is room for.
qsizetype visibleLanguages(const QList<LanguageDistributionEntry> &shares, int width) {
    double sum = 0;
    for (qsizetype entry = 0; entry < shares.size(); ++entry) {
        const auto bytes = static_cast<double>(shares.at(entry).bytes);
        sum += bytes;
        if (bytes <= 0 || bytes * width < leastSegment * sum)
            return entry;
    }
    return shares.size();
}

} // namespace

QList<LanguageSegment> languageSegments(const QList<LanguageDistributionEntry> &shares, int width) {
    const QList<LanguageDistributionEntry> visible = shares.first(visibleLanguages(shares, width));
    const auto total = static_cast<double>(totalBytes(visible));
    QList<LanguageSegment> segments;
    double sum = 0;
    int left = 0;
    for (int entry = 0; entry < visible.size(); ++entry) {
        sum += static_cast<double>(visible.at(entry).bytes);
        const int end = qRound(width * sum / total);
        const int gapBehind = entry + 1 < visible.size() ? segmentGap : 0;
        segments.append({entry, left, end - left - gapBehind});
        left = end;
    }
    return segments;
}

LanguageBar::LanguageBar(QWidget *parent) : QWidget(parent) {
    setFixedHeight(barSide);
    setAccessibleName(tr("Shares of the languages"));
}

void LanguageBar::setShares(const QList<LanguageDistributionEntry> &published) {
    shares = published;
    setAccessibleDescription(languagesText(shares));
    update();
}

bool LanguageBar::event(QEvent *event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(), textAt(help->pos().x()), this);
    return true;
}

QString LanguageBar::textAt(int x) const {
    const QList<LanguageSegment> segments = languageSegments(shares, width());
    const auto covers = [x](const LanguageSegment &segment) {
        return x >= segment.left && x <= segment.left + segment.width;
    };
    const auto found = std::ranges::find_if(segments, covers);
    if (found == segments.end())
        return {};
    const LanguageDistributionEntry &entry = shares.at(found->entry);
    return entry.name + u", "_s + shareText(entry.bytes, totalBytes(shares));
}

void LanguageBar::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath outline;
    outline.addRoundedRect(frame, radius, radius);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(outline);
    painter.fillRect(rect(), theme.base);
    for (const LanguageSegment &segment : languageSegments(shares, width())) {
        const LanguageDistributionEntry &entry = shares.at(segment.entry);
        painter.fillRect(segment.left, 0, segment.width, height(), languageColor(entry.name, entry.colorHex));
    }
    painter.setClipping(false);
    painter.strokePath(outline, theme.outline);
}

} // namespace kestor
