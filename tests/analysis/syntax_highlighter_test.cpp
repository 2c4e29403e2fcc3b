#include "analysis/compiled_syntax.h"
#include "analysis/syntax_highlighter.h"
#include "support/temp_tree.h"
#include "support/test.h"

#include <QHash>

namespace kestor {

// GoogleTest finds printers in the namespace of the type.
static void PrintTo(const SyntaxSpan &span, std::ostream *out) {
    *out << span.start << '+' << span.length << ' ' << span.colorHex.toStdString();
}

namespace {

QString colorName(const QString &hex) {
    static const QHash<QString, QString> names{{u"#6A737D"_s, u"comment"_s}, {u"#0A7F42"_s, u"string"_s},
                                               {u"#B42D8D"_s, u"keyword"_s}, {u"#953800"_s, u"number"_s},
                                               {u"#0550AE"_s, u"name"_s},    {u"#116329"_s, u"tag"_s},
                                               {u"#0969DA"_s, u"link"_s}};
    return names.value(hex, hex);
}

/// "color(text)" for every span.
QString colored(const QString &line, const SyntaxDefinition &definition) {
    QStringList spans;
    for (const SyntaxSpan &span : SyntaxHighlighter::collectedMatches(line, definition.rules))
        spans.append(u"%1(%2)"_s.arg(colorName(span.colorHex), line.sliced(span.start, span.length)));
    return spans.join(u' ');
}

TEST(SyntaxHighlighter, ColorsLinesOfEveryRuleSet) {
    const Rows<QString, QString, QString> rows{
        {"a comment inside a string drops the string", u"c"_s, u"x = \"http://host\"; if (1)"_s,
         u"comment(//host\"; if (1))"_s},
        {"strings", u"C++"_s, uR"(f("a \" b", '\'', "open)"_s, uR"(string("a \" b") string('\''))"_s},
        {"of two comments the earlier one, even if the other went on", u"Go"_s, u"a /* // */ \"b /* c */\" // end"_s,
         u"comment(/* // */) comment(/* c */)"_s},
        {"the longer of two comments that start together", u"Rust"_s, u"//**/ x"_s, u"comment(//**/ x)"_s},
        {"keyword, type, number", u"Swift"_s, u"let n: Int = 12.5e-3 + 0x1F + i32"_s,
         u"keyword(let) name(Int) number(12.5e-3) name(i32)"_s},
        {"whole words only", u"Java"_s, u"classes ifs _if if_ élif ifé 7up if"_s, u"keyword(if)"_s},
        {"python", u"Python"_s, u"def f(x): return '#' + \"a\" # None"_s,
         u"keyword(def) keyword(return) comment(#' + \"a\" # None)"_s},
        {"tags and attributes", u"HTML"_s, u"<a href=\"x\" data-y='z'>text</a><!-- <b> --></>"_s,
         u"tag(<a) number(href) string(\"x\") number(data-y) string('z') tag(</a) comment(<!-- <b> -->) comment(</>)"_s},
        {"a quoted comment loses its quotes", u"xml"_s, u"\"<!-- a -->\""_s, u"comment(<!-- a -->)"_s},
        {"keys beat strings, comments beat both", u"JSON"_s, u"\"a\" : [\"b\", true, -1] # \"c\": no"_s,
         u"name(\"a\") string(\"b\") keyword(true) number(1) comment(# \"c\": no)"_s},
        {"headings hold all else", u"Markdown"_s, u"## A `b` **c**"_s, u"name(## A `b` **c**)"_s},
        {"a quotation drops nothing of higher priority", u"markdown"_s, u"> a `b`"_s, u"number(`b`)"_s},
        {"sql", u"SQL"_s, u"SELECT 'it''s' FROM t WHERE a = 1.5 -- AND 'x'"_s,
         u"keyword(SELECT) string('it''s') keyword(FROM) keyword(WHERE) number(1.5) comment(-- AND 'x')"_s},
        {"variables beat keywords", u"Shell"_s, u"if [ $if = ${done} ]; then echo \"$x\" '\\' # fi"_s,
         u"keyword(if) number($if) number(${done}) keyword(then) string(\"$x\") string('\\') comment(# fi)"_s},
        {"a comment ends at no line break inside", u"c"_s, u"// a\rif"_s, u"keyword(if)"_s},
        {"nothing", u"c"_s, u""_s, u""_s},
        {"half a character", u"c"_s, u"if "_s + QChar(0xD800) + u" \""_s + QChar(0xDC00) + u"\""_s,
         u"keyword(if) string(\""_s + QChar(0xDC00) + u"\")"_s},
    };
    for (const auto &[name, language, givenLine, wantedExpected] : rows) {
        const std::optional<SyntaxDefinition> definition = SyntaxHighlighter::defaultDefinition(language);
        ASSERT_TRUE(definition);
        EXPECT_EQ(colored(givenLine, *definition), wantedExpected);
    }
}

/// Rules from "PRIORITY PATTERN", whose colors are "1", "2", ...
QList<SyntaxHighlightRule> numberedRules(const QStringList &texts) {
    QList<SyntaxHighlightRule> rules;
    for (const QString &text : texts)
        rules.append({text.section(u' ', 1), QString::number(rules.size() + 1), text.section(u' ', 0, 0).toInt()});
    return rules;
}

TEST(SyntaxHighlighter, RanksByPriorityThenStartThenLengthThenOrder) {
    const Rows<QStringList, QString, QString> rows{
        {"priority", u"1 bc|0 abcd"_list, u"abcd"_s, u"1(bc)"_s},
        {"start", u"5 bcd|5 ab"_list, u"abcd"_s, u"2(ab)"_s},
        {"length", u"-1 ab|-1 abc"_list, u"abc"_s, u"2(abc)"_s},
        {"order", u"0 a.|0 .b"_list, u"ab"_s, u"1(ab)"_s},
        {"words and expressions in their order", u"0 a\\w|0 \\b(?:ab)\\b"_list, u"ab"_s, u"1(ab)"_s},
        {"what is dropped frees its place", u"2 b|1 abc|0 c"_list, u"abc"_s, u"1(b) 3(c)"_s},
        {"an invalid pattern among valid ones", u"0 (a|0 b|0 {{x}"_list, u"ab"_s, u"2(b)"_s},
        {"empty matches are none", u"0 x*"_list, u"axxb"_s, u"1(xx)"_s},
        {"case is part of a pattern", u"0 (?i)\\b(if)\\b|0 \\b(if)\\b"_list, u"IF if"_s, u"1(IF) 1(if)"_s},
        {"units of UTF-16", u"0 \\w+$"_list, u"🚀 𝒜b"_s, u"1(𝒜b)"_s},
        {"a look behind sees what came before", u"0 (?<=a)a"_list, u"aaa"_s, u"1(a) 1(a)"_s},
    };
    for (const auto &[name, rules, givenLine, wantedExpected] : rows)
        EXPECT_EQ(colored(givenLine, {numberedRules(rules)}), wantedExpected);
}

TEST(CompiledSyntax, GivesUpOnPatternsThatBacktrackWithoutEnd) {
    for (const QString &pattern : {u"(a+)+$"_s, u"(a|aa)+$"_s, u"(*LIMIT_MATCH=4000000000)(a+)+$"_s,
                                   u"(*NO_JIT)(a+)+$"_s, u"((?R)?a)+b"_s, u"^(*sr:.*)(?!)"_s, u"^(?=(.*a)*b)x"_s}) {
        SCOPED_TRACE(pattern.toStdString());
        CompiledSyntax syntax({{{pattern, u"trap"_s, 9}, {u"!"_s, u"sound"_s, 1}}});
        const QString line = u'x' + QString(3000, u'a') + u"!b!"_s;
        EXPECT_EQ(syntax.collectedMatches(line), (QList<SyntaxSpan>{{3001, 1, u"sound"_s}, {3003, 1, u"sound"_s}}));
        EXPECT_EQ(syntax.collectedMatches(u"!"_s), (QList<SyntaxSpan>{{0, 1, u"sound"_s}}));
    }
}

TEST(CompiledSyntax, CopesWithLongLines) {
    CompiledSyntax syntax(*SyntaxHighlighter::defaultDefinition(u"c"));
    const QString string = u'"' + QString(20'000, u'x') + u'"';
    EXPECT_EQ(syntax.collectedMatches(string), (QList<SyntaxSpan>{{0, 20'002, u"#0A7F42"_s}}));
    CompiledSyntax json(*SyntaxHighlighter::defaultDefinition(u"json"));
    const QString minified = u"\"name of a value\":\"some value, true to it\",17,"_s.repeated(1000);
    EXPECT_EQ(json.collectedMatches(minified).size(), 3000);
    const QString unclosed = u"/* "_s.repeated(300'000) + u"if"_s;
    EXPECT_EQ(syntax.collectedMatches(unclosed), (QList<SyntaxSpan>{{900'000, 2, u"#B42D8D"_s}}));
}

CustomLanguageRule custom(const QString &extension, const QString &name, const std::optional<QString> &file = {}) {
    return {.fileExtension = extension, .languageName = name, .syntaxFilePath = file};
}

TEST(SyntaxHighlighter, ChoosesTheDefinitionOfAFile) {
    TempTree tree;
    tree.writeAll(
        {{u"own.sublime-syntax"_s, "- match: own\n  scope: keyword\n"}, {u"empty.sublime-syntax"_s, "name: none\n"}});
    const QString own = tree.path(u"own.sublime-syntax"_s);
    const QString empty = tree.path(u"empty.sublime-syntax"_s);
    const QString missing = tree.path(u"missing"_s);
    // "own" is the file's definition; "!" none at all.
    const Rows<QString, QList<CustomLanguageRule>, QString> rows{
        {"by extension", u"src/a.PY"_s, {}, u"python"_s},
        {"by name", u"a/CMakeLists.txt"_s, {}, u"cmake"_s},
        {"a language without definition", u"a.coffee"_s, {}, u"!"_s},
        {"rule", u"a.inc"_s, {custom(u" .INC"_s, u" PHP "_s)}, u"php"_s},
        {"a rule beats the name", u"CMakeLists.txt"_s, {custom(u"txt"_s, u"SQL"_s)}, u"sql"_s},
        {"a rule for an unknown language beats the built-in one", u"a.c"_s, {custom(u"c"_s, u"Cee"_s)}, u"!"_s},
        {"the last rule", u"a.c"_s, {custom(u"c"_s, u"Lua"_s, own), custom(u"C."_s, u"SQL"_s)}, u"sql"_s},
        {"file", u"a.c"_s, {custom(u"c"_s, u"SQL"_s, u" "_s + own + u"\n"_s)}, u"own"_s},
        {"file without rules", u"a.c"_s, {custom(u"c"_s, u"SQL"_s, empty)}, u"sql"_s},
        {"missing file", u"a.c"_s, {custom(u"c"_s, u"SQL"_s, missing)}, u"sql"_s},
        {"a rule without extension is for no file", u"Makefile"_s, {custom(u"."_s, u"SQL"_s)}, u"makefile"_s},
    };
    for (const auto &[name, path, rules, like] : rows) {
        const std::optional<SyntaxDefinition> expected = like == u"own"
                                                             ? SyntaxDefinition{{{u"own"_s, u"#B42D8D"_s, 60}}}
                                                             : SyntaxHighlighter::defaultDefinition(like);
        EXPECT_EQ(SyntaxHighlighter::definition(path, rules), expected);
    }
}

} // namespace
} // namespace kestor
