#include "ui/diff/diff_pane.h"

#include "ui/diff/file_heading.h"
#include "ui/look/elided_path.h"
#include "ui/look/placeholder.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QScrollBar>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostCompared = 1'000'000;

/// Published texts that stand for a diff.
bool isPlaceholderText(const QString &text) {
    static constexpr QLatin1StringView texts[] = {"(no text diff)"_L1, "(file not found)"_L1,
                                                  "(unversioned directory)"_L1, "(binary or unreadable file)"_L1};
    return std::ranges::find(texts, text) != std::end(texts);
}

DiffTitle titleOf(const DiffDocument &document, const DiffSubject &subject) {
    if (document.hasSeveralFiles())
        return {{}, u"%1 files"_s.arg(QLocale().toString(document.diff.files.size())), document.changes};
    if (document.isPlain())
        return {subject.item, subject.path, {}};
    FileHeading heading = fileHeading(document.diff.files.constFirst());
    if (!subject.path.isEmpty())
        heading.path = subject.path;
    const WorkingCopyItem shown{.path = heading.path, .kind = heading.kind};
    return {subject.item.value_or(shown), heading.title(), document.changes};
}

QString spokenName(const DiffTitle &title) {
    const QString name = u"Diff of %1"_s.arg(title.path);
    return title.changes ? u"%1, %2 added, %3 removed"_s.arg(name, QString::number(title.changes->additions),
                                                             QString::number(title.changes->deletions))
                         : name;
}

QString hunkText(const DiffView &view) {
    if (view.currentHunk() < 0)
        return {};
    const QLocale locale;
    const QString current = u"Hunk %1"_s.arg(locale.toString(view.currentHunk() + 1));
    const DiffDocument &document = view.document();
    return document.part == DocumentPart::first ? current
                                                : u"%1 of %2"_s.arg(current, locale.toString(document.hunkCount));
}

} // namespace

DiffPane::DiffPane(QWidget *parent)
    : QWidget(parent), barMenu(new QMenu(this)), viewMenu(new QMenu(this)), bar(new DiffBar(barMenu, this)),
      stack(new QStackedLayout), view(new DiffView), placeholder(new Placeholder) {
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addLayout(stack);
    stack->addWidget(placeholder);
    stack->addWidget(view);
    placeholder->setFocusPolicy(Qt::StrongFocus);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    makeActions();
    connect(&loader, &DocumentLoader::loaded, this, &DiffPane::showDocument);
    connect(view, &DiffView::currentHunkChanged, this, &DiffPane::updateHunks);
    connect(view, &DiffView::leaveRequested, this, &DiffPane::leaveRequested);
    connect(view, &DiffView::hunksEnded, this, &DiffPane::hunksEnded);
    connect(view, &DiffView::customContextMenuRequested, this, &DiffPane::showContextMenu);
    connect(bar, &DiffBar::previousHunkRequested, this, [this] { stepOrLeave(CaretDirection::back); });
    connect(bar, &DiffBar::formChosen, this, &DiffPane::formChosen);
    connect(bar, &DiffBar::nextHunkRequested, this, [this] { stepOrLeave(CaretDirection::ahead); });
}

void DiffPane::makeActions() {
    copy = viewMenu->addAction(u"Copy"_s, view, &DiffView::copySelection);
    copyPrinted = new QAction(u"Copy Diff"_s, this);
    connect(copyPrinted, &QAction::triggered, view, &DiffView::copyPrinted);
    viewMenu->addAction(copyPrinted);
    viewMenu->addAction(u"Select All"_s, view, &DiffView::selectAll);
    QAction *const copyPathAction = viewMenu->addAction(u"Copy Path"_s, this, &DiffPane::copyPath);
    viewMenu->addSeparator();
    viewMenu->addAction(u"Next Hunk\tF7"_s, this, [this] { stepOrLeave(CaretDirection::ahead); });
    viewMenu->addAction(u"Previous Hunk\tShift+F7"_s, this, [this] { stepOrLeave(CaretDirection::back); });
    barMenu->addAction(copyPathAction);
    barMenu->addAction(copyPrinted);
    barMenu->addSeparator();
    barMenu->addAction(u"Larger Text\tCtrl++"_s, this, [this] { setTextSizeDelta(sizeDelta + 1); });
    barMenu->addAction(u"Smaller Text\tCtrl+-"_s, this, [this] { setTextSizeDelta(sizeDelta - 1); });
    barMenu->addAction(u"Standard Text Size\tCtrl+0"_s, this, [this] { setTextSizeDelta(0); });
}

bool DiffPane::showsDiff() const {
    return stack->currentWidget() == view;
}

/// Comparing long texts would take longer than reading the new one beside the main thread.
bool DiffPane::isShown(const QString &text) const {
    const QString &printed = view->document().printed;
    if (!showsDiff() || view->document().part == DocumentPart::first || printed.size() != text.size())
        return false;
    return printed.constData() == text.constData() || (text.size() <= mostCompared && printed == text);
}

void DiffPane::showDiff(const DiffSubject &newSubject, const QString &text) {
    const bool sameSubject = newSubject.path == subject.path && newSubject.revision == subject.revision;
    subject = newSubject;
    if (isPlaceholderText(text)) {
        bar->setTitle({subject.item, subject.path, {}});
        showMessage({}, text);
        return;
    }
    if (sameSubject && isShown(text)) {
        loader.cancel();
        updateTitle();
        view->checkSyntaxFiles();
        return;
    }
    nextChange = sameSubject && showsDiff() ? DocumentChange::sameSubject : DocumentChange::otherSubject;
    const bool keepsPlace = nextChange == DocumentChange::sameSubject && view->verticalScrollBar()->value() > 0;
    loader.loadDiff(text, keepsPlace ? EarlyView::none : EarlyView::firstPart);
}

void DiffPane::showNothing(const QString &explanation) {
    subject = {};
    bar->clear();
    showMessage({}, explanation);
}

void DiffPane::showWaiting(const DiffSubject &newSubject) {
    subject = newSubject;
    bar->setTitle({subject.item, subject.path, {}});
    showMessage({}, {});
    placeholder->setAccessibleName(subject.path);
}

void DiffPane::showNotice(const DiffSubject &newSubject, const QString &message) {
    subject = newSubject;
    bar->setTitle({subject.item, subject.path, {}});
    showMessage(subject.path.sliced(fileNameStart(subject.path)), message);
}

void DiffPane::setPreview(QWidget *widget) {
    preview = widget;
    stack->addWidget(widget);
}

void DiffPane::showPreview(const DiffSubject &newSubject) {
    subject = newSubject;
    bar->setTitle({subject.item, subject.path, {}});
    leaveDiff(preview);
}

void DiffPane::setForm(std::optional<DetailForm> form) {
    shownForm = form;
    bar->setForm(form);
}

void DiffPane::showMessage(const QString &heading, const QString &explanation) {
    placeholder->setText({.heading = heading, .explanation = explanation});
    placeholder->setAccessibleName(heading.isEmpty() ? explanation : heading + u", "_s + explanation);
    leaveDiff(placeholder);
}

void DiffPane::leaveDiff(QWidget *shown) {
    const bool hadFocus = hasFocusInStack();
    loader.cancel();
    stack->setCurrentWidget(shown);
    view->setDocument(std::make_shared<const DiffDocument>(), DocumentChange::otherSubject);
    bar->setHunks({});
    copyPrinted->setEnabled(false);
    if (hadFocus)
        takeFocus();
}

/// Also when a part of what is shown has it.
bool DiffPane::hasFocusInStack() const {
    const QWidget *const focused = focusWidget();
    const QWidget *const shown = stack->currentWidget();
    return focused != nullptr && focused->hasFocus() && (focused == shown || shown->isAncestorOf(focused));
}

void DiffPane::showDocument(const DiffDocumentPtr &document) {
    const bool hadFocus = hasFocusInStack();
    view->setDocument(document, nextChange);
    nextChange = DocumentChange::completed;
    stack->setCurrentWidget(view);
    copyPrinted->setEnabled(true);
    updateTitle();
    updateHunks();
    if (document->part != DocumentPart::first &&
        std::exchange(beginning, DiffBeginning::firstHunk) == DiffBeginning::lastHunk)
        view->showLastHunk();
    if (hadFocus)
        takeFocus();
}

void DiffPane::updateTitle() {
    const DiffDocument &document = view->document();
    DiffTitle title = titleOf(document, subject);
    if (document.part == DocumentPart::first)
        title.changes.reset();
    bar->setTitle(title);
    view->setAccessibleName(spokenName(title));
}

void DiffPane::updateHunks() {
    bar->setHunks(hunkText(*view));
}

StepResult DiffPane::stepHunk(CaretDirection direction) {
    return showsDiff() ? view->stepHunk(direction) : StepResult::outside;
}

StepResult DiffPane::stepFile(CaretDirection direction) {
    return showsDiff() ? view->stepFile(direction) : StepResult::outside;
}

void DiffPane::stepOrLeave(CaretDirection direction) {
    if (stepHunk(direction) == StepResult::outside)
        emit hunksEnded(direction);
}

void DiffPane::takeFocus() {
    stack->currentWidget()->setFocus();
}

/// No focus proxy: that would bring what is shown before the bar in the order of Tab.
void DiffPane::focusInEvent(QFocusEvent *) {
    takeFocus();
}

void DiffPane::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape)
        return emit leaveRequested();
    if (event->modifiers() != Qt::NoModifier || !pressedLetter(event->key()))
        QWidget::keyPressEvent(event);
}

/// Hunks are stepped through here too, since there is none in what stands in for a diff.
bool DiffPane::pressedLetter(int key) {
    switch (key) {
    case Qt::Key_N:
        stepOrLeave(CaretDirection::ahead);
        return true;
    case Qt::Key_P:
        stepOrLeave(CaretDirection::back);
        return true;
    case Qt::Key_V:
        if (shownForm)
            emit formChosen(*shownForm == DetailForm::text ? DetailForm::preview : DetailForm::text);
        return shownForm.has_value();
    default:
        return false;
    }
}

void DiffPane::setTextSizeDelta(int delta) {
    const int bounded = std::clamp(delta, smallestTextSizeDelta, largestTextSizeDelta);
    if (bounded == sizeDelta)
        return;
    sizeDelta = bounded;
    view->setTextSizeDelta(sizeDelta);
    emit textSizeDeltaChanged(sizeDelta);
}

void DiffPane::copyPath() const {
    const DiffDocument &document = view->document();
    const qint64 file = view->currentFile();
    const bool ofFile = subject.path.isEmpty() || document.hasSeveralFiles();
    const QString path = ofFile && file >= 0 ? fileHeading(document.diff.files[file]).path : subject.path;
    if (!path.isEmpty())
        QGuiApplication::clipboard()->setText(path);
}

void DiffPane::showContextMenu(const QPoint &point) {
    copy->setEnabled(view->hasSelectedText());
    viewMenu->popup(view->viewport()->mapToGlobal(point));
}

} // namespace kestor
