#include "support/window_test.h"
#include "ui/diff/change_run.h"
#include "ui/diff/colored_parts.h"
#include "ui/diff/line_looks.h"

#include <QThreadPool>

namespace kestor {
namespace {

/// A diff of one hunk whose lines begin with their signs.
DiffDocumentPtr diffOf(const QString &path, const QStringList &lines) {
    return diffDocument(u"Index: %1\n--- %1\n+++ %1\n@@ -1,9 +1,9 @@\n"_s.arg(path) + lines.join(u'\n') + u'\n');
}

/// "first-last" of the removed lines and of the added ones; "" without a run.
QString described(const std::optional<ChangeRun> &run) {
    const auto part = [](const std::vector<qint64> &lines) {
        return u"%1-%2"_s.arg(lines.front()).arg(lines.back());
    };
    return run ? part(run->removed) + u' ' + part(run->added) : QString();
}

TEST(ChangeRun, HoldsRemovedLinesAndTheAddedOnesBehindThem) {
    const auto many = [](int count, const QString &line) {
        return QStringList(count, line);
    };
    const Rows<QStringList, qint64, QString> rows{
        {"from a removed line", u" c|-a|-b|+a| c"_list, 2, u"1-2 3-3"_s},
        {"from an added line", u"-a|+a|+b|-c|+d"_list, 2, u"0-0 1-2"_s},
        {"added lines before", u"+a|-c|+d"_list, 1, u"1-1 2-2"_s},
        {"notes between", u"-a|\\ No newline|+a|\\ No newline"_list, 2, u"0-0 2-2"_s},
        {"context", u"-a| c|+a"_list, 1, {}},
        {"only removed", u"-a| c|+a"_list, 0, {}},
        {"only added", u"-a| c|+a"_list, 2, {}},
        {"longest, from its end", many(100, u"-a"_s) + many(100, u"+a"_s), 199, u"0-99 100-199"_s},
        {"too long, from its beginning", many(100, u"-a"_s) + many(101, u"+a"_s), 0, {}},
        {"too long, from its end", many(150, u"-a"_s) + many(60, u"+a"_s), 209, {}},
        {"far too long", many(5000, u"-a"_s) + many(9, u"+a"_s), 2500, {}},
    };
    for (const auto &[name, lines, line, expected] : rows) {
        const DiffDocumentPtr document = diffOf(u"a"_s, lines);
        EXPECT_EQ(described(changeRunAt(document->diff.files.first().hunks.first(), line)), expected);
    }
}

TEST(SyntaxColors, CanBeReadWhereverTheyStand) {
    EXPECT_NEAR(contrast(Qt::white, QColor(0x77, 0x77, 0x77)), 4.478, 0.001);
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        const Theme theme = themeFor(fallbackPalette(scheme));
        SyntaxColors colors(theme);
        const QStringList own = u"#6A737D|#0A7F42|#B42D8D|#953800|#0550AE|#116329|#0969DA|#0A7A83|#CF222E|"
                                "#57606A|#FFFF00|#101010"_list;
        for (const QColor &ground : {theme.base, theme.addLine, theme.delLine, theme.addWord, theme.delWord,
                                     theme.selection, theme.selectionIdle}) {
            for (const QString &color : own)
                EXPECT_GE(contrast(colors.on(color, ground), ground), 4.5) << color.toStdString();
        }
        EXPECT_EQ(colors.on(u"no color"_s, theme.base), theme.text);
    }
    const Theme light = themeFor(fallbackPalette(ColorScheme::light));
    EXPECT_EQ(SyntaxColors(light).on(u"#b42d8d"_s, light.addLine), QColor(0xB4, 0x2D, 0x8D)) << "readable as it is";
}

class LineLooksTest : public ::testing::Test {
protected:
    void show(const DiffDocumentPtr &document) {
        rows = DiffRows(document, {});
        looks.setDocument(document);
        looks.prepare(0, rows.count());
        // Lines are made in their order; on a busy machine the last ones come later.
        const qint64 last = document->lineCount - 1;
        EXPECT_TRUE(document->isPlain() || QTest::qWaitFor([&] { return looks.find(last) != nullptr; }));
    }
    /// The spans of a line, as "start+length color".
    QString spans(qint64 line) const {
        QStringList texts;
        if (const LineLook *look = looks.find(line)) {
            for (const SyntaxSpan &span : look->spans)
                texts.append(u"%1+%2 %3"_s.arg(span.start).arg(span.length).arg(span.colorHex));
        }
        return texts.join(u", ");
    }
    std::vector<TextRange> marks(qint64 line) const {
        const LineLook *look = looks.find(line);
        return look ? look->marks : std::vector<TextRange>();
    }

    DiffRows rows{};
    LineLooks looks{rows};
};

TEST_F(LineLooksTest, ColorLinesAndMarkChangedWords) {
    show(diffOf(u"src/a.cpp"_s,
                {u" if"_s, u"-return first;"_s, u"\\ No newline, if"_s, u"+return second;"_s, u"+while"_s}));
    EXPECT_EQ(spans(0), u"0+2 #B42D8D"_s);
    EXPECT_EQ(spans(1), u"0+6 #B42D8D"_s);
    EXPECT_EQ(spans(2), u""_s) << "a note is no code";
    EXPECT_EQ(marks(1), (std::vector<TextRange>{{7, 5}}));
    EXPECT_EQ(marks(3), (std::vector<TextRange>{{7, 6}}));
    EXPECT_EQ(marks(4), std::vector<TextRange>());

    show(diffOf(u"LICENSE"_s, {u" if"_s}));
    EXPECT_EQ(spans(0), u""_s);
    show(diffOf(u"a.py"_s, {u" #"_s + QString(10'000, u'x'), u" #"_s + QString(9999, u'x')}));
    EXPECT_EQ(spans(0), u""_s) << "too long to be read as code";
    EXPECT_EQ(spans(1), u"0+10000 #6A737D"_s);
    show(diffDocument(u"if (plain text)"_s));
    EXPECT_EQ(looks.find(0), nullptr);
}

TEST_F(LineLooksTest, EveryFileOfADiffHasItsLanguage) {
    show(diffDocument(u"Index: a.c\n--- a.c\n+++ a.c\n@@ -1 +1 @@\n if def\n"
                      "Index: b.py\n--- b.py\n+++ b.py\n@@ -1 +1 @@\n class #\n"
                      "Index: c.txt\n--- c.txt\n+++ /dev/null\n@@ -1 +0,0 @@\n-if\n"
                      "Index: d.sql\n--- d.sql\n+++ /dev/null\n@@ -1,2 +0,0 @@\n--- old rows\n-SELECT\n"_s));
    EXPECT_EQ(spans(0), u"0+2 #B42D8D, 3+3 #B42D8D"_s);
    EXPECT_EQ(spans(1), u"0+5 #B42D8D, 6+1 #6A737D"_s);
    EXPECT_EQ(spans(2), u""_s);
    EXPECT_EQ(spans(3), u"0+6 #B42D8D"_s) << "below a removed comment that looks like a path header";
}

TEST_F(LineLooksTest, FollowTheRulesOfTheUserAndTheirFiles) {
    TempTree tree;
    tree.write(u"own"_s, "- match: own\n  scope: keyword\n");
    const QString path = tree.path(u"own"_s);
    // As the view does by painting again.
    QObject::connect(&looks, &LineLooks::changed, &looks, [this] { looks.prepare(0, rows.count()); });
    const auto becomes = [this](const QString &expected) {
        return QTest::qWaitFor([&] { return spans(0) == expected; });
    };
    const DiffDocumentPtr document = diffOf(u"a.x"_s, {u" if own other"_s});
    show(document);
    EXPECT_TRUE(becomes(u""_s));

    looks.setLanguageRules({{.fileExtension = u"x"_s, .languageName = u"C"_s}});
    EXPECT_TRUE(becomes(u"0+2 #B42D8D"_s));

    looks.setLanguageRules({{.fileExtension = u"x"_s, .languageName = u"C"_s, .syntaxFilePath = path}});
    EXPECT_TRUE(becomes(u"3+3 #B42D8D"_s));

    tree.write(u"own"_s, "- match: other\n  scope: comment\n");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    file.close();
    show(document);
    EXPECT_TRUE(becomes(u"7+5 #6A737D"_s)) << "the file is read again when it has changed";

    QFile::remove(path);
    show(document);
    EXPECT_TRUE(becomes(u"0+2 #B42D8D"_s)) << "without its file the language has its built-in colors";
}

TEST_F(LineLooksTest, ComeLaterWhereTheyTakeLong) {
    TempTree tree;
    tree.write(u"trap"_s, "- match: (*NO_JIT)(a|aa)+$\n  scope: comment\n- match: ^b\n  scope: string\n");
    looks.setLanguageRules({{.fileExtension = u"x"_s, .languageName = u"X"_s, .syntaxFilePath = tree.path(u"trap"_s)}});
    const QStringList texts(300, u" b"_s + QString(4000, u'a') + u'!');
    const DiffDocumentPtr document = diffOf(u"a.x"_s, texts);
    rows = DiffRows(document, {});
    looks.setDocument(document);
    ASSERT_TRUE(QTest::qWaitFor([&] {
        looks.prepare(0, 2);
        return spans(0) == u"0+1 #0A7F42"_s;
    })) << "the file has been read";
    looks.prepare(0, 200);
    EXPECT_NE(looks.find(0), nullptr);
    EXPECT_EQ(looks.find(150), nullptr) << "painting does not wait for them";
    ASSERT_TRUE(QTest::qWaitFor([&] { return looks.find(298) != nullptr; })) << "those around follow";
    EXPECT_EQ(spans(150), u"0+1 #0A7F42"_s);
}

} // namespace
} // namespace kestor
