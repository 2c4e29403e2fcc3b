#pragma once

#include <QTimer>
#include <QWidget>

namespace kestor {

class ToneLabel;

/// Whether the platform lets things move.
bool animationsWanted(const QWidget &widget);

/// A turning arc; it stands still where the platform asks for that.
class Spinner final : public QWidget {
public:
    explicit Spinner(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QTimer timer{};
    int degrees = 0;
};

/// What is being done, above the content near its lower edge. Takes no focus and lets clicks through.
class BusyCard final : public QWidget {
    Q_OBJECT

public:
    /// Lies over `area` and follows its size.
    explicit BusyCard(QWidget *area);

    void setMessage(const QString &message);
    void setSeconds(int seconds);
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void place();

    ToneLabel *message;
    ToneLabel *seconds;
};

/// A light of two pixels that runs along the lower edge of `strip` while a command runs.
class BusyLine final : public QWidget {
    Q_OBJECT

public:
    explicit BusyLine(QWidget *strip);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void place();

    QTimer timer{};
    double position = 0.4; ///< of the light's middle, in widths
};

} // namespace kestor
