#pragma once

#include <QWidget>

#include <cstdint>

namespace kestor {

enum class BarLine : std::uint8_t { above, below };

/// A strip beside a list or a diff, set off from it by a line.
class Bar : public QWidget {
    Q_OBJECT

public:
    explicit Bar(BarLine separator, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    BarLine line;
};

} // namespace kestor
