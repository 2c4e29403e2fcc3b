#pragma once

#include "controller/app_state.h"
#include "ui/tabs/deferred.h"

#include <QObject>
#include <QString>

#include <optional>

namespace kestor {

class DetailPane;

/// Brings the diff of the selected change into the detail pane. The old diff stays until the new one is there.
class ChangeDetail final : public QObject {
    Q_OBJECT

public:
    /// Both must outlive the detail.
    ChangeDetail(AppState &state, DetailPane &shownPane, QObject *parent);

    /// Loads the change that the user has just selected.
    void loadSelected() { app.selectedChangeChanged(); }
    /// Whether the pane shows the selected change, and not the one before it.
    bool isUpToDate() const { return shownPath == app.selectedChangeID.value(); }

    /// To be called when the rows, the selection or the diff were published. What is published in one go is shown once.
    void published() { showing.start(); }

private:
    void show();

    AppState &app;
    DetailPane &pane;
    Deferred showing{[this] {
        show();
    }};
    std::optional<QString> shownPath{};
};

} // namespace kestor
