#pragma once

#include "model/custom_language_rule.h"

#include <QAbstractTableModel>
#include <QList>

#include <cstdint>

namespace kestor {

/// The columns of the user's languages, in the order shown.
enum class RuleColumn : std::uint8_t { extension, language, color, syntaxFile };

/// The user's languages as a table. Typing into it changes nothing by itself: it asks for the change, and what is then
/// published shows.
class RuleCells final : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void publish(const QList<CustomLanguageRule> &published);
    const CustomLanguageRule &ruleAt(int row) const { return rules.at(row); }
    /// -1 for a rule that is not there.
    int rowOf(const QUuid &id) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// All columns but the one of the syntax file can be typed into.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

signals:
    void ruleTyped(const kestor::CustomLanguageRule &rule);
    /// The color of the rule has been typed, or left as it was.
    void colorLeft(const QUuid &id);

private:
    QList<CustomLanguageRule> rules{};
};

} // namespace kestor
