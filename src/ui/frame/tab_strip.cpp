#include "ui/frame/tab_strip.h"

#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QLabel>
#include <QPainter>
#include <QSignalBlocker>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int leastHeight = 36;
constexpr int underlineHeight = 3;
constexpr int underlineInset = 8;

int indexOf(WorkflowTab tab) {
    return static_cast<int>(tab);
}

} // namespace

/// A number on a rounded ground.
class CountLabel final : public QLabel {
public:
    explicit CountLabel(QWidget *parent) : QLabel(parent) {
        setFont(boldFont(smallFont(font())));
        setAlignment(Qt::AlignCenter);
        setContentsMargins(7, 0, 7, 0);
        setFixedHeight(qMax(16, fontMetrics().height() + 2));
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent *event) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(themeFor(palette()).selectionIdle);
        painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
        painter.end();
        QLabel::paintEvent(event);
    }
};

TabStrip::TabStrip(AppState &shownState, QWidget *parent) : QTabBar(parent), state(shownState) {
    setDocumentMode(true);
    setDrawBase(false);
    setExpanding(false);
    setElideMode(Qt::ElideNone);
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(u"Tabs"_s);
    for (const WorkflowTab tab : allWorkflowTabs)
        setTabToolTip(addTab(rawValue(tab).toString()),
                      QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + indexOf(tab))).toString(QKeySequence::NativeText));
    connect(this, &QTabBar::currentChanged, this, &TabStrip::tabChosen);
    observers.watch(state.selectedTab, [this] {
        const QSignalBlocker quiet(this);
        setCurrentIndex(indexOf(state.selectedTab.value()));
    });
    observers.watch(state.changes, [this] { showCounts(); });
    observers.watch(state.incomingEntries, [this] { showCounts(); });
    observers.watch(state.busyMessage, [this] {
        if (loadWaits)
            loadTab();
    });
}

void TabStrip::choose(int index) {
    if (index >= 0 && index < count())
        setCurrentIndex(index);
}

void TabStrip::tabChosen(int index) {
    state.selectedTab = static_cast<WorkflowTab>(index);
    loadTab();
}

void TabStrip::loadTab() {
    loadWaits = state.busyMessage.value().has_value();
    if (!loadWaits)
        state.tabChanged();
}

void TabStrip::showCounts() {
    showCount(WorkflowTab::changes, state.changes.value().size());
    showCount(WorkflowTab::incoming, state.incomingEntries.value().size());
}

/// The numbers are made anew, as large as they want to be.
void TabStrip::changeEvent(QEvent *event) {
    QTabBar::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    for (const WorkflowTab tab : {WorkflowTab::changes, WorkflowTab::incoming})
        showCount(tab, 0);
    showCounts();
}

void TabStrip::showCount(WorkflowTab tab, qsizetype count) {
    const int index = indexOf(tab);
    const QString title = rawValue(tab).toString();
    const QString number = locale().toString(static_cast<qlonglong>(count));
    setAccessibleTabName(index, count > 0 ? title + u", "_s + number : title);
    auto *label = static_cast<CountLabel *>(tabButton(index, RightSide));
    if (count == 0) {
        setTabButton(index, RightSide, nullptr);
        delete label;
        return;
    }
    if (label != nullptr && label->text() == number)
        return;
    auto *fresh = new CountLabel(this);
    fresh->setText(number);
    fresh->adjustSize();
    setTabButton(index, RightSide, fresh); // setting it again is what makes the bar lay itself out
    delete label;
}

QSize TabStrip::tabSizeHint(int index) const {
    // As wide as when it is the current one, so that choosing a tab moves none.
    const int text = QFontMetrics(boldFont(font())).horizontalAdvance(tabText(index));
    const QWidget *label = tabButton(index, RightSide);
    return {paneEdge + text + (label != nullptr ? gap + label->width() : 0) + paneEdge,
            qMax(leastHeight, fontMetrics().height() + 2 * gap)};
}

QSize TabStrip::minimumTabSizeHint(int index) const {
    return tabSizeHint(index);
}

void TabStrip::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(QRect(0, height() - 1, width(), 1), themeFor(palette()).separator);
    for (int index = 0; index < count(); ++index)
        paintTab(painter, index);
}

void TabStrip::paintTab(QPainter &painter, int index) const {
    const Theme theme = themeFor(palette());
    const QRect rect = tabRect(index);
    const bool current = index == currentIndex();
    const bool hovered = underMouse() && rect.contains(mapFromGlobal(QCursor::pos()));
    painter.setFont(current ? boldFont(font()) : font());
    painter.setPen(current || hovered ? theme.text : theme.muted);
    painter.drawText(rect.adjusted(paneEdge, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, tabText(index));
    if (!current)
        return;
    const QRect line(rect.left() + underlineInset, height() - underlineHeight, rect.width() - 2 * underlineInset,
                     underlineHeight);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.accent);
    painter.drawRoundedRect(line, 1.5, 1.5);
    if (hasFocus()) {
        painter.setPen(theme.focusRing);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect).adjusted(4.5, 4.5, -4.5, -6.5), 4, 4);
    }
}

} // namespace kestor
