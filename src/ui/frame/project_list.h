#pragma once

#include "ui/frame/project_rows.h"

#include <QAbstractListModel>
#include <QListView>
#include <QStyledItemDelegate>

#include <cstdint>

namespace kestor {

/// The rows of the sidebar.
class ProjectListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Equal rows change nothing. `filter` is what they were chosen by.
    void setRows(const QList<ProjectRow> &rows, const ListFilter &filter);
    const ListFilter &filter() const { return shownFilter; }
    const ProjectRow &at(int row) const { return rows.at(row); }
    /// The row of a project, -1 when it is not shown.
    int rowOf(const QUuid &id) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QList<ProjectRow> rows{};
    ListFilter shownFilter{};
};

/// Paints a row: the name, bold when it is the selected project, with what the filter found, its
/// parent folder dimmed, and the kind at the right.
class ProjectDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

/// The list of projects. A row that the user makes the current one is reported; one set by `showCurrent` is not.
class ProjectListView final : public QListView {
    Q_OBJECT

public:
    /// Whether the user can move to another row. A move by a repeated key that waits to be reported is dropped.
    enum class Moving : std::uint8_t { allowed, held };

    explicit ProjectListView(QWidget *parent);

    ProjectListModel &rows() { return *listModel; }
    void setMoving(Moving moving);
    /// Makes the project's row the current one; none when it is not shown.
    void showCurrent(const QUuid &id);

signals:
    void projectChosen(const QUuid &id);
    /// For the current row.
    void menuRequested(const QPoint &globalPosition);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    void reportChosen();

    ProjectListModel *listModel;
    class QTimer *settling; ///< while an arrow key repeats
    QUuid selected{};       ///< the project last shown as the current one
    Moving moving = Moving::allowed;
    bool followsState = false; ///< a change of the current row does not come from the user
    bool keyRepeats = false;
};

} // namespace kestor
