#include "ui/diff/accessible_diff.h"

#include "ui/diff/diff_view.h"
#include "ui/diff/file_heading.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QScrollBar>
#include <QStringList>

#include <algorithm>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestSpoken = 1000;

QString spokenLine(const DiffLine &line) {
    QString text = line.text.first(std::min(line.text.size(), longestSpoken)).toString();
    switch (line.kind) {
    case DiffLineKind::addition:
        return u"added, line %1, %2"_s.arg(line.newLineNumber.value_or(0)).arg(text);
    case DiffLineKind::deletion:
        return u"removed, line %1, %2"_s.arg(line.oldLineNumber.value_or(0)).arg(text);
    case DiffLineKind::context:
        return u"line %1, %2"_s.arg(line.newLineNumber.value_or(0)).arg(text);
    case DiffLineKind::hunk:
    case DiffLineKind::note:
        break;
    }
    return text;
}

QString spokenFile(const DiffFile &file) {
    return u"file %1, %2 added, %3 removed"_s.arg(fileHeading(file).title()).arg(file.additions).arg(file.deletions);
}

/// The rows in view as text, made anew for each question: they are few, and scrolling changes them.
class AccessibleDiff final : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit AccessibleDiff(DiffView *view) : QAccessibleWidget(view, QAccessible::Document) {}

    void *interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.multiLine = true;
        state.selectableText = true;
        return state;
    }

    int characterCount() const override { return static_cast<int>(wholeView().size()); }
    QString text(int start, int end) const override { return wholeView().mid(start, end - start); }
    int cursorPosition() const override { return offsetOfRow(caretRow()); }
    void setCursorPosition(int) override {}

    int selectionCount() const override { return 0; }
    void selection(int, int *start, int *end) const override { *start = *end = 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}

    QRect characterRect(int offset) const override {
        const DiffView &diff = view();
        // The reader may have counted in what was in view before.
        const QString text = wholeView();
        const qint64 row = firstRow() + text.first(std::clamp<qsizetype>(offset, 0, text.size())).count(u'\n');
        const auto top = static_cast<int>(diff.rows().top(row) - diff.verticalScrollBar()->value());
        const QRect area(0, top, diff.viewport()->width(), diff.metrics().rows.line);
        return {diff.viewport()->mapToGlobal(area.topLeft()), area.size()};
    }
    int offsetAtPoint(const QPoint &point) const override {
        const int y = view().viewport()->mapFromGlobal(point).y();
        return offsetOfRow(view().rows().rowAt(view().verticalScrollBar()->value() + y));
    }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int *start, int *end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

private:
    const DiffView &view() const { return *static_cast<const DiffView *>(widget()); }
    qint64 firstRow() const { return std::max<qint64>(0, view().rows().rowAt(view().verticalScrollBar()->value())); }

    QStringList spokenRows() const {
        const DiffView &diff = view();
        const qint64 bottom = diff.verticalScrollBar()->value() + diff.viewport()->height();
        QStringList spoken;
        for (qint64 row = firstRow(); row < diff.rows().count() && diff.rows().top(row) < bottom; ++row)
            spoken.append(spokenRow(diff.document(), diff.rows(), diff.rows().at(row)));
        return spoken;
    }
    QString wholeView() const { return spokenRows().join(u'\n'); }

    qint64 caretRow() const {
        const DiffView &diff = view();
        if (diff.selection())
            return diff.rows().rowOfLine(diff.selection()->caret.line);
        return diff.currentHunk() < 0 ? firstRow() : diff.rows().rowOfHunk(diff.currentHunk());
    }

    /// Of the first character of a row; rows out of view count as the nearest one in view.
    int offsetOfRow(qint64 row) const {
        const QStringList spoken = spokenRows();
        const qsizetype before = std::clamp<qsizetype>(row - firstRow(), 0, std::max<qsizetype>(0, spoken.size() - 1));
        return before == 0 ? 0 : static_cast<int>(spoken.first(before).join(u'\n').size()) + 1;
    }
};

QAccessibleInterface *makeInterface(const QString &className, QObject *object) {
    auto *const view = className == "kestor::DiffView"_L1 ? qobject_cast<DiffView *>(object) : nullptr;
    return view ? new AccessibleDiff(view) : nullptr;
}

} // namespace

QString spokenRow(const DiffDocument &document, const DiffRows &rows, const DiffRow &row) {
    switch (row.kind) {
    case DiffRowKind::fileHead:
        return spokenFile(document.diff.files[row.file]);
    case DiffRowKind::noText:
        return u"(no text diff)"_s;
    case DiffRowKind::hunkHead:
        return u"hunk %1, %2"_s.arg(row.hunk + 1)
            .arg(rows.hunk(row.hunk).header.first(std::min(rows.hunk(row.hunk).header.size(), longestSpoken)));
    case DiffRowKind::line:
        break;
    }
    if (row.hunk >= 0)
        return spokenLine(rows.hunk(row.hunk).line(row.line - rows.hunk(row.hunk).firstLine));
    const QStringView text = document.lineText(row.line);
    return text.first(std::min(text.size(), longestSpoken)).toString();
}

void installDiffAccessibility() {
    QAccessible::installFactory(makeInterface);
}

void announceCaret(DiffView &view) {
    if (!QAccessible::isActive())
        return;
    QAccessibleInterface *const accessible = QAccessible::queryAccessibleInterface(&view);
    QAccessibleTextCursorEvent moved(&view, accessible->textInterface()->cursorPosition());
    QAccessible::updateAccessibility(&moved);
}

} // namespace kestor
