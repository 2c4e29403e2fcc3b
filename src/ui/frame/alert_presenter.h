#pragma once

#include "model/command_output.h"
#include "ui/tabs/observers.h"

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

namespace kestor {

struct AppProperties;
class MessageDialog;

/// Shows each published alert in a dialog of the window, one after another, so that none is lost unread. An alert that
/// says what one of those waiting says is shown once. Dismissing the newest makes the published alert absent.
class AlertPresenter final : public QObject {
    Q_OBJECT

public:
    AlertPresenter(AppProperties &state, QWidget *window);

private:
    void enqueue();
    void showNext();
    void dismiss(const AppAlert &alert);

    AppProperties &state;
    QWidget *window;
    QList<AppAlert> waiting{}; ///< the first one is shown
    QPointer<MessageDialog> dialog{};
    Observers observers{};
};

} // namespace kestor
