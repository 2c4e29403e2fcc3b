#pragma once

#include <QPushButton>

namespace kestor {

/// The default button of a dialog or pane: filled with the accent color, which a style would mix with its own. Room for
/// the focus frame surrounds it.
class AccentButton : public QPushButton {
public:
    explicit AccentButton(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    /// Paints the button without its text and leaves the painter with the color of that.
    void paintGround(QPainter &painter) const;
};

} // namespace kestor
