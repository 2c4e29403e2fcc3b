#pragma once

#include <QPushButton>

namespace kestor {

/// The line of development of the project, to be switched by a press. Its text loses the middle where it lacks room.
class BranchButton final : public QPushButton {
public:
    explicit BranchButton(QWidget *parent);

    /// `text` is the URL or branch; "" while it is not known.
    void showBranch(const QString &text);
    /// The width of everything with the whole text.
    int wantedWidth() const;
    /// The width of everything without a text.
    static int leastWidth();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace kestor
