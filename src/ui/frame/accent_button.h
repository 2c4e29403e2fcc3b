#pragma once

#include <QPushButton>

namespace kestor {

/// The default button of a dialog or pane, in the accent color.
class AccentButton : public QPushButton {
public:
    explicit AccentButton(const QString &text, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void applyLook();
};

} // namespace kestor
