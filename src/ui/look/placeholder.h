#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>

class QLabel;

namespace kestor {

class HeldButton;

/// What an empty pane says; empty texts are left out.
struct PlaceholderText {
    QString heading{};
    QString explanation{};
    QString button{};
    QIcon icon{}; ///< of the button
};

/// The empty state of a pane: a heading, an explanation and perhaps a button, in the middle. It shows the focus that it
/// has, or that its focus proxy below it has.
class Placeholder final : public QWidget {
    Q_OBJECT

public:
    explicit Placeholder(QWidget *parent = nullptr);
    explicit Placeholder(const PlaceholderText &text, QWidget *parent = nullptr);

    void setText(const PlaceholderText &text);
    /// A held button is drawn as disabled; a click on it is still announced.
    void setButtonHeld(bool held);

signals:
    void buttonClicked();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void applyLook();

    QLabel *heading;
    QLabel *explanation;
    HeldButton *button;
};

} // namespace kestor
