#pragma once

#include "ui/tabs/rule_cells.h"

#include <QList>
#include <QTableView>
#include <QUuid>

#include <cstdint>
#include <optional>

class QToolButton;

namespace kestor {

enum class Icon : std::uint8_t;
class RuleDelegate;

/// The user's languages: F2, Return or a double click types into a cell, Del removes the row, and buttons in the
/// selected row choose and clear its syntax file. It is as high as its rows and leaves scrolling to what it stands in.
/// It changes nothing: it asks for changes, and what is then published shows.
class RuleTable final : public QTableView {
    Q_OBJECT

public:
    explicit RuleTable(QWidget *parent = nullptr);

    /// The current row stays with its rule; when that is gone, the next one becomes current.
    void setRules(const QList<CustomLanguageRule> &rules);
    std::optional<QUuid> currentRule() const;
    /// Begins to type into the first cell of the rule.
    void beginRule(const QUuid &id);
    /// Where the current cell is in the table; empty when there is none.
    QRect currentCell() const;

signals:
    void ruleTyped(const kestor::CustomLanguageRule &rule);
    /// The color of the rule has been typed, or left as it was.
    void colorLeft(const QUuid &id);
    void removalWanted(const QUuid &id);
    void syntaxFileWanted(const QUuid &id);
    void syntaxFileUnwanted(const QUuid &id);
    /// There is another current cell, or none.
    void currentCellChanged();

protected:
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void currentChanged(const QModelIndex &index, const QModelIndex &previous) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QToolButton *rowButton(Icon icon, const QString &name, void (RuleTable::*wanted)(const QUuid &));
    /// Emits a signal with the current rule, if there is one.
    void ask(void (RuleTable::*wanted)(const QUuid &));
    void typeIntoCurrent();
    void showCurrent();
    void showFocus();
    void fitHeight();
    void fitColumns();
    void placeButtons();
    void applyLook();

    RuleCells cells{};
    RuleDelegate *delegate;
    QToolButton *choose;
    QToolButton *clear;
};

} // namespace kestor
