#pragma once

#include <QString>
#include <QWidget>

class QLabel;
class QPushButton;

namespace kestor {

/// What an empty pane says; empty texts are left out.
struct PlaceholderText {
    QString heading{};
    QString explanation{};
    QString button{};
};

/// The empty state of a pane: a heading, an explanation and perhaps a button, in the middle.
class Placeholder final : public QWidget {
    Q_OBJECT

public:
    explicit Placeholder(QWidget *parent = nullptr);
    explicit Placeholder(const PlaceholderText &text, QWidget *parent = nullptr);

    void setText(const PlaceholderText &text);

signals:
    void buttonClicked();

protected:
    void changeEvent(QEvent *event) override;

private:
    void applyLook();

    QLabel *heading;
    QLabel *explanation;
    QPushButton *button;
};

} // namespace kestor
