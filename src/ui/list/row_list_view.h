#pragma once

#include "ui/list/row_delegate.h"
#include "ui/list/row_model.h"

#include <QElapsedTimer>
#include <QList>
#include <QListView>
#include <QTimer>

#include <cstdint>

class QKeyEvent;

namespace kestor {

/// The list of a tab. It tells a row chosen by the user from one that follows a publish: only the first is announced.
/// A reset of the model keeps the current row and the scroll offset by identity; a current row that the filter hides
/// comes back with it.
class RowListView final : public QListView {
    Q_OBJECT

public:
    /// `shownModel` must be there while the view is used; it may be destroyed just before the view.
    explicit RowListView(RowModel &shownModel, QWidget *parent = nullptr);

    /// Makes the row current without announcing it or scrolling to it; "" for none.
    void setCurrentId(const QString &id);
    /// The identity last chosen or set, also while the filter hides its row.
    const QString &currentId() const { return current; }
    void setTickAccess(TickAccess access);

    /// Chooses the first row as the user would.
    void chooseFirst();
    /// Chooses the row `distance` rows below the current one as the user would, or the first or last one while no row
    /// is current or the filter hides it; false when there is none.
    bool chooseBeside(int distance);

    void keyboardSearch(const QString &typed) override;

signals:
    /// The user chose another row. While a key repeats or the mouse drags this waits until the row stays for 60 ms.
    void rowChosen(const QString &id);
    /// The user asks for these records to be ticked, or unticked.
    void ticksRequested(const QList<int> &records, kestor::Tick wanted);
    /// The list has taken the focus.
    void focused();
    void detailRequested();
    void filterRequested();
    void rowMenuRequested(int row, const QPoint &globalPosition);

protected:
    void currentChanged(const QModelIndex &index, const QModelIndex &previous) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// A row and where its top edge was.
    struct Anchor {
        QString id;
        int top;
    };
    enum class Pace : std::uint8_t { atOnce, settling, silent };

    bool pressedTickKey(const QKeyEvent &event);
    bool pressedLeavingKey(const QKeyEvent &event);
    bool pressedTickBox(const QMouseEvent &event);
    void toggleTick(int row);
    void tickUpTo(int row);
    void requestTicks(int firstRow, int lastRow, Tick wanted);
    QList<Anchor> visibleAnchors() const;
    void showCurrent();
    void restore();
    void applyTheme();

    RowModel &rows;
    RowDelegate &delegate;
    QString current{};
    QString lastTicked{};
    QList<Anchor> anchors{};
    TickAccess access = TickAccess::editable;
    Pace pace = Pace::atOnce;
    bool ticking = false; ///< the button that is held went down on a tick box
    QTimer settled{};
    QString searched{};
    QElapsedTimer sinceSearch{};
};

} // namespace kestor
