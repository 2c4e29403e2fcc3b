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
    if (app.diffPath.value() != item->path)
        return;
    shownPath = item->path;
    pane.showFile({item->path, item}, app.diffText, app.diffPreview);
}

} // namespace kestor
