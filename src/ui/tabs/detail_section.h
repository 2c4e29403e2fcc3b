#pragma once

#include <QWidget>

class QBoxLayout;

namespace kestor {

/// A part of a detail: a bold heading with buttons at its end, what it is about, and a line below.
class DetailSection : public QWidget {
    Q_OBJECT

public:
    explicit DetailSection(const QString &title, QWidget *parent = nullptr);

protected:
    void addToHeading(QWidget *part);
    QBoxLayout &body() { return *parts; }

    void paintEvent(QPaintEvent *event) override;

private:
    QBoxLayout *parts;
    QBoxLayout *heading;
};

} // namespace kestor
