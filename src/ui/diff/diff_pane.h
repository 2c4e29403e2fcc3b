#pragma once

#include "model/working_copy_item.h"
#include "ui/diff/diff_bar.h"
#include "ui/diff/diff_view.h"
#include "ui/diff/document_loader.h"
#include "ui/diff/title_painter.h"

#include <QString>
#include <QWidget>

#include <cstdint>
#include <optional>

class QAction;
class QMenu;
class QStackedLayout;

namespace kestor {

class Placeholder;

/// Whose diff a pane shows. A text for what is shown already keeps the scroll position.
struct DiffSubject {
    QString path{};                        ///< "" when the diff is that of a whole revision
    std::optional<WorkingCopyItem> item{}; ///< for the badge; without it the diff's header lines decide
    QString revision{};                    ///< "" for the working copy

    friend bool operator==(const DiffSubject &, const DiffSubject &) = default;
};

/// The hunk at which the diff of another subject begins.
enum class DiffBeginning : std::uint8_t { firstHunk, lastHunk };

/// The detail of a tab: a bar and beneath it a diff, or what there is to say instead. Texts of any size are taken
/// without holding up the main thread; the last one wins. Main thread only.
class DiffPane final : public QWidget {
    Q_OBJECT

public:
    static constexpr int smallestTextSizeDelta = -4;
    static constexpr int largestTextSizeDelta = 16;

    explicit DiffPane(QWidget *parent = nullptr);

    /// `text` as it was published: a diff, any other text, or one of the short texts that stand for a diff.
    void showDiff(const DiffSubject &newSubject, const QString &text);
    /// An empty bar and `explanation` in the middle.
    void showNothing(const QString &explanation);
    /// The subject's title above nothing, while nothing else can be shown.
    void showWaiting(const DiffSubject &newSubject);
    /// The file's name and `message` in the middle, for a file that is not shown as text.
    void showNotice(const DiffSubject &newSubject, const QString &message);

    /// Gives the pane a widget that can stand in for the diff beneath the same bar.
    void setPreview(QWidget *widget);
    /// Shows that widget under the subject's title.
    void showPreview(const DiffSubject &newSubject);
    /// Which form the switch in the bar says is shown; absent: there is no switch.
    void setForm(std::optional<DetailForm> form);

    /// Where the next diff of another subject begins; the one after it begins at its first hunk again.
    void setNextBeginning(DiffBeginning wanted) { beginning = wanted; }

    /// From any place of the window; `outside` when the next row of the list is due.
    StepResult stepHunk(CaretDirection direction);
    StepResult stepFile(CaretDirection direction);
    /// Gives the keyboard to what is shown, as `setFocus` does.
    void takeFocus();

    /// The user's languages, which decide about the colors of their files.
    void setLanguageRules(const QList<CustomLanguageRule> &rules) { view->setLanguageRules(rules); }

    int textSizeDelta() const { return sizeDelta; }
    /// In pixels, kept within bounds. Emits `textSizeDeltaChanged` when it differs.
    void setTextSizeDelta(int delta);

    const DiffView &diffView() const { return *view; }

signals:
    /// Esc: the keyboard goes back to the list.
    void leaveRequested();
    /// The keys N and P, or a button, asked for a hunk that the diff does not have in that direction.
    void hunksEnded(kestor::CaretDirection direction);
    /// By the switch or the key V.
    void formChosen(kestor::DetailForm form);
    /// From the pane's own menu too, so that all panes can follow.
    void textSizeDeltaChanged(int delta);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makeActions();
    void showDocument(const DiffDocumentPtr &document);
    void showMessage(const QString &heading, const QString &explanation);
    void leaveDiff(QWidget *shown);
    bool hasFocusInStack() const;
    void updateTitle();
    void updateHunks();
    void copyPath() const;
    void showContextMenu(const QPoint &point);
    bool showsDiff() const;
    bool isShown(const QString &text) const;
    void stepOrLeave(CaretDirection direction);
    bool pressedLetter(int key);

    QMenu *barMenu;
    QMenu *viewMenu;
    DiffBar *bar;
    QStackedLayout *stack;
    DiffView *view;
    Placeholder *placeholder;
    QWidget *preview = nullptr;
    std::optional<DetailForm> shownForm{};
    QAction *copy = nullptr;
    QAction *copyPrinted = nullptr;
    DocumentLoader loader;
    DiffSubject subject;
    DocumentChange nextChange = DocumentChange::otherSubject; ///< of the document that the loader hands over next
    DiffBeginning beginning = DiffBeginning::firstHunk;
    int sizeDelta = 0;
};

} // namespace kestor
