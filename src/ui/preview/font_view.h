#pragma once

#include <QImage>
#include <QWidget>

namespace kestor {

/// The sample lines of a font, in the window's text color.
class FontView final : public QWidget {
    Q_OBJECT

public:
    explicit FontView(QWidget *parent = nullptr);

    /// Black on transparent, with its device pixel ratio.
    void setLines(const QImage &newLines);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void applyLook();
    void paintLines();

    QImage lines;
    QImage colored;
};

} // namespace kestor
