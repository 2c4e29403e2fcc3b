#pragma once

#include "ui/list/language_rows.h"

#include <QList>
#include <QWidget>

#include <optional>

namespace kestor {

class LanguageBar;
class Placeholder;
class RowListView;

/// The languages of a project: a bar with their shares above a row for each.
class LanguageView final : public QWidget {
    Q_OBJECT

public:
    explicit LanguageView(QWidget *parent = nullptr);

    /// Absent while the files are being counted.
    void setShares(const std::optional<QList<LanguageDistributionEntry>> &shares);
    RowListView &list() { return *rowList; }
    /// With which all rows would be seen.
    int naturalHeight() const;

private:
    QWidget *framedBar();

    LanguageRows rows{};
    LanguageBar *bar;
    QWidget *barRoom;
    RowListView *rowList;
    Placeholder *placeholder;
};

} // namespace kestor
