#include "ui/tabs/rule_cells.h"

#include "ui/look/home_path.h"

#include <QDir>

#include <algorithm>
#include <iterator>

namespace kestor {

namespace {

struct Column {
    const char *title;
    QString CustomLanguageRule::*text; ///< nullptr where nothing can be typed
};

constexpr Column columns[] = {
    {QT_TRANSLATE_NOOP("kestor::RuleCells", "Extension"), &CustomLanguageRule::fileExtension},
    {QT_TRANSLATE_NOOP("kestor::RuleCells", "Language"), &CustomLanguageRule::languageName},
    {QT_TRANSLATE_NOOP("kestor::RuleCells", "Color"), &CustomLanguageRule::colorHex},
    {QT_TRANSLATE_NOOP("kestor::RuleCells", "Syntax file"), nullptr},
};

} // namespace

void RuleCells::publish(const QList<CustomLanguageRule> &published) {
    const bool sameRules = std::ranges::equal(rules, published, {}, &CustomLanguageRule::id, &CustomLanguageRule::id);
    if (sameRules) { // whatever is being typed goes on
        rules = published;
        if (!rules.isEmpty())
            emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        return;
    }
    beginResetModel();
    rules = published;
    endResetModel();
}

int RuleCells::rowOf(const QUuid &id) const {
    const auto found = std::ranges::find(rules, id, &CustomLanguageRule::id);
    return found == rules.end() ? -1 : static_cast<int>(found - rules.begin());
}

int RuleCells::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rules.size());
}

int RuleCells::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(std::size(columns));
}

QVariant RuleCells::data(const QModelIndex &index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole))
        return {};
    const CustomLanguageRule &rule = rules.at(index.row());
    if (const auto text = columns[index.column()].text)
        return rule.*text;
    const std::optional<QString> file = rule.normalizedSyntaxFilePath();
    if (role == Qt::DisplayRole)
        return file ? homeRelativePath(*file, QDir::homePath()) : tr("None");
    return file.value_or(QString());
}

QVariant RuleCells::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return tr(columns[section].title);
    return {};
}

Qt::ItemFlags RuleCells::flags(const QModelIndex &index) const {
    const Qt::ItemFlags all = QAbstractTableModel::flags(index);
    return index.isValid() && columns[index.column()].text ? all | Qt::ItemIsEditable : all;
}

bool RuleCells::setData(const QModelIndex &index, const QVariant &value, int role) {
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable))
        return false;
    CustomLanguageRule rule = rules.at(index.row());
    rule.*columns[index.column()].text = value.toString();
    if (rule != rules.at(index.row()))
        emit ruleTyped(rule);
    if (index.column() == static_cast<int>(RuleColumn::color))
        emit colorLeft(rule.id);
    return true;
}

} // namespace kestor
