#include "support/pause_scenarios.h"

#include "support/app_fixture.h"
#include "tools/svn_preference.h"
#include "ui/diff/diff_view.h"
#include "ui/frame/main_window.h"
#include "ui/list/filter_field.h"
#include "ui/list/row_list_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QThreadPool>

namespace kestor::testing {
namespace {

using namespace Qt::StringLiterals;

constexpr int changedRows = 100'000;
constexpr int unversionedFiles = 50'000;
constexpr int revisions = 20'000;
constexpr int diffChanges = 250'000; ///< each with a removed, an added and two equal lines
constexpr int filesPerFolder = 500;

QByteArray fileName(int number) {
    return "module_" + QByteArray::number(number / filesPerFolder) + "/file_" + QByteArray::number(number) + ".cpp";
}

QByteArray printedStatus(int rows) {
    QByteArray text = "<status><target path='.'>";
    for (int row = 0; row < rows; ++row)
        text += "<entry path='" + fileName(row) + "'><wc-status item='modified' revision='1'/></entry>\n";
    return text + "</target></status>";
}

QByteArray printedDiff(int changes) {
    QByteArray text = "Index: a.cpp\n--- a.cpp\n+++ a.cpp\n";
    for (int change = 0; change < changes; ++change) {
        const QByteArray number = QByteArray::number(change * 3 + 1);
        text += "@@ -" + number + ",3 +" + number + ",3 @@\n  int before;\n-  old" + number + "();\n+  changed" +
                number + "();\n  return;\n";
    }
    return text;
}

QByteArray printedLog() {
    QByteArray text = "<log>";
    for (int revision = revisions; revision > 0; --revision) {
        const QByteArray number = QByteArray::number(revision);
        text += "<logentry revision='" + number + "'><author>a</author><date>2024-01-01T10:00:00.000000Z</date><paths>";
        for (int path = 0; path < 5; ++path)
            text += "<path action='M' kind='file'>/trunk/" + fileName(revision * 7 + path) + "</path>";
        text += "</paths><msg>change " + number + "</msg></logentry>\n";
    }
    return text + "</log>";
}

/// The window of a project, watched from the first command on.
class WatchedWindow {
public:
    explicit WatchedWindow(double longest)
        : watch(
              longest, [this] { return f.app.busyMessage.value().value_or(QString()); },
              [this](const Pause &pause) { pauses.append(pause); }) {
        // Prints the file that is called like the subcommand.
        tree.writeProgram(u"svn"_s, "exec cat \"${0%/*}/$1\"\n");
        f.settings.setValue(svnExecutablePathKey, tree.path(u"svn"_s));
        prints(u"info"_s, "<info><entry path='.'><relative-url>^/trunk</relative-url></entry></info>");
        prints(u"status"_s, printedStatus(3));
        prints(u"diff"_s, printedDiff(3));
        prints(u"log"_s, "<log/>");
    }

    void prints(const QString &subcommand, const QByteArray &output) { tree.write(subcommand, output); }
    void open() {
        tree.makeDirectory(u"project"_s);
        window.show();
        does([this] { f.app.addProject(tree.path(u"project"_s), RepositoryKind::svn); });
    }
    /// Lets the user do something and waits until all that follows is done.
    template <typename Action>
    void does(Action action) {
        QTimer::singleShot(0, &window, action);
        bool begun = false;
        QTimer::singleShot(0, &window, [&begun] { begun = true; });
        QDeadlineTimer patience(100'000);
        const auto isDone = [&] {
            return begun && f.app.operations.isIdle() && QThreadPool::globalInstance()->activeThreadCount() == 0;
        };
        while (!isDone()) {
            if (patience.hasExpired())
                qFatal("the window did not come to rest");
            waitUntil([once = 0]() mutable { return once++ > 0; });
        }
        waitUntil([turns = 0]() mutable { return turns++ > 5; }); // paints
    }
    template <typename Part>
    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        for (Part *part : window.findChildren<Part *>()) {
            if (!part->isVisible())
                continue;
            const QString text = key < Qt::Key_Escape && !modifiers ? QString(QChar(key)) : QString();
            return does([=] {
                QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
                QCoreApplication::sendEvent(part, &press);
            });
        }
        qFatal("nobody to press the key");
    }
    void walkList() {
        for (const int key : {Qt::Key_End, Qt::Key_Home, Qt::Key_PageDown, Qt::Key_Space})
            press<RowListView>(key);
        for (const int key : {Qt::Key_9, Qt::Key_8, Qt::Key_Backspace, Qt::Key_Backspace})
            press<FilterField>(key);
    }
    void showTab(WorkflowTab tab) {
        does([this, tab] {
            f.app.selectedTab = tab;
            f.app.tabChanged();
        });
    }
    void refresh() {
        does([this] { f.app.refreshAll(); });
    }

    TempTree tree{};
    AppFixture f{};
    MainWindow window{f.app, f.settings};
    QList<Pause> pauses{};
    PauseWatch watch;
};

} // namespace

QList<Pause> manyChangedRows(double longest) {
    WatchedWindow user(longest);
    user.prints(u"status"_s, printedStatus(changedRows));
    user.open();
    user.walkList();
    user.press<RowListView>(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    user.press<RowListView>(Qt::Key_A, Qt::ControlModifier);
    user.prints(u"status"_s, printedStatus(changedRows - 1));
    user.refresh();
    return user.pauses;
}

QList<Pause> longDiff(double longest) {
    WatchedWindow user(longest);
    user.prints(u"diff"_s, printedDiff(diffChanges));
    user.open();
    user.press<DiffView>(Qt::Key_End, Qt::ControlModifier);
    user.press<DiffView>(Qt::Key_PageUp);
    user.press<DiffView>(Qt::Key_A, Qt::ControlModifier);
    user.press<RowListView>(Qt::Key_Down);
    return user.pauses;
}

QList<Pause> longHistory(double longest) {
    WatchedWindow user(longest);
    user.prints(u"log"_s, printedLog());
    user.open();
    user.showTab(WorkflowTab::history);
    user.walkList();
    user.refresh();
    user.showTab(WorkflowTab::archives);
    user.showTab(WorkflowTab::changes);
    return user.pauses;
}

QList<Pause> manyUnversionedFiles(double longest) {
    WatchedWindow user(longest);
    user.prints(u"status"_s, "<status><target path='.'><entry path='new'><wc-status item='unversioned'/></entry>"
                             "</target></status>");
    for (int file = 0; file < unversionedFiles; ++file)
        user.tree.write(u"project/new/"_s + QString::fromLatin1(fileName(file)));
    user.open();
    user.walkList();
    user.refresh();
    return user.pauses;
}

} // namespace kestor::testing
