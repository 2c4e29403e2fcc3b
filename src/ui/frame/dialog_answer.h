#pragma once

#include <QDialog>
#include <QFuture>
#include <QPromise>

#include <functional>
#include <memory>

namespace kestor {

/// Opens the dialog and promises `accepted()` when it is accepted, `otherwise` when it is refused or dies with its
/// window. The dialog deletes itself. Main thread only.
template <typename Value>
QFuture<Value> answerOf(QDialog *dialog, std::function<Value()> accepted, Value otherwise) {
    auto promise = std::make_shared<QPromise<Value>>();
    promise->start();
    const auto answer = [promise](const Value &value) {
        if (promise->future().isFinished())
            return;
        promise->addResult(value);
        promise->finish();
    };
    QObject::connect(dialog, &QDialog::finished, dialog, [dialog, accepted, otherwise, answer](int result) {
        answer(result == QDialog::Accepted ? accepted() : otherwise);
        dialog->deleteLater();
    });
    QObject::connect(dialog, &QObject::destroyed, [answer, otherwise] { answer(otherwise); });
    dialog->open();
    return promise->future();
}

} // namespace kestor
