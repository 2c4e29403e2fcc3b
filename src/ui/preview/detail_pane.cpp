#include "ui/preview/detail_pane.h"

#include "ui/preview/preview_pane.h"
#include "ui/preview/worker_release.h"

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kestor {

namespace {

/// Hunks begin near the front; a text without any is what a tool says of a binary file, and short.
constexpr qsizetype searchedForHunk = 64 * 1024;

bool hasHunk(QStringView text) {
    return text.first(std::min(text.size(), searchedForHunk)).contains(u"\n@@ ");
}

bool isMedia(DiffPreviewKind kind) {
    return kind == DiffPreviewKind::image || kind == DiffPreviewKind::font || kind == DiffPreviewKind::audio;
}

/// A font or sound that could be printed as text only shares its extension with one.
DetailForm firstForm(DiffPreviewKind kind) {
    return kind == DiffPreviewKind::image ? DetailForm::preview : DetailForm::text;
}

} // namespace

DetailPane::DetailPane(QWidget *parent) : QWidget(parent), pane(new DiffPane(this)) {
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(pane);
    setFocusProxy(pane);
    connect(pane, &DiffPane::formChosen, this, &DetailPane::choose);
}

PreviewPane &DetailPane::previewPane() {
    if (previews == nullptr) {
        previews = new PreviewPane;
        pane->setPreview(previews);
        connect(previews, &PreviewPane::ready, this, [this] {
            pane->setForm(form());
            pane->showPreview(subject);
        });
    }
    return *previews;
}

/// Which of both is shown; nothing when there is no choice.
std::optional<DetailForm> DetailPane::form() const {
    if (!isMedia(preview.kind) || !hasHunk(text))
        return std::nullopt;
    return choices.value(preview.kind, firstForm(preview.kind));
}

void DetailPane::showFile(const DiffSubject &newSubject, const QString &newText, const DiffPreview &newPreview) {
    subject = newSubject;
    text = newText;
    releaseOnWorker(std::exchange(preview, newPreview));
    showForm();
}

void DetailPane::showForm() {
    const std::optional<DetailForm> shown = form();
    if (isMedia(preview.kind) && shown != DetailForm::text)
        return previewPane().load(preview);
    if (previews != nullptr)
        previews->clear();
    pane->setForm(shown);
    // A text diff may well speak of binary files, and a whole revision has no one file to speak of.
    if (preview.kind == DiffPreviewKind::binary && !hasHunk(text) && !subject.path.isEmpty())
        pane->showNotice(subject, preview.message);
    else
        pane->showDiff(subject, text);
}

void DetailPane::choose(DetailForm chosen) {
    choices.insert(preview.kind, chosen);
    showForm();
    emit formChoicesChanged();
}

void DetailPane::showNothing(const QString &explanation) {
    showFile({}, {}, {});
    pane->showNothing(explanation);
}

void DetailPane::showWaiting(const DiffSubject &awaited) {
    showFile({}, {}, {});
    pane->showWaiting(awaited);
}

} // namespace kestor
