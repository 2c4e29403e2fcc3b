#include "ui/preview/audio_view.h"

#include "ui/look/derived_font.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QPainter>
#include <QSlider>
#include <QVBoxLayout>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int edge = 16;

class PlayButton final : public QAbstractButton {
public:
    explicit PlayButton(QWidget *parent) : QAbstractButton(parent) {
        setFixedSize(side + 4, side + 4);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void paintEvent(QPaintEvent *) override {
        const Theme theme = themeFor(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF circle = QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5);
        painter.setPen(theme.buttonLine);
        painter.setBrush(isDown() ? theme.selectionIdle : theme.button);
        painter.drawEllipse(circle);
        if (hasFocus()) {
            painter.setPen(QPen(theme.focusRing, 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawEllipse(circle.adjusted(-1, -1, 1, 1));
        }
        QRect place(0, 0, 16, 16);
        place.moveCenter(rect().center());
        icon().paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }

private:
    static constexpr int side = 36;
};

QString clockText(qint64 seconds) {
    const qint64 minutes = seconds / 60;
    const QString rest = u":%1"_s.arg(seconds % 60, 2, 10, QChar(u'0'));
    if (minutes < 60)
        return QString::number(minutes) + rest;
    return u"%1:%2"_s.arg(minutes / 60).arg(minutes % 60, 2, 10, QChar(u'0')) + rest;
}

QString noteText(AudioState state) {
    switch (state) {
    case AudioState::noDevice:
        return u"No audio device."_s;
    case AudioState::failed:
        return u"This file cannot be shown."_s;
    default:
        return {};
    }
}

} // namespace

QString playingTimeText(qint64 position, qint64 length) {
    return u"%1 / %2"_s.arg(clockText(position / 1000), clockText((length + 500) / 1000));
}

AudioView::AudioView(QWidget *parent, AudioBackendFactory makeBackend)
    : QWidget(parent), player(std::move(makeBackend)), button(new PlayButton(this)),
      position(new QSlider(Qt::Horizontal, this)), time(new QLabel(this)), note(new QLabel(this)),
      controls(new QWidget(this)) {
    auto *const row = new QHBoxLayout(controls);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(paneEdge);
    row->addWidget(button);
    row->addWidget(position, 1);
    row->addWidget(time);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setSpacing(gap);
    layout->addStretch();
    layout->addWidget(controls);
    layout->addWidget(note);
    layout->addStretch();
    note->setAlignment(Qt::AlignCenter);
    note->setWordWrap(true);
    position->setAccessibleName(u"Position"_s);
    setFocusProxy(button);
    connect(&player, &AudioPlayer::statusChanged, this, &AudioView::showStatus);
    connect(button, &QAbstractButton::clicked, this, &AudioView::togglePlaying);
    connect(position, &QSlider::actionTriggered, this, [this] { player.seek(position->sliderPosition()); });
    setDerivedFont(*time, smallFont);
    applyLook();
    showStatus();
}

void AudioView::open(const QByteArray &sound, const QString &name) {
    player.open(sound, name);
}

void AudioView::togglePlaying() {
    if (player.status().state == AudioState::playing)
        player.pause();
    else
        player.play();
}

void AudioView::showStatus() {
    const AudioStatus &status = player.status();
    const bool playing = status.state == AudioState::playing;
    const bool playable = playing || status.state == AudioState::ready;
    button->setIcon(icon(playing ? Icon::pause : Icon::play));
    button->setAccessibleName(playing ? u"Pause"_s : u"Play"_s);
    button->setToolTip(button->accessibleName());
    button->setEnabled(playable);
    position->setEnabled(playable && status.length > 0);
    position->setMaximum(static_cast<int>(qMin<qint64>(status.length, INT_MAX)));
    if (!position->isSliderDown())
        position->setValue(static_cast<int>(qMin<qint64>(status.position, INT_MAX)));
    time->setText(playingTimeText(status.position, status.length));
    time->setVisible(status.state != AudioState::loading);
    controls->setVisible(status.state != AudioState::failed);
    note->setText(noteText(status.state));
    note->setVisible(!note->text().isEmpty());
}

void AudioView::applyLook() {
    QPalette mutedPalette = palette();
    mutedPalette.setColor(QPalette::WindowText, themeFor(palette()).muted);
    for (QLabel *const label : {time, note})
        label->setPalette(mutedPalette);
}

void AudioView::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyLook();
}

/// A sound that plays on could not be stopped from where the user is then.
void AudioView::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous() && player.status().state == AudioState::playing)
        player.pause();
}

} // namespace kestor
