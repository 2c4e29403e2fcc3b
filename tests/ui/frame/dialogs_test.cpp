#include "support/window_test.h"
#include "ui/frame/window_interaction.h"

#include <QComboBox>
#include <QCompleter>
#include <QDialog>
#include <QFileDialog>
#include <QTextEdit>

#include <algorithm>

namespace kestor {
namespace {

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
    bool isClosed() const { return window->findChild<QDialog *>() == nullptr; }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    WindowInteraction interaction{};
};

TEST_F(Dialogs, ConfirmationAnswersOnlyContinueWithYes) {
    const Rows<Qt::Key, bool> rows{{"Return continues", Qt::Key_Return, true}, {"Esc cancels", Qt::Key_Escape, false}};
    for (const auto &[name, key, expected] : rows) {
        std::optional<bool> answer;
        keep(interaction.confirm(u"Remove Project"_s, u"Remove it?"_s), &answer);
        EXPECT_EQ(dialog()->windowModality(), Qt::WindowModal);
        ASSERT_NE(button(u"Cancel"_s), nullptr);
        ASSERT_EQ(focused(), button(u"Continue"_s));
        EXPECT_FALSE(answer.has_value());
        QTest::keyClick(focused(), key);
        ASSERT_TRUE(waitUntil([&] { return answer.has_value() && isClosed(); }));
        EXPECT_EQ(*answer, expected);
    }
}

TEST_F(Dialogs, PromptFocusesTheFirstEmptyFieldAndTrims) {
    const Rows<QString, QString, int, QString, QMap<QString, QString>> rows{
        {"the empty one", u" kept "_s, {}, 1, u"\t new "_s, u"a=kept|b=new"_answer},
        {"the first when none is empty, its text replaced", u"old"_s, u"x"_s, 0, u"new"_s, u"a=new|b=x"_answer},
    };
    for (const auto &[name, first, second, focusedField, typed, expected] : rows) {
        const QList<PromptField> fields{{u"a"_s, u"A"_s, first}, {u"b"_s, u"B"_s, second}};
        std::optional<Texts> answer;
        keep(interaction.prompt(u"Title"_s, fields), &answer);
        auto *edit = dialog()->findChildren<QLineEdit *>().at(focusedField);
        ASSERT_EQ(focused(), edit);
        edit->insert(typed);
        QTest::keyClick(edit, Qt::Key_Return);
        ASSERT_TRUE(waitUntil([&] { return answer.has_value() && isClosed(); }));
        EXPECT_EQ(answer->value(), expected);
    }
}

TEST_F(Dialogs, PromptCutsNoTextAndRefusesWhatItCannotHold) {
    std::optional<Texts> answer;
    keep(interaction.prompt(u"Set Property"_s, {{u"value"_s, u"Value"_s, {}}}), &answer);
    auto *edit = dialog()->findChild<QLineEdit *>();
    const auto pasteRefused = [&](const QString &text) {
        QGuiApplication::clipboard()->setText(text);
        edit->selectAll();
        edit->paste();
        return std::ranges::any_of(dialog()->findChildren<QLabel *>(), [](const QLabel *label) {
            return label->isVisible() && label->text().contains(u"longer than"_s);
        });
    };
    const QString text = QString(40000, u'x') + u'\n' + u'y';
    EXPECT_FALSE(pasteRefused(text));
    EXPECT_TRUE(pasteRefused(QString(1000000, u'z')));
    QTest::keyClick(edit, Qt::Key_End);
    QTest::keyClick(edit, Qt::Key_A);
    QTest::keyClick(edit, Qt::Key_Return);
    ASSERT_TRUE(waitUntil([&] { return answer.has_value(); }));
    EXPECT_TRUE(answer->value().value(u"value"_s) == text + u'a');
}

TEST_F(Dialogs, BranchIsTheTypedOneElseTheChosenOne) {
    const QList<GitBranch> branches{
        {u"main"_s, true, false}, {u"topic"_s, false, false}, {u"origin/topic"_s, false, true}};
    // The chosen one is -1 where it stays what is offered.
    const Rows<QList<GitBranch>, std::optional<QString>, int, QString, std::optional<SwitchTarget>> rows{
        {"the current one is offered", branches, u"main"_s, -1, {}, SwitchTarget{u"main"_s, false}},
        {"a remote one", branches, u"main"_s, 2, {}, SwitchTarget{u"origin/topic"_s, true}},
        {"typed text wins and is local", branches, u"main"_s, 2, u"  origin/topic\t"_s,
         SwitchTarget{u"origin/topic"_s, false}},
        {"blanks are nothing", branches, u"main"_s, 1, u"  "_s, SwitchTarget{u"topic"_s, false}},
        {"none is offered where HEAD is detached", branches, std::nullopt, -1, {}, std::nullopt},
        {"without branches only the name", {}, std::nullopt, -1, u"new"_s, SwitchTarget{u"new"_s, false}},
        {"without branches and name nothing", {}, std::nullopt, -1, {}, std::nullopt},
    };
    for (const auto &[name, offered, current, chosen, typed, expected] : rows) {
        std::optional<std::optional<SwitchTarget>> answer;
        keep(interaction.chooseBranch(offered, current), &answer);
        auto *field = dialog()->findChild<QLineEdit *>();
        ASSERT_EQ(focused(), field);
        auto *list = dialog()->findChild<QComboBox *>();
        ASSERT_EQ(list == nullptr, offered.isEmpty());
        if (chosen >= 0)
            list->setCurrentIndex(chosen);
        field->insert(typed);
        button(u"Switch"_s)->click();
        ASSERT_TRUE(waitUntil([&] { return answer.has_value() && isClosed(); }));
        EXPECT_EQ(*answer, expected);
    }
}

TEST_F(Dialogs, ANewFolderMayHaveANameThatIsTakenOrNone) {
    const TempTree tree;
    QDir(tree.path()).mkdir(u"taken"_s);
    for (const QString &typed : u"taken||  "_list) {
        std::optional<std::optional<QString>> answer;
        keep(interaction.chooseNewFolder({u"Title"_s, u"Message"_s, u"Create"_s, u"Name:"_s, u"New"_s}), &answer);
        auto *panel = qobject_cast<QFileDialog *>(dialog());
        ASSERT_NE(panel, nullptr);
        auto *name = panel->findChild<QLineEdit *>(u"fileNameEdit"_s);
        EXPECT_EQ(name->text(), u"New"_s);
        panel->setDirectory(tree.path());
        name->setText(typed);
        static_cast<QDialog *>(panel)->accept();
        ASSERT_TRUE(waitUntil([&] { return answer.has_value() && isClosed(); }));
        EXPECT_EQ(*answer, tree.path() + u'/' + typed.trimmed());
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
