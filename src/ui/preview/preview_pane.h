#pragma once

#include "model/diff_preview.h"
#include "ui/preview/preview_loader.h"
#include "ui/preview/zoom_bar.h"

#include <QTimer>
#include <QWidget>

class QBoxLayout;

namespace kestor {

class PreviewSide;

/// Both versions of an image, a font or a sound, side by side, or one above the other where there is little room. They
/// are decoded on workers; what was shown before stays until then, but not for long. Main thread only.
class PreviewPane final : public QWidget {
    Q_OBJECT

public:
    explicit PreviewPane(QWidget *parent = nullptr);

    /// Emits `ready` when the pane shows it. A preview that is shown already is shown at once.
    void load(const DiffPreview &preview);
    /// Forgets what is shown or loading.
    void clear();
    bool isLoading() const { return loader.isLoading(); }

signals:
    void ready();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showVersions(const PreviewVersion &before, const PreviewVersion &after);
    void showLate();
    void setZoom(const Zoom &zoom);
    void updateFit();
    void stepZoom(int steps);
    void linkScrolling();
    PreviewPlace place() const;

    PreviewLoader loader;
    QTimer patience{};
    DiffPreview wanted{};
    bool isShown = false; ///< `wanted` is what the sides show
    QList<QSize> imageSizes{};
    Zoom shownZoom{};
    QBoxLayout *sides;
    PreviewSide *before;
    PreviewSide *after;
    ZoomBar *bar;
};

} // namespace kestor
