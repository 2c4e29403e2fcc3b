#pragma once

#include <QList>
#include <QWidget>

namespace kestor {

class LineSplitter;

/// A page of the tab bar: a column beside a detail, with a line between them that the user can move.
class TabPage : public QWidget {
    Q_OBJECT

public:
    /// The widgets that take the focus in turn.
    virtual QList<QWidget *> focusPanes() const = 0;
    /// The width of the column.
    virtual void setListWidth(int width);
    /// Gives the focus to the filter of the column, if it has one.
    virtual void focusFilter() {}

signals:
    /// The user has moved the line, and other pages are to follow.
    void listWidthChosen(int width);

protected:
    explicit TabPage(QWidget *parent);

    /// To be called once.
    void setColumns(QWidget *column, QWidget *detail);
    LineSplitter &splitter() { return *parts; }

    static constexpr int standardListWidth = 400;
    /// Whether the width that the user gives the column now is for other pages too.
    virtual bool sharesListWidth() const { return true; }

private:
    LineSplitter *parts;
};

} // namespace kestor
