#pragma once

#include <QPushButton>

#include <cstdint>

namespace kestor {

/// The default button of a dialog or pane: filled with the accent color, which a style would mix with its own. Room for
/// the focus frame surrounds it.
class AccentButton : public QPushButton {
public:
    enum class Look : std::uint8_t {
        ready,
        held, ///< drawn as disabled; it can still have the focus
    };
    /// Between the button and the edge of the widget.
    static constexpr int frameRoom = 3;

    explicit AccentButton(const QString &text, QWidget *parent = nullptr);

    void setLook(Look wanted);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool isReady() const { return isEnabled() && look == Look::ready; }
    /// Paints the button without its text and leaves the painter with the color of that.
    void paintGround(QPainter &painter) const;

private:
    Look look = Look::ready;
};

} // namespace kestor
