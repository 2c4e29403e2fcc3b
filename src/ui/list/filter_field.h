#pragma once

#include <QLineEdit>

namespace kestor {

class ToneLabel;

/// The filter of a list: search icon, text, "3 of 18" and a clear button.
class FilterField final : public QLineEdit {
    Q_OBJECT

public:
    FilterField(const QString &placeholder, QWidget *parent = nullptr);

    /// Shows how many of all rows match; nothing while the field is empty.
    void setCounts(int matching, int all);

signals:
    /// Down: on to the first match. Return emits `returnPressed`.
    void firstMatchRequested();
    /// Esc in an empty field: back to the list.
    void leaveRequested();
    /// The user gave the focus to another part of the window.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void placeCount();
    void applyLook();

    ToneLabel *count;
    QAction *clearing;
};

} // namespace kestor
