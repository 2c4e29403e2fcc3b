#include "ui/tabs/rules_section.h"

#include "ui/look/control_size.h"
#include "ui/look/derived_font.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"
#include "ui/look/tone_label.h"
#include "ui/tabs/rule_table.h"

#include <QBoxLayout>
#include <QEvent>
#include <QPainter>
#include <QPushButton>

namespace kestor {

namespace {

/// The width from which the buttons say what their icons mean.
constexpr int roomForTexts = 440;

/// The edge around the table.
class TableFrame final : public QWidget {
public:
    explicit TableFrame(QWidget *table) {
        auto *layout = new QVBoxLayout(this);
        layout->setContentsMargins(1, 1, 1, 1);
        layout->addWidget(table);
    }

protected:
    void paintEvent(QPaintEvent *) override {
        constexpr double radius = 2.5;
        const Theme theme = themeFor(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(theme.separator);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    }
};

} // namespace

RulesSection::RulesSection(AppState &shownState, QWidget *parent)
    : DetailSection(tr("Custom Language Rules"), parent), state(shownState),
      add(new QPushButton(icon(Icon::plus), QString())), remove(new QPushButton(icon(Icon::minus), QString())),
      rules(new RuleTable) {
    addButtons();
    body().addWidget(new TableFrame(rules));
    auto *caption = new ToneLabel(tr("A rule wins over the built-in language of its extension."), Tone::muted);
    setDerivedFont(*caption, smallFont);
    caption->setElideMode(Qt::ElideRight);
    caption->setMinimumHeight(rowHeight(font()));
    body().addWidget(caption);
    connectTable();
    observers.watch(state.customLanguageRules, [this] { rules->setRules(state.customLanguageRules); });
}

void RulesSection::addButtons() {
    add->setAccessibleName(tr("Add Rule"));
    remove->setAccessibleName(tr("Remove Rule"));
    for (QPushButton *button : {add, remove})
        addToHeading(button);
    add->setToolTip(tr("Add a rule for files of one extension"));
    remove->setToolTip(tr("Remove the selected rule (Del)"));
    connect(add, &QPushButton::clicked, this,
            [this] { rules->beginRule(state.languageRules.addCustomLanguageRule()); });
    connect(remove, &QPushButton::clicked, this,
            [this] { state.languageRules.removeCustomLanguageRule(rules->currentRule().value_or(QUuid())); });
}

/// The heading is never cut for the texts of the buttons.
void RulesSection::fitButtons() {
    const bool hasRoom = width() >= scaledWidth(roomForTexts, font());
    for (QPushButton *button : {add, remove}) {
        button->setText(hasRoom ? button->accessibleName() : QString());
        giveRoom(*button);
    }
}

void RulesSection::resizeEvent(QResizeEvent *event) {
    DetailSection::resizeEvent(event);
    fitButtons();
}

void RulesSection::changeEvent(QEvent *event) {
    DetailSection::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitButtons();
}

void RulesSection::connectTable() {
    LanguageRules &operations = state.languageRules;
    connect(rules, &RuleTable::ruleTyped, this,
            [&operations](const CustomLanguageRule &rule) { operations.updateCustomLanguageRule(rule); });
    connect(rules, &RuleTable::colorLeft, this,
            [&operations](const QUuid &id) { operations.normalizeCustomLanguageRuleColor(id); });
    connect(rules, &RuleTable::removalWanted, this,
            [&operations](const QUuid &id) { operations.removeCustomLanguageRule(id); });
    connect(rules, &RuleTable::syntaxFileWanted, this,
            [&operations](const QUuid &id) { operations.chooseCustomLanguageSyntaxFile(id); });
    connect(rules, &RuleTable::syntaxFileUnwanted, this,
            [&operations](const QUuid &id) { operations.clearCustomLanguageSyntaxFile(id); });
    connect(rules, &RuleTable::currentCellChanged, this, &RulesSection::showCurrent);
}

/// The focus does not leave the section with the last rule.
void RulesSection::showCurrent() {
    const bool hasRule = rules->currentRule().has_value();
    if (!hasRule && remove->hasFocus())
        add->setFocus(Qt::OtherFocusReason);
    remove->setEnabled(hasRule);
}

} // namespace kestor
