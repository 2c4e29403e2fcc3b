#include "samples.h"

#include <QList>

#include <string_view>

namespace kestor {

QByteArray samplePath(int index) {
    static const QList<QByteArray> folders{"src/controller", "src/Model", "docs/images", "tests/support", "lib"};
    const int folder = index / 20;
    return folders[folder % folders.size()] + "/part_" + QByteArray::number(folder) + "/source-file" +
           QByteArray::number(index % 20) + (index % 3 == 0 ? ".cpp" : ".h");
}

namespace {

QByteArray statusEntry(int index) {
    if (index % 2 == 0) {
        return "<entry\n   path=\"" + samplePath(index) +
               "\">\n<wc-status\n   props=\"none\"\n   item=\"unversioned\">\n</wc-status>\n</entry>\n";
    }
    return "<entry\n   path=\"" + samplePath(index) +
           "\">\n<wc-status\n   item=\"modified\"\n   revision=\"1234\"\n   props=\"none\">\n<commit\n   revision=\"" +
           QByteArray::number(1000 + index % 200) +
           "\">\n<author>someone</author>\n<date>2024-05-01T10:20:30.123456Z</date>\n</commit>\n</wc-status>\n"
           "</entry>\n";
}

QByteArray remoteStatusEntry(int index) {
    return "<entry\n   path=\"" + samplePath(index) +
           "\">\n<wc-status\n   item=\"normal\"\n   revision=\"1234\"\n   props=\"none\">\n<commit\n   "
           "revision=\"1200\">\n<author>someone</author>\n<date>2024-05-01T10:20:30.123456Z</date>\n</commit>\n"
           "</wc-status>\n<repos-status\n   item=\"modified\"\n   props=\"none\">\n</repos-status>\n</entry>\n";
}

QByteArray logEntry(int revision) {
    QByteArray entry = "<logentry\n   revision=\"" + QByteArray::number(revision) + "\">\n<author>author" +
                       QByteArray::number(revision % 7) +
                       "</author>\n<date>2024-05-01T10:20:30.123456Z</date>\n<paths>\n";
    for (int i = 0; i < 10; ++i) {
        entry += "<path\n   text-mods=\"true\"\n   prop-mods=\"false\"\n   kind=\"file\"\n   action=\"M\">/trunk/" +
                 samplePath(revision + i) + "</path>\n";
    }
    return entry + "</paths>\n<msg>Keep the order of the entries when two of them compare equal\n\nSeen with " +
           QByteArray::number(revision) + ".\n</msg>\n</logentry>\n";
}

/// A hunk header and 24 lines, of which five are removed and five are added.
QByteArray hunk(int number) {
    const QByteArray start = QByteArray::number(1 + 40 * number);
    QByteArray text = "@@ -" + start + ",19 +" + start + ",19 @@ void Widget::paintEvent(QPaintEvent *event)\n";
    for (int i = 0; i < 24; ++i) {
        const char marker = i < 9 || i > 18 ? ' ' : (i < 14 ? '-' : '+');
        text += marker +
                QByteArray("    const auto position = layout.positionOf(item, ").append(QByteArray::number(i)) +
                QByteArray(static_cast<qsizetype>(i % 17), 'x') + ");\n";
    }
    return text;
}

QByteArray wrapped(std::string_view begin, int count, QByteArray (*entry)(int), std::string_view end) {
    QByteArray text("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    text.append(begin.data(), static_cast<qsizetype>(begin.size()));
    for (int i = 0; i < count; ++i)
        text += entry(i);
    return text.append(end.data(), static_cast<qsizetype>(end.size()));
}

} // namespace

QByteArray svnStatusXml(int entries) {
    return wrapped("<status>\n<target\n   path=\".\">\n", entries, statusEntry, "</target>\n</status>\n");
}

QByteArray svnRemoteStatusXml(int entries) {
    return wrapped("<status>\n<target\n   path=\".\">\n", entries, remoteStatusEntry,
                   "<against\n   revision=\"1300\"/>\n</target>\n</status>\n");
}

QByteArray svnLogXml(int entries) {
    return wrapped("<log>\n", entries, logEntry, "</log>\n");
}

QByteArray svnInfoXml() {
    const auto entry = [](int) -> QByteArray {
        return "<entry\n   path=\".\"\n   revision=\"15\"\n   "
               "kind=\"dir\">\n<url>https://svn.example.org/repos/trunk</url>\n"
               "<relative-url>^/trunk</relative-url>\n<repository>\n<root>https://svn.example.org/repos</root>\n"
               "<uuid>5f1c6f0e-0b5c-4f0e-8f7e-2f6d0f5b8a11</uuid>\n</repository>\n<wc-info>\n"
               "<wcroot-abspath>/home/someone/trunk</wcroot-abspath>\n<schedule>normal</schedule>\n"
               "<depth>infinity</depth>\n</wc-info>\n<commit\n   revision=\"12\">\n<author>someone</author>\n"
               "<date>2024-05-01T10:20:30.123456Z</date>\n</commit>\n</entry>\n";
    };
    return wrapped("<info>\n", 1, entry, "</info>\n");
}

QByteArray unifiedDiff(int lines) {
    constexpr int hunksPerFile = 40;
    constexpr int linesPerFile = 4 + 25 * hunksPerFile;
    QByteArray text;
    for (int file = 0; file < lines / linesPerFile; ++file) {
        const QByteArray path = samplePath(file);
        text += "diff --git a/" + path + " b/" + path + "\nindex 1111111..2222222 100644\n--- a/" + path + "\n+++ b/" +
                path + "\n";
        for (int i = 0; i < hunksPerFile; ++i)
            text += hunk(i);
    }
    return text;
}

QByteArray oneLineHunks(int hunks) {
    QByteArray text("diff --git a/table.csv b/table.csv\n--- a/table.csv\n+++ b/table.csv\n");
    for (int i = 0; i < hunks; ++i) {
        const QByteArray line = QByteArray::number(2 * i);
        text += "@@ -" + line + ",0 +" + QByteArray::number(3 * i + 1) + " @@\n+" + line + ";value\n";
    }
    return text;
}

} // namespace kestor
