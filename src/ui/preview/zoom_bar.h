#pragma once

#include <QWidget>

class QToolButton;

namespace kestor {

class SegmentedSwitch;
class ToneLabel;

/// How large images are shown.
struct Zoom {
    bool fits = true;  ///< as large as there is room
    double factor = 1; ///< device pixels for each pixel of the image; the one that fits when it fits

    friend bool operator==(const Zoom &, const Zoom &) = default;
};

/// The next larger (`steps` above zero) or smaller factor of a fixed row.
double steppedFactor(double factor, int steps);

/// Below a pair of images: a sentence about their difference, Fit and 100 %, and the scale.
class ZoomBar final : public QWidget {
    Q_OBJECT

public:
    explicit ZoomBar(QWidget *parent = nullptr);

    void setSentence(const QString &text);
    void showZoom(const Zoom &zoom);

signals:
    void fitRequested();
    void factorRequested(double factor);

protected:
    void changeEvent(QEvent *event) override;

private:
    void fitPercent();

    ToneLabel *sentence;
    SegmentedSwitch *modes;
    QToolButton *smaller;
    ToneLabel *percent;
    QToolButton *larger;
    double shownFactor = 1;
};

} // namespace kestor
