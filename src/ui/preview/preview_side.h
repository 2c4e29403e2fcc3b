#pragma once

#include "ui/look/theme.h"
#include "ui/preview/preview_version.h"

#include <QWidget>

#include <cstdint>

class QStackedWidget;

namespace kestor {

class AudioView;
class FontView;
class ImageView;
class Placeholder;

enum class Side : std::uint8_t { before, after };

/// One version of a previewed file: a frame with a head, and the version in it.
class PreviewSide final : public QWidget {
    Q_OBJECT

public:
    explicit PreviewSide(Side shownSide, QWidget *parent = nullptr);

    /// `path` names the file for those who cannot see it.
    void showVersion(const PreviewVersion &version, const QString &path);
    /// The head alone, until the version is decoded.
    void showEmpty();
    /// Stops what is playing.
    void silence();
    /// The room for an image, in device pixels.
    QSize imageBox() const;
    ImageView &imageView() { return *image; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    int headHeight() const;
    /// What the head and the rounded frame leave.
    QMargins inside() const;
    QString title() const;
    QWidget *widgetFor(const PreviewVersion &version);
    AudioView &audioView();

    Side side;
    Theme theme;
    QString headText{};
    QStackedWidget *stack;
    Placeholder *placeholder;
    ImageView *image;
    FontView *font;
    AudioView *audio = nullptr; ///< made when there is something to be heard
};

} // namespace kestor
