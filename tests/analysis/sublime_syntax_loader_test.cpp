#include "analysis/sublime_syntax_loader.h"
#include "support/temp_tree.h"
#include "support/test.h"

#include <sys/stat.h>

namespace kestor {
namespace {

TEST(SublimeSyntaxLoader, ReadsScalarsOfOneLine) {
    const QString none = u"<none>"_s;
    const Rows<QString, QString> rows{
        {"plain", u"match: \\b(if|else)\\b"_s, u"\\b(if|else)\\b"_s},
        {"no blank behind the colon", u"match:x"_s, u"x"_s},
        {"a comment belongs to the value", u"match: x # y"_s, u"x # y"_s},
        {"empty", u"match:"_s, none},
        {"blank", u"- match:  "_s, none},
        {"literal block", u"match: |-"_s, none},
        {"quoted block sign", u"match: '|'"_s, u"|"_s},
        {"single quotes", uR"(match: 'it''s \b \\ "q"')"_s, uR"(it's \b \\ "q")"_s},
        {"double quotes", uR"(match: "\\b \"q\" \d it''s")"_s, uR"(\b "q" \d it''s)"_s},
        {"backslashes come before quotes", uR"(match: "a\\"b")"_s, uR"(a"b)"_s},
    };
    for (const auto &[name, line, wantedExpected] : rows)
        EXPECT_EQ(SublimeSyntaxLoader::yamlScalarValue(u"match", line).value_or(none), wantedExpected);
}

/// "pattern color priority" of every rule; "unreadable" without a definition.
QStringList loaded(const QString &path) {
    const std::optional<SyntaxDefinition> definition = SublimeSyntaxLoader::definition(path);
    if (!definition)
        return {u"unreadable"_s};
    QStringList lines;
    for (const SyntaxHighlightRule &rule : definition->rules)
        lines.append(u"%1 %2 %3"_s.arg(rule.pattern, rule.colorHex).arg(rule.priority));
    return lines;
}

constexpr const char *wildFile = R"(%YAML 1.2
---
# A language as people write it
name: Kestrel
file_extensions: [kes]
scope: source.kestrel
variables:
  ident: '[A-Za-z_]\w*'
contexts:
  main:
    - meta_scope: meta.block
    - scope: keyword.unused
    - match: '\b(if|else)\b'
      scope: keyword.control.kestrel
    - match: "\"(\\.|[^\"])*\""
      comment: a pair may have lines between
      captures:
        1: constant.character.escape
      scope: string.quoted.double
    - match: \{\{
      push: block
    - match: ({{ident}})
      scope: entity.name.function
      scope: keyword.second
    - match: |-
        (?x) a
        b
      scope: constant.lost
	- match: #.*$
	  scope: comment.line
)";

TEST(SublimeSyntaxLoader, ReadsFilesAsTheyAreFound) {
    const QStringList expected{u"\\b(if|else)\\b #B42D8D 60"_s, u"\"(\\.|[^\"])*\" #0A7F42 90"_s,
                               u"({{ident}}) #0550AE 40"_s, u"#.*$ #6A737D 100"_s};
    const QByteArray lf = wildFile;
    QByteArray crlf = lf;
    QByteArray cr = lf;
    const Rows<QByteArray, QStringList> rows{
        {"line feeds", lf, expected},
        {"CR LF", crlf.replace("\n", "\r\n"), expected},
        {"CR", cr.replace('\n', '\r'), expected},
        {"byte order mark", QByteArray("\xEF\xBB\xBF- match: a\nscope: b\n"), u"a #57606A 40"_list},
        {"no line end", "- match: a\n  scope: b", u"a #57606A 40"_list},
        {"UTF-8", "- match: \xC3\xA9+\n  scope: string", u"é+ #0A7F42 90"_list},
        {"Latin-1", "# \xA9\n- match: \xE9+\n  scope: string", u"é+ #0A7F42 90"_list},
        {"other line breaks", "match: a\xC2\x85scope: b\xE2\x80\xA8match: c\x0Bscope: d",
         u"a #57606A 40|c #57606A 40"_list},
        {"the last match before a scope", "match: a\nmatch: |\nmatch: b\nscope: c", u"b #57606A 40"_list},
        {"empty", "", {}},
        {"binary",
         QByteArray("\x7F"
                    "ELF\x00\x01\xFF\xFEmatch: x\x00\n\x00scope: y\n",
                    28),
         {}},
        {"large", QByteArray("  - match: a\n    scope: b\n").repeated(40'000), QStringList(40'000, u"a #57606A 40"_s)},
    };
    TempTree tree;
    for (const auto &[name, content, wantedExpected] : rows) {
        tree.write(u"a.sublime-syntax"_s, content);
        EXPECT_EQ(loaded(tree.path(u"a.sublime-syntax"_s)), wantedExpected);
    }
    ASSERT_EQ(::mkfifo(tree.path(u"pipe"_s).toUtf8().constData(), 0600), 0);
    for (const QString &unreadable : u"missing||pipe"_list)
        EXPECT_EQ(loaded(tree.path(unreadable)), u"unreadable"_list);
}

} // namespace
} // namespace kestor
