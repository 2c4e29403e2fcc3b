#pragma once

#include "model/command_output.h"

#include <QWidget>

namespace kestor {

class IconLabel;
class PlainTextView;
class ToneLabel;

/// What a command printed, below the page of the tab. It never takes the focus by itself.
class OutputSheet final : public QWidget {
    Q_OBJECT

public:
    static constexpr int leastHeight = 96;

    explicit OutputSheet(QWidget *parent);

    void setOutput(const CommandOutput &output);
    PlainTextView &text() { return *view; }
    /// With which all of the text would be seen.
    int wantedHeight() const;

signals:
    void closeRequested();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *head();
    void copyAll() const;

    CommandOutput output{};
    ToneLabel *title = nullptr;
    IconLabel *sign = nullptr;
    ToneLabel *status = nullptr;
    ToneLabel *commandLine = nullptr;
    PlainTextView *view;
};

} // namespace kestor
