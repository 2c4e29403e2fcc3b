#pragma once

#include <QWidget>

class QAbstractButton;
class QButtonGroup;

namespace kestor {

/// A few choices side by side in one frame, of which at most one is taken. Arrow keys walk through them.
class SegmentedSwitch final : public QWidget {
    Q_OBJECT

public:
    /// `name` is what screen readers say before the choice.
    SegmentedSwitch(const QStringList &texts, const QString &name, QWidget *parent = nullptr);

    /// -1 to take none.
    void setCurrent(int index);

signals:
    /// By the user only.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QButtonGroup *group;
};

} // namespace kestor
