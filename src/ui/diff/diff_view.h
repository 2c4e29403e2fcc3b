#pragma once

#include "ui/diff/diff_document.h"
#include "ui/diff/diff_metrics.h"
#include "ui/diff/diff_painter.h"
#include "ui/diff/diff_rows.h"
#include "ui/diff/line_looks.h"
#include "ui/diff/text_selection.h"
#include "ui/look/syntax_colors.h"
#include "ui/look/theme.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QSet>
#include <QString>

#include <cstdint>
#include <optional>

namespace kestor {

class DiffRuler;

/// What a new document of a view has to do with the one shown before.
enum class DocumentChange : std::uint8_t {
    otherSubject, ///< begins at its first hunk, everything open
    sameSubject,  ///< keeps scroll position and folded files
    completed,    ///< the whole of which the first part was shown: keeps the selection too
};

/// Where a step to another hunk or file led.
enum class StepResult : std::uint8_t {
    moved,
    outside, ///< there is none in that direction
    waiting, ///< there may be one in the part that is still being read
};

/// A diff, or plain text, painted line by line; its cost depends on what is in view only. Text is selected by mouse and
/// keyboard; files of several fold. Main thread only.
class DiffView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit DiffView(QWidget *parent = nullptr);

    void setDocument(DiffDocumentPtr newDocument, DocumentChange change);
    const DiffDocument &document() const { return *shown; }
    const DiffRows &rows() const { return rowIndex; }
    const DiffMetrics &metrics() const { return measures; }
    const LineLooks &lineLooks() const { return looks; }

    /// Pixels added to the size of the platform's fixed font.
    void setTextSizeDelta(int delta);
    void setPlainTint(PlainTint tint);
    /// The user's languages, which decide about the colors of their files.
    void setLanguageRules(const QList<CustomLanguageRule> &rules) { looks.setLanguageRules(rules); }
    /// Whether syntax files of the user have changed; with another document and when the view is shown it looks itself.
    void checkSyntaxFiles() { looks.checkSyntaxFiles(); }

    /// The index over all files, or -1 without hunks.
    qint64 currentHunk() const { return hunk; }
    StepResult stepHunk(CaretDirection direction);
    void showLastHunk();
    /// The file of the current hunk, or the one whose head was reached last; -1 without files.
    qint64 currentFile() const;
    /// Steps from file head to file head of a diff of several files.
    StepResult stepFile(CaretDirection direction);
    void toggleFold(qint64 file);

    const std::optional<TextSelection> &selection() const { return selected; }
    void setSelection(const TextSelection &selection);
    bool hasSelectedText() const { return selected && !selected->isEmpty(); }
    void selectAll();
    /// Puts the selected text, without markers, on the clipboard. A very long text arrives there a moment later.
    void copySelection();
    /// Puts the text on the clipboard as the tool printed it.
    void copyPrinted() const;

    /// The place in the text nearest to a point of the viewport.
    TextPosition positionAt(const QPoint &point) const;
    /// The height of the widget with which all rows are in view.
    int naturalHeight() const;

signals:
    void currentHunkChanged();
    void selectionChanged();
    /// Esc.
    void leaveRequested();
    /// A key asked for a hunk that the diff does not have in that direction.
    void hunksEnded(kestor::CaretDirection direction);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void forgetFor(DocumentChange change);
    void showBeginning();
    DiffScene scene();
    void prepareLooks();
    void rebuildRows();
    void updateGeometries();
    void updateRulerMarks();
    void placeRuler();

    qint64 scrollTop() const;
    void scrollTo(qint64 y);
    /// The line at the top of the viewport and how far its top is scrolled out.
    std::pair<qint64, qint64> topLine() const;
    int coveredHeight() const;
    bool isInView(qint64 hunkIndex) const;
    void setCurrentHunk(qint64 hunkIndex, qint64 headedFile = -1);
    void showHunk(qint64 hunkIndex);
    void followScroll();
    void showCaret();
    std::optional<qint64> fileHeadAt(const QPoint &point) const;
    void extendSelection(CaretStep step, CaretDirection direction);
    bool keySelects(QKeyEvent *event);
    bool keyScrolls(QKeyEvent *event);
    bool keyCommands(QKeyEvent *event);
    void stepHunkByKey(CaretDirection direction);
    void dragTo(const QPoint &point);
    void setPointerShape(const QPoint &point);

    DiffDocumentPtr shown;
    DiffRows rowIndex;
    DiffMetrics measures;
    Theme theme;
    LineLooks looks{rowIndex};
    SyntaxColors colors;
    DiffRuler *ruler;
    PlainTint plainTint = PlainTint::bySign;
    int textSizeDelta = 0;
    qint64 largestNumber = 0; ///< the gutters never become narrower while a text is being read
    QSet<QString> folded;     ///< display paths
    std::optional<TextSelection> selected;
    qint64 hunk = -1;
    qint64 headedFile = -1; ///< reached by its head rather than by a hunk
    bool dragging = false;
    QPoint dragPoint;
    QBasicTimer autoScroll;
};

} // namespace kestor
