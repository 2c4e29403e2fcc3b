#pragma once

#include "model/command_output.h"

#include <QWidget>

class QStackedLayout;

namespace kestor {

class Bar;
class IconLabel;
class LanguageView;
class PlainTextView;
class ToneLabel;

/// What a command printed, or the languages of a project, below the page of the tab. It never takes the focus by
/// itself.
class OutputSheet final : public QWidget {
    Q_OBJECT

public:
    static constexpr int leastHeight = 96;

    explicit OutputSheet(QWidget *parent);

    void setOutput(const CommandOutput &output);
    PlainTextView &text() { return *view; }
    /// What takes the focus: the text, or the rows of the languages.
    QWidget &pane();
    /// With which all of it would be seen.
    int wantedHeight() const;

signals:
    void closeRequested();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *head();
    void showCommand();
    void showLanguages();
    void copyAll() const;

    CommandOutput output{};
    Bar *bar = nullptr;
    ToneLabel *title = nullptr;
    IconLabel *sign = nullptr;
    ToneLabel *status = nullptr;
    ToneLabel *commandLine = nullptr;
    PlainTextView *view;
    LanguageView *languages;
    QStackedLayout *stack;
};

} // namespace kestor
