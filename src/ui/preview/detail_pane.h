#pragma once

#include "model/diff_preview.h"
#include "ui/diff/diff_pane.h"

#include <QHash>
#include <QString>
#include <QWidget>

namespace kestor {

class PreviewPane;

/// How files of each kind are shown that have both a preview and a text; kinds that are absent have not been chosen.
using FormChoices = QHash<DiffPreviewKind, DetailForm>;

/// The detail of a tab: the diff of a file, its preview, or one of both as the user chooses. What is shown stays until
/// the next thing is ready. Main thread only.
class DetailPane final : public QWidget {
    Q_OBJECT

public:
    explicit DetailPane(QWidget *parent = nullptr);

    /// `text` as DiffPane::showDiff takes it; `preview` of kind `empty` when there is none.
    void showFile(const DiffSubject &newSubject, const QString &newText, const DiffPreview &newPreview);
    /// An empty bar and `explanation` in the middle.
    void showNothing(const QString &explanation);

    /// The title of what is being loaded, while there is nothing before it that could stay.
    void showWaiting(const DiffSubject &awaited);

    const FormChoices &formChoices() const { return choices; }
    void setFormChoices(const FormChoices &newChoices) { choices = newChoices; }
    /// Keys, focus and text size are its; what it shows is this pane's alone.
    DiffPane &diffPane() { return *pane; }

signals:
    void formChoicesChanged();

private:
    void showForm();
    void choose(DetailForm form);
    std::optional<DetailForm> form() const;
    PreviewPane &previewPane();

    DiffPane *pane;
    PreviewPane *previews = nullptr; ///< made for the first preview
    DiffSubject subject{};
    QString text{};
    DiffPreview preview{};
    FormChoices choices{};
};

} // namespace kestor
