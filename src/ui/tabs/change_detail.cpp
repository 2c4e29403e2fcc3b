#include "ui/tabs/change_detail.h"

#include "ui/preview/detail_pane.h"

namespace kestor {

ChangeDetail::ChangeDetail(AppState &state, DetailPane &shownPane, QObject *parent)
    : QObject(parent), app(state), pane(shownPane) {
    show();
}

void ChangeDetail::show() {
    const std::optional<WorkingCopyItem> item = app.selectedChange();
    if (!item) {
        shownPath = std::nullopt;
        return pane.showNothing(tr("(select a changed file)"));
    }
    const DiffSubject subject{item->path, item};
    if (app.diffPath.value() == item->path) {
        shownPath = item->path;
        pane.showFile(subject, app.diffText, app.diffPreview);
    } else if (!shownPath) {
        pane.showWaiting(subject);
    }
}

} // namespace kestor
