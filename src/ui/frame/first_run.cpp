#include "ui/frame/first_run.h"

#include "ui/frame/commands.h"
#include "ui/frame/icon_label.h"
#include "ui/look/accent_button.h"
#include "ui/look/derived_font.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"

#include <QAction>
#include <QApplication>
#include <QPainter>
#include <QStyleOptionButton>
#include <QVBoxLayout>

#include <cstdint>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int frameWidth = 560;
constexpr int frameEdge = 40;
constexpr int tileSide = 64;
constexpr int buttonWidth = 320;
constexpr int textEdge = 16 + AccentButton::frameRoom;
constexpr int explanationEdge = 20;

/// A command as a wide button, its name at the left and its shortcut at the right.
class WayButton final : public AccentButton {
public:
    enum class Weight : std::uint8_t { first, further };

    WayButton(QAction *shownAction, Weight shownWeight, QWidget *parent)
        : AccentButton(shownAction->text(), parent), action(shownAction), weight(shownWeight) {
        setDefault(weight == Weight::first);
        connect(this, &QPushButton::clicked, action, &QAction::trigger);
    }

    QSize sizeHint() const override {
        const int textsWidth = fontMetrics().horizontalAdvance(text() + shortcutText()) + 2 * textEdge + paneEdge;
        return {qMax(buttonWidth + 2 * frameRoom, textsWidth), controlHeight(font()) + gap + 2 * frameRoom};
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        if (weight == Weight::first)
            paintGround(painter);
        else
            paintPlainGround(painter);
        const QRect texts = rect().adjusted(textEdge, 0, -textEdge, 0);
        QFont plain = QApplication::font();
        plain.setBold(false); // a weight not set would be taken from the button's own font
        if (weight == Weight::further)
            painter.setFont(plain);
        painter.drawText(texts, Qt::AlignLeft | Qt::AlignVCenter, text());
        painter.setFont(smallFont(plain));
        painter.drawText(texts, Qt::AlignRight | Qt::AlignVCenter, shortcutText());
    }

private:
    QString shortcutText() const { return action->shortcut().toString(QKeySequence::NativeText); }
    void paintPlainGround(QPainter &painter) const {
        QStyleOptionButton option;
        initStyleOption(&option);
        option.text.clear();
        if (!isReady())
            option.state &= ~QStyle::State_Enabled;
        option.rect.adjust(frameRoom, frameRoom, -frameRoom, -frameRoom);
        style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
        painter.setPen(palette().color(isReady() ? QPalette::Normal : QPalette::Disabled, QPalette::ButtonText));
    }

    QAction *action;
    Weight weight;
};

/// The folder drawing on a rounded ground.
class FolderTile final : public QWidget {
public:
    explicit FolderTile(QWidget *parent) : QWidget(parent) {
        setFixedSize(tileSide, tileSide);
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(new IconLabel(Icon::folder, Tone::muted, 32, this), 0, Qt::AlignCenter);
    }

protected:
    void paintEvent(QPaintEvent *) override {
        const Theme theme = themeFor(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(theme.separator);
        painter.setBrush(theme.alternate);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 12, 12);
    }
};

} // namespace

FirstRun::FirstRun(const Commands &commands, QWidget *parent) : QWidget(parent), frame(new QWidget(this)) {
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    auto *heading = new ToneLabel(u"Add a project"_s, Tone::plain, frame);
    setDerivedFont(*heading, [](const QFont &font) { return boldFont(resizedFont(font, 6)); });
    auto *explanation = new QLabel(u"Drop a folder here, or choose one below. Subversion working copies and Git "
                                   "repositories are recognized automatically."_s,
                                   frame);
    explanation->setForegroundRole(QPalette::PlaceholderText);
    explanation->setWordWrap(true);
    explanation->setAlignment(Qt::AlignCenter);
    explanation->setContentsMargins(explanationEdge, 0, explanationEdge, 0);
    auto *buttons = new QVBoxLayout;
    buttons->setSpacing(gap - 2 * AccentButton::frameRoom);
    for (const Command command : {Command::addExistingWorkingCopy, Command::checkout, Command::createRepository}) {
        const auto weight = ways.isEmpty() ? WayButton::Weight::first : WayButton::Weight::further;
        ways.append(new WayButton(commands.action(command), weight, frame));
        buttons->addWidget(ways.last());
    }
    auto *column = new QVBoxLayout(frame);
    column->setContentsMargins(frameEdge, frameEdge, frameEdge, frameEdge);
    column->setSpacing(gap);
    column->addWidget(new FolderTile(frame), 0, Qt::AlignCenter);
    column->addSpacing(12);
    column->addWidget(heading, 0, Qt::AlignCenter);
    column->addWidget(explanation);
    column->addSpacing(12);
    column->addLayout(buttons);
    column->setAlignment(buttons, Qt::AlignCenter);
    setFocusProxy(ways.first());
    frame->setFixedWidth(frameWidth);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(frame, 0, Qt::AlignCenter);
}

void FirstRun::setHeld(bool held) {
    for (AccentButton *way : std::as_const(ways))
        way->setLook(held ? AccentButton::Look::held : AccentButton::Look::ready);
}

void FirstRun::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(theme.outline, 2);
    pen.setDashPattern({3, 2});
    painter.setPen(pen);
    painter.drawRoundedRect(frame->geometry().adjusted(1, 1, -1, -1), 10, 10);
}

} // namespace kestor
