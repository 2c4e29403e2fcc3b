#pragma once

#include "support/awaited.h"
#include "support/temp_tree.h"
#include "support/test.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace kestor::testing {

/// True when a visible label below `part` has that text.
inline bool says(const QWidget &part, const QString &text) {
    const QList<QLabel *> labels = part.findChildren<QLabel *>();
    return std::ranges::any_of(labels,
                               [&](const QLabel *label) { return label->isVisible() && label->text() == text; });
}

/// Clicks every button below `part` that has that text or name.
inline void clickButton(const QWidget &part, const QString &text) {
    for (QAbstractButton *button : part.findChildren<QAbstractButton *>()) {
        if (button->text() == text || button->accessibleName() == text)
            button->click();
    }
}

inline QMenu *openMenu() {
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

/// The texts of its items, "-" for lines.
inline QStringList itemTexts(const QMenu &menu) {
    QStringList texts;
    for (const QAction *item : menu.actions())
        texts.append(item->isSeparator() ? QStringLiteral("-") : item->text());
    return texts;
}

/// Triggers the item of that text.
inline void clickItem(const QMenu &menu, const QString &text) {
    for (QAction *item : menu.actions()) {
        if (item->text() == text)
            item->trigger();
    }
}

/// Shows a window and waits until it has the keyboard.
inline void activate(QWidget &window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(waitUntil([&] { return QApplication::activeWindow() == &window; }));
}

} // namespace kestor::testing
