#include "support/awaited.h"
#include "support/printers.h"
#include "ui/frame/window_interaction.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::waitUntil;

using Texts = std::optional<QMap<QString, QString>>;

template <typename Value>
QCoro::Task<> keep(QCoro::Task<Value> task, std::optional<Value> *answer) {
    const Value value = co_await task;
    answer->emplace(value);
}

/// A window, the interaction through it, and its dialog once one is open.
class Dialogs : public ::testing::Test {
protected:
    Dialogs() {
        window->show();
        interaction.setWindow(window.get());
    }

    QDialog *dialog() const {
        auto *found = window->findChild<QDialog *>();
        EXPECT_TRUE(found != nullptr && found->isVisible());
        return found;
    }
    QPushButton *button(const QString &text) const {
        for (QPushButton *candidate : dialog()->findChildren<QPushButton *>()) {
            if (candidate->text() == text)
                return candidate;
        }
        return nullptr;
    }
    QWidget *focused() const { return dialog()->focusWidget(); }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    WindowInteraction interaction{};
};

TEST_F(Dialogs, ConfirmationAnswersOnlyContinueWithYes) {
    struct Row {
        const char *name;
        Qt::Key key;
        bool expected;
    };
    for (const Row &row : {Row{"Return continues", Qt::Key_Return, true}, Row{"Esc cancels", Qt::Key_Escape, false}}) {
        SCOPED_TRACE(row.name);
        std::optional<bool> answer;
        keep(interaction.confirm(u"Remove Project"_s, u"Remove it?"_s), &answer);
        EXPECT_EQ(dialog()->windowModality(), Qt::WindowModal);
        ASSERT_NE(button(u"Cancel"_s), nullptr);
        ASSERT_EQ(focused(), button(u"Continue"_s));
        EXPECT_FALSE(answer.has_value());
        QTest::keyClick(focused(), row.key);
        ASSERT_TRUE(waitUntil([&] { return answer.has_value() && window->findChild<QDialog *>() == nullptr; }));
        EXPECT_EQ(*answer, row.expected);
    }
}

TEST_F(Dialogs, PromptIsLaidOutAsItsRows) {
    std::optional<Texts> answer;
    keep(interaction.prompt(u"Set Property"_s, {{u"name"_s, u"Name"_s, u"svn:eol-style"_s},
                                                {u"value"_s, u"Value"_s, {}},
                                                {u"path"_s, u"Path"_s, u"a.c"_s}}),
         &answer);
    const QList<QLineEdit *> edits = dialog()->findChildren<QLineEdit *>();
    ASSERT_EQ(edits.size(), 3);
    const QWidget *rows = edits.first()->parentWidget();
    EXPECT_EQ(rows->size(), QSize(520, 3 * 28 + 2 * 8));
    EXPECT_EQ(dialog()->width(), 520 + 2 * 20);
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(edits.at(row)->geometry(), QRect(126 + 10, row * (28 + 8), 382, 28)) << row;
    QTest::keyClick(dialog(), Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return answer.has_value(); }));
    EXPECT_FALSE(answer->has_value());
}

TEST_F(Dialogs, PromptFocusesTheFirstEmptyFieldAndTrims) {
    struct Row {
        const char *name;
        QList<PromptField> fields;
        int focusedField;
        QString typed;
        QMap<QString, QString> expected;
    };
    const Row rows[] = {
        {"the empty one",
         {{u"a"_s, u"A"_s, u" kept "_s}, {u"b"_s, u"B"_s, {}}},
         1,
         u"\t new "_s,
         {{u"a"_s, u"kept"_s}, {u"b"_s, u"new"_s}}},
        {"the first when none is empty, its text replaced",
         {{u"a"_s, u"A"_s, u"old"_s}, {u"b"_s, u"B"_s, u"x"_s}},
         0,
         u"new"_s,
         {{u"a"_s, u"new"_s}, {u"b"_s, u"x"_s}}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        std::optional<Texts> answer;
        keep(interaction.prompt(u"Title"_s, row.fields), &answer);
        auto *edit = dialog()->findChildren<QLineEdit *>().at(row.focusedField);
        ASSERT_EQ(focused(), edit);
        edit->insert(row.typed);
        QTest::keyClick(edit, Qt::Key_Return);
        ASSERT_TRUE(waitUntil([&] { return answer.has_value() && window->findChild<QDialog *>() == nullptr; }));
        EXPECT_EQ(answer->value(), row.expected);
    }
}

TEST_F(Dialogs, AWindowThatDiesCancelsWhatItAsks) {
    std::optional<bool> confirmed;
    std::optional<Texts> texts;
    std::optional<std::optional<QString>> directory;
    keep(interaction.confirm(u"T"_s, u"M"_s), &confirmed);
    keep(interaction.prompt(u"T"_s, {}), &texts);
    keep(interaction.chooseDirectory(u"T"_s), &directory);
    window.reset();
    ASSERT_TRUE(waitUntil([&] { return confirmed && texts && directory; }));
    EXPECT_FALSE(*confirmed);
    EXPECT_FALSE(texts->has_value());
    EXPECT_FALSE(directory->has_value());
    std::optional<bool> later;
    keep(interaction.confirm(u"T"_s, u"M"_s), &later);
    EXPECT_EQ(later, false);
}

} // namespace
} // namespace kestor
