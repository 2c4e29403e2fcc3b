#include "ui/frame/alert_presenter.h"

#include "controller/app_properties.h"
#include "ui/frame/message_dialog.h"

#include <algorithm>

namespace kestor {

AlertPresenter::AlertPresenter(AppProperties &shownState, QWidget *parentWindow)
    : QObject(parentWindow), state(shownState), window(parentWindow) {
    observers.watch(state.alert, [this] { enqueue(); });
}

void AlertPresenter::enqueue() {
    const std::optional<AppAlert> alert = state.alert.value();
    if (!alert)
        return;
    const auto saysTheSame = [&alert](const AppAlert &other) {
        return other.title == alert->title && other.message == alert->message;
    };
    const auto same = std::ranges::find_if(waiting, saysTheSame);
    if (same != waiting.end()) {
        *same = *alert;
        return;
    }
    waiting.append(*alert);
    showNext();
}

void AlertPresenter::showNext() {
    if (dialog || waiting.isEmpty())
        return;
    const AppAlert &alert = waiting.first();
    dialog = new MessageDialog(MessageDialog::Purpose::alert, alert.title, alert.message, window);
    connect(dialog, &QDialog::finished, this, [this] {
        dialog->deleteLater();
        dialog = nullptr;
        dismiss(waiting.takeFirst());
        showNext();
    });
    dialog->open();
}

void AlertPresenter::dismiss(const AppAlert &alert) {
    const std::optional<AppAlert> published = state.alert.value();
    if (published && published->id == alert.id)
        state.alert = std::nullopt;
}

} // namespace kestor
