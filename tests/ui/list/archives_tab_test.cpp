#include "support/app_fixture.h"
#include "support/printers.h"
#include "support/repositories.h"
#include "ui/list/filter_field.h"
#include "ui/list/revision_header.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/archives_tab.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::AppFixture;
using testing::awaited;
using testing::SvnFixture;
using testing::waitUntil;

class ShownArchives {
public:
    ShownArchives() {
        tab.resize(1100, 500);
        tab.show();
        tab.activateWindow();
        list().setFocus();
    }

    RowListView &list() { return *qobject_cast<RowListView *>(tab.focusPanes().at(0)); }
    RowListView &paths() { return *qobject_cast<RowListView *>(tab.focusPanes().at(1)); }
    bool says(const QString &text) const {
        return waitUntil([&] {
            const QList<QLabel *> labels = tab.findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(),
                               [&](const QLabel *label) { return label->isVisible() && label->text() == text; });
        });
    }
    void publish(const QList<LogEntry> &entries) {
        fixture.app.archiveEntries = entries;
        fixture.app.archivesLoaded = true;
    }

    AppFixture fixture{};
    QAction zip{u"Create Archive Zip..."_s};
    ArchivesTab tab{fixture.app, &zip};
};

TEST(ArchivesTab, ARevisionChosenShowsItsZipAndPaths) {
    SvnFixture repository;
    repository.write(u"a"_s);
    repository.commitAll(u"first"_s);
    repository.write(u"b"_s);
    repository.commitAll(u"second"_s);
    ShownArchives shown;
    shown.fixture.open(repository.path(), RepositoryKind::svn);
    awaited(shown.fixture.app.loadArchives());
    EXPECT_TRUE(shown.says(u"3 revisions"_s));
    EXPECT_TRUE(shown.says(u"(select a revision)"_s));
    QTest::keyClick(&shown.list(), Qt::Key_Down);
    QTest::keyClick(&shown.list(), Qt::Key_Down);
    EXPECT_EQ(shown.fixture.app.selectedArchiveEntryID.value(), 2);
    EXPECT_FALSE(shown.fixture.app.busyMessage.value().has_value()) << "choosing a revision loads nothing";
    EXPECT_TRUE(shown.says(u"wc-r2.zip"_s));
    EXPECT_TRUE(shown.says(u"One folder inside: wc-r2"_s));
    shown.paths().setFocus();
    QTest::keyClick(&shown.paths(), Qt::Key_Down);
    QTest::keyClick(&shown.paths(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"/trunk/a"_s);
    QSignalSpy asked(&shown.zip, &QAction::triggered);
    const QList<QPushButton *> buttons = shown.tab.findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->text() == shown.zip.text())
            QTest::mouseClick(button, Qt::LeftButton);
    }
    EXPECT_EQ(asked.size(), 1);
}

TEST(ArchivesTab, FiltersByRevisionAuthorAndMessage) {
    struct Row {
        QString typed;
        QStringList shown;
    };
    ShownArchives shown;
    shown.publish({{.revision = 12, .author = u"ada"_s, .message = u"Lower the roof\n\nas asked by bob"_s},
                   {.revision = 2, .author = u"bob"_s, .message = {}}});
    const Row rows[] = {{u"r12"_s, {u"r12"_s}},
                        {u"ADA roof"_s, {u"r12"_s}},
                        {u"bob"_s, {u"r12"_s, u"r2"_s}},
                        {u"ada2"_s, {}},
                        {u"2"_s, {u"r12"_s, u"r2"_s}}};
    for (const Row &row : rows) {
        SCOPED_TRACE(qPrintable(row.typed));
        shown.tab.findChild<FilterField *>()->setText(row.typed);
        QStringList found;
        for (int index = 0; index < shown.list().model()->rowCount(); ++index)
            found += shown.list().model()->index(index, 0).data().toString();
        EXPECT_EQ(found, row.shown);
    }
}

TEST(ArchivesTab, HasColumnsWhereThereIsRoom) {
    QList<LogEntry> entries;
    for (int revision = 500; revision > 0; --revision)
        entries += {.revision = revision, .author = u"ada"_s, .message = u"m"_s};
    ShownArchives shown;
    shown.publish(entries);
    const auto *header = shown.tab.findChild<RevisionHeader *>();
    const auto rowHeight = [&] {
        QCoreApplication::processEvents();
        return shown.list().visualRect(shown.list().indexAt(QPoint(5, 5))).height();
    };
    EXPECT_EQ(rowHeight(), 24);
    EXPECT_TRUE(header->isVisible());
    shown.list().setCurrentId(u"250"_s);
    shown.list().scrollTo(shown.list().currentIndex(), QAbstractItemView::PositionAtTop);
    shown.tab.setListWidth(400);
    EXPECT_EQ(rowHeight(), 44);
    EXPECT_FALSE(header->isVisible());
    EXPECT_EQ(shown.list().visualRect(shown.list().currentIndex()).top(), 0) << "the current row stays where it was";
}

} // namespace
} // namespace kestor
