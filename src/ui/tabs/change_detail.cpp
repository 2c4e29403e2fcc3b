#include "ui/tabs/change_detail.h"

#include "ui/diff/diff_pane.h"

namespace kestor {

namespace {

/// Hunks begin near the front; a text without any is what a tool says of a binary file, and short.
constexpr qsizetype searchedForHunk = 64 * 1024;

bool hasHunk(QStringView text) {
    return text.first(std::min(text.size(), searchedForHunk)).contains(u"\n@@ ");
}

} // namespace

ChangeDetail::ChangeDetail(AppState &state, DiffPane &shownPane, QObject *parent)
    : QObject(parent), app(state), pane(shownPane) {
    showing.setSingleShot(true);
    showing.setInterval(0);
    connect(&showing, &QTimer::timeout, this, &ChangeDetail::show);
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
    const DiffSubject subject{item->path, item};
    const DiffPreview &preview = app.diffPreview.value();
    // A text diff may well speak of binary files.
    if (preview.kind != DiffPreviewKind::empty && !hasHunk(app.diffText.value()))
        pane.showNotice(subject, preview.message);
    else
        pane.showDiff(subject, app.diffText);
}

} // namespace kestor
