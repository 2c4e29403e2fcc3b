#pragma once

#include <QObject>

namespace kestor {

/// Tells the process that started this one what has been painted: it writes `windowPainted` to a file descriptor once
/// a window has been handed to the screen, and `listPainted` once a long list has. Main thread only.
class PaintedSignal final : public QObject {
    Q_OBJECT

public:
    static constexpr char windowPainted = 'w';
    static constexpr char listPainted = 'l';

    explicit PaintedSignal(int fileDescriptor);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Writes the letter when the painting that is going on has ended; each letter once.
    void announce(char letter);

    int descriptor;
    QByteArray announced{};
};

} // namespace kestor
