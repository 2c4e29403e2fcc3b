#include "ui/tabs/executable_section.h"

#include "controller/svn_executable.h"
#include "ui/look/control_size.h"
#include "ui/look/derived_font.h"
#include "ui/look/held_button.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"
#include "ui/look/tone_label.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>

namespace kestor {

namespace {

/// Below that width the buttons stand below the path.
constexpr int oneLineWidth = 560;

/// Triggers an action, which decides by itself whether it may run.
HeldButton *actionButton(QAction *action) {
    auto *button = new HeldButton(action->text());
    giveRoom(*button);
    QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
    return button;
}

} // namespace

ExecutableSection::ExecutableSection(const ExecutableActions &actions, QWidget *parent)
    : DetailSection(tr("svn Executable"), parent), path(new QLineEdit), caption(new ToneLabel), line(new QHBoxLayout),
      chooseButton(actionButton(actions.choose)), fromPathButton(actionButton(actions.useFromPath)) {
    path->setReadOnly(true);
    path->setMinimumHeight(leastControlHeight);
    giveRoom(*path);
    path->setAccessibleName(tr("svn executable in use"));
    caption->setMinimumHeight(rowHeight(font()));
    caption->setElideMode(Qt::ElideRight);
    setDerivedFont(*path, fixedFont);
    setDerivedFont(*caption, smallFont);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(gap);
    buttons->addWidget(chooseButton);
    buttons->addWidget(fromPathButton);
    line->setSpacing(gap);
    line->addWidget(path, 1);
    line->addLayout(buttons);
    body().addLayout(line);
    body().addWidget(caption);
    applyLook();
}

void ExecutableSection::setChosenPath(const QString &chosen) {
    chosenPath = chosen;
    if (chosen.isEmpty() && fromPathButton->hasFocus())
        chooseButton->setFocus();
    fromPathButton->setEnabled(!chosen.isEmpty());
    lookUp();
}

void ExecutableSection::setHeld(bool held) {
    chooseButton->setHeld(held);
    fromPathButton->setHeld(held);
}

void ExecutableSection::lookUp() {
    using Source = SVNExecutable::Source;
    const SVNExecutable inUse = svnExecutableInUse(chosenPath);
    path->setText(inUse.path);
    path->setToolTip(inUse.path);
    path->setCursorPosition(0);
    switch (inUse.source) {
    case Source::chosen:
        caption->setText(tr("Chosen in place of the one in PATH"));
        break;
    case Source::chosenUnusable:
        caption->setText(tr("This file cannot be run"));
        break;
    case Source::found:
        caption->setText(tr("Found through PATH"));
        break;
    case Source::missing:
        caption->setText(tr("Not found: choose an executable, or make svn available in PATH"));
        break;
    }
    const bool works = inUse.source == Source::chosen || inUse.source == Source::found;
    caption->setTone(works ? Tone::muted : Tone::failure);
    path->setAccessibleDescription(caption->text());
}

/// What PATH leads to may have changed since.
void ExecutableSection::showEvent(QShowEvent *event) {
    DetailSection::showEvent(event);
    lookUp();
}

void ExecutableSection::resizeEvent(QResizeEvent *event) {
    DetailSection::resizeEvent(event);
    line->setDirection(width() < oneLineWidth ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

void ExecutableSection::changeEvent(QEvent *event) {
    DetailSection::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyLook();
}

void ExecutableSection::applyLook() {
    QPalette quiet = palette();
    quiet.setColor(QPalette::Base, themeFor(palette()).alternate);
    path->setPalette(quiet);
}

} // namespace kestor
