#pragma once

#include "model/language.h"

#include <QList>
#include <QWidget>

namespace kestor {

/// Where a language stands in a bar, in pixels.
struct LanguageSegment {
    int entry = 0; ///< its position among the shares
    int left = 0;
    int width = 0;

    friend bool operator==(const LanguageSegment &, const LanguageSegment &) = default;
};

/// The languages over `width` pixels, one pixel between them. `shares` are in order, the largest first; those too
/// small to be seen beside the others are left out.
QList<LanguageSegment> languageSegments(const QList<LanguageDistributionEntry> &shares, int width);

/// The shares of the languages as parts of a bar, 16 px high.
class LanguageBar final : public QWidget {
    Q_OBJECT

public:
    explicit LanguageBar(QWidget *parent = nullptr);

    void setShares(const QList<LanguageDistributionEntry> &published);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString textAt(int x) const;

    QList<LanguageDistributionEntry> shares{};
};

} // namespace kestor
