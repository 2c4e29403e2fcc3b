#include "parsers/iso_date.h"
#include "parsers/svn_xml_parsers.h"
#include "printed_records.h"
#include "support/test.h"

namespace kestor {
namespace {

QString statusOf(const char *path, const char *wcStatus, const char *more = "") {
    return u"<entry path='%1'>%2%3</entry>"_s.arg(QLatin1StringView(path), QLatin1StringView(wcStatus),
                                                  QLatin1StringView(more));
}

TEST(StatusParserTest, readsEntries) {
    const Rows<QString, QStringList> rows{
        {"an entry without a status is unknown and kept", statusOf("a", ""), u"a unknown none - -"_list},
        {"without item it is unknown, without props none", statusOf("a", "<wc-status revision='3'/>"),
         u"a unknown none 3 -"_list},
        {"a non-ASCII word is no status", statusOf("a", "<wc-status item='modifi&#233;d' props='none'/>"),
         u"a unknown none - -"_list},
        {"changed properties keep an entry", statusOf("a", "<wc-status item='normal' props='modified'/>"),
         u"a normal modified - -"_list},
        {"nothing changed drops it",
         statusOf("a", "<wc-status item='normal' props='none'/>") +
             statusOf("b", "<wc-status item='none' props='normal'/>"),
         {}},
        {"a tree conflict keeps it",
         statusOf("a", "<wc-status item='none' props='none'><tree-conflict victim='a'/></wc-status>"),
         u"a none none - - tree-conflict"_list},
        {"a tree conflict told by attribute keeps it",
         statusOf("a", "<wc-status item='normal' props='none' tree-conflicted='true'/>") +
             statusOf("b", "<wc-status item='normal' props='none' tree-conflicted='false'/>"),
         u"a normal none - - tree-conflict"_list},
        {"nothing is carried over to the next entry",
         statusOf("a", "<wc-status item='modified' props='conflicted' "
                       "revision='7'><tree-conflict/>stray<author>me</author></wc-status>") +
             statusOf("b", "<wc-status item='added'/>"),
         u"a modified conflicted 7 me tree-conflict|b added none - -"_list},
        {"an entry without a path is dropped", u"<entry><wc-status item='added'/></entry>"_s, {}},
        {"a byte order mark at the begin of a name belongs to it", statusOf("&#xFEFF;a", ""),
         u"\uFEFFa unknown none - -"_list},
    };
    for (const auto &[name, text, expected] : rows)
        EXPECT_EQ(printed(StatusParser::parse(u"<status><target path='.'>%1</target></status>"_s.arg(text))), expected);
}

TEST(StatusParserTest, keepsWhatCameBeforeAnError) {
    const QString entry = statusOf("a", "<wc-status item='added'/>");
    const Rows<QString, QStringList> rows{
        {"empty", {}, {}},
        {"no XML", u"svn: E155007: '/tmp' is not a working copy\n"_s, {}},
        {"cut within an entry", u"<status>"_s + entry + u"<entry path='b'><wc-status item='mod"_s,
         u"a added none - -"_list},
        {"document type declaration",
         u"<!DOCTYPE s [<!ENTITY a 'xx'><!ENTITY b '&a;&a;'>]><status>"_s + entry + u"&b;</status>"_s,
         {}},
        {"a declared encoding does not matter",
         u"<?xml version='1.0' encoding='ISO-8859-1'?><status>"_s + entry + u"</status>"_s, u"a added none - -"_list},
    };
    for (const auto &[name, text, expected] : rows)
        EXPECT_EQ(printed(StatusParser::parse(text)), expected);
    EXPECT_EQ(
        printed(StatusParser::parse(QByteArrayView("<s><entry path='gr\xc3\xb6\xc3\x9f'/><entry path='\xff'/></s>"))),
        u"größ unknown none - -"_list);
}

TEST(RemoteStatusParserTest, readsWhatTheRepositoryWouldChange) {
    const QString entries =
        u"<entry path='b'><wc-status item='modified' props='modified' revision='4'><author> me </author></wc-status>"
        "<repos-status item='modified' props='none'/></entry>"
        "<entry path='local'><wc-status item='modified' props='modified'><tree-conflict/></wc-status></entry>"
        "<entry path='same'><repos-status props='normal'/></entry>"
        "<entry path='a'><repos-status item='renamed'/></entry>"
        "<entry path='c'><repos-status item='none' props='modified'/></entry>"_s;
    const Rows<QString, std::optional<qint64>> rows{
        {"plain", u"<against revision='1300'/>"_s, 1300},
        {"blank at the end", u"<against revision='17 '/>"_s, std::nullopt},
        {"the last one wins, even without a revision", u"<against revision='1'/><against/>"_s, std::nullopt},
        {"none", {}, std::nullopt},
    };
    for (const auto &[name, against, revision] : rows) {
        const RemoteStatus status = RemoteStatusParser::parse(u"<status>%1%2</status>"_s.arg(entries, against));
        EXPECT_EQ(status.repositoryRevision, revision);
        EXPECT_EQ(printed(status.items), u"a unknown none - -|b modified none 4 me|c none modified - -"_list);
    }
}

TEST(LogParserTest, readsEntries) {
    const Rows<QString, QStringList> rows{
        {"highest revision first, equal ones in their order",
         u"<logentry revision='5'/><logentry revision='9'><msg>a</msg></logentry><logentry revision='7'/>"
         "<logentry revision='9'><msg>b</msg></logentry>"_s,
         {u"9||-|a"_s, u"9||-|b"_s, u"7||-|"_s, u"5||-|"_s}},
        {"no usable revision", u"<logentry revision='x'/><logentry/><logentry revision=''/>"_s, {}},
        {"a message keeps its blanks and loses its line breaks",
         u"<logentry revision='1'><author>\n me\t</author><msg>\n  fix\n\nmore \n\n</msg></logentry>"_s,
         {u"1|me|-|  fix\n\nmore "_s}},
        {"paths with and without attributes",
         u"<logentry revision='1'><paths><path action='M' kind='file'>\n/a b </path><path>/c</path></paths></logentry>"_s,
         {u"1||-||M /a b file| /c -"_s}},
        {"dates with and without fraction, an unreadable one clears",
         u"<logentry revision='3'><date>2024-05-01T10:20:30.5Z</date></logentry>"
         "<logentry revision='2'><date> 2024-05-01T10:20:30Z\n</date></logentry>"
         "<logentry revision='1'><date>2024-05-01T10:20:30Z</date><date>2024-05-01</date></logentry>"_s,
         {u"3||2024-05-01T10:20:30.500Z|"_s, u"2||2024-05-01T10:20:30.000Z|"_s, u"1||-|"_s}},
        {"nothing is carried over",
         u"<logentry revision='2'><author>a</author><date>2024-05-01T10:20:30Z</date><msg>m</msg>"
         "<paths><path action='A' kind='dir'>/x</path></paths></logentry><logentry revision='1'/>"_s,
         {u"2|a|2024-05-01T10:20:30.000Z|m|A /x dir"_s, u"1||-|"_s}},
    };
    for (const auto &[name, text, expected] : rows)
        EXPECT_EQ(printed(LogParser::parse(u"<log>%1</log>"_s.arg(text))), expected);
}

TEST(InfoParserTest, readsFieldsByTheirSurroundings) {
    const Rows<QString, QStringList> rows{
        {"usual output",
         u"<entry revision='15'><url> u </url><relative-url>^/t</relative-url><repository><root>r</root><uuid>i</uuid>"
         "</repository><wc-info><wcroot-abspath>/w</wcroot-abspath></wc-info><commit revision='12'><author>me</author>"
         "<date>2024-05-01T10:20:30.123456Z</date></commit></entry>"_s,
         u"/w|u|^/t|r|i|12|15|12|me|2024-05-01T10:20:30.123Z"_list},
        {"fields in the wrong place",
         u"<entry><repository><url>u</url></repository><root>r</root><uuid>i</uuid><wcroot-abspath>w</wcroot-abspath>"
         "<author>me</author><date>2024-05-01T10:20:30Z</date></entry>"_s,
         QStringList(10, u"-"_s)},
        {"a commit without a revision", u"<entry revision='15'><commit/></entry>"_s, u"-|-|-|-|-|15|15|-|-|-"_list},
        {"a later entry overwrites field by field",
         u"<entry revision='15'><url>a</url><commit revision='12'><author>me</author></commit></entry>"
         "<entry><url>b</url></entry>"_s,
         u"-|b|-|-|-|-|-|12|me|-"_list},
        {"no XML", u"</info>"_s, QStringList(10, u"-"_s)},
    };
    for (const auto &[name, text, expected] : rows)
        EXPECT_EQ(printed(InfoParser::parse(u"<info>%1</info>"_s.arg(text))), expected);
}

TEST(DateFromISO8601Test, readsTheTwoFormsOnly) {
    const std::pair<QStringView, QString> dates[] = {
        {u"2024-05-01T10:20:30Z", u"2024-05-01T10:20:30.000Z"_s},
        {u"2024-05-01T10:20:30.5Z", u"2024-05-01T10:20:30.500Z"_s},
        {u"2024-05-01T10:20:30.045678Z", u"2024-05-01T10:20:30.045Z"_s},
        {u"2024-05-01T10:20:30+02:00", u"2024-05-01T08:20:30.000Z"_s},
        {u"2024-12-31T23:50:00.25-05:30", u"2025-01-01T05:20:00.250Z"_s},
        {u"2024-02-29T00:00:00Z", u"2024-02-29T00:00:00.000Z"_s},
        {u"1969-12-31T23:59:59.9Z", u"1969-12-31T23:59:59.900Z"_s},
    };
    for (const auto &[text, expected] : dates)
        EXPECT_EQ(printed(dateFromISO8601(text)), expected) << qPrintable(text.toString());
    for (const QString &text : u"2023-02-29T00:00:00Z|2024-13-01T00:00:00Z|2024-05-01T24:00:00Z|2024-05-01T10:60:00Z|"
                               "2024-05-01T10:20:30|2024-05-01T10:20:30.Z|2024-05-01T10:20:30.1234567890Z|"
                               "2024-05-01T10:20:30,5Z|2024-05-01T10:20:30.5|2024-05-01T10:20:30+0200|"
                               "2024-05-01T10:20:30+24:00|2024-05-01T10:20:30+02:60|2024-05-01T10:20:30Z |"
                               "2024-05-01T10:20:30ZZ|2024-05-01t10:20:30z|2024-05-01 10:20:30Z|2024-05-0110:20:30Z|"
                               "24-05-01T10:20:30Z|+024-05-01T10:20:30Z|2024-05-01|٢٠٢٤-05-01T10:20:30Z|"_list)
        EXPECT_EQ(printed(dateFromISO8601(text)), u"-"_s) << qPrintable(text);
}

} // namespace
} // namespace kestor
