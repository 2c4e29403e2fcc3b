#pragma once

#include <QDialog>
#include <QString>

#include <cstdint>

class QTextEdit;

namespace kestor {

/// A message with a warning sign: an alert, with "Copy" and "OK", or a confirmation, with "Continue" and "Cancel". The
/// message can be selected and scrolls when it is taller than 240 px.
class MessageDialog final : public QDialog {
    Q_OBJECT

public:
    enum class Purpose : std::uint8_t { alert, confirmation };

    MessageDialog(Purpose purpose, const QString &title, const QString &message, QWidget *parent);

private:
    QTextEdit *messageView();
    QWidget *buttons(Purpose purpose);

    QString message;
};

} // namespace kestor
