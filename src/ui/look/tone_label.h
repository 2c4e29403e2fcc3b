#pragma once

#include "ui/look/theme.h"

#include <QLabel>

#include <cstdint>

namespace kestor {

/// What a text means, from which its color follows.
enum class Tone : std::uint8_t { plain, muted, success, failure };

QColor toneColor(Tone tone, const Theme &theme);

/// One line of plain text in a tone of the theme; it gives way by eliding, then its tooltip holds the whole.
class ToneLabel : public QLabel {
public:
    explicit ToneLabel(QWidget *parent = nullptr);
    ToneLabel(const QString &text, Tone tone, QWidget *parent = nullptr);

    void setTone(Tone tone);
    void setElideMode(Qt::TextElideMode mode);
    /// The user can select and copy the text, which is not elided while it has the focus.
    void makeSelectable();
    /// The width of the whole text.
    int wantedWidth() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Tone shownTone = Tone::plain;
    Qt::TextElideMode elideMode = Qt::ElideNone;
};

} // namespace kestor
