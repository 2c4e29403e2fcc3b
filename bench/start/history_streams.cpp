#include "history_streams.h"

namespace kestor {

namespace {

constexpr int filesPerRevision = 5;
constexpr int changesPerFile = 10;
constexpr int filesPerFolder = 40;

QByteArray folderName(int folder) {
    return "src/part_" + QByteArray::number(folder);
}

QByteArray fileName(int file) {
    return folderName(file / filesPerFolder) + "/source_file_" + QByteArray::number(file % filesPerFolder) + ".cpp";
}

int fileCount(int revisions) {
    return revisions * filesPerRevision / changesPerFile;
}

/// Changes of one revision lie side by side, as those of a real one do.
int changedFile(int revision, int change, int revisions) {
    const auto start = static_cast<int>(static_cast<qint64>(revision) * 7919 % fileCount(revisions));
    return (start + change) % fileCount(revisions);
}

QByteArray message(int revision) {
    return "Keep the order of the entries when two of them compare equal\n\nSeen with " + QByteArray::number(revision) +
           ".\n";
}

QByteArray content(int revision, int file) {
    return "int value" + QByteArray::number(file) + "() {\n    return " + QByteArray::number(revision) + ";\n}\n";
}

/// With its length in front.
QByteArray counted(const QByteArray &data) {
    return QByteArray::number(data.size()) + '\n' + data + '\n';
}

QByteArray property(const QByteArray &name, const QByteArray &value) {
    return "K " + counted(name) + "V " + counted(value);
}

QByteArray svnRevision(int revision) {
    const QByteArray properties = property("svn:author", "author" + QByteArray::number(revision % 7)) +
                                  property("svn:date", "2024-05-01T10:20:30.123456Z") +
                                  property("svn:log", message(revision)) + "PROPS-END\n";
    const QByteArray length = QByteArray::number(properties.size());
    return "Revision-number: " + QByteArray::number(revision) + "\nProp-content-length: " + length +
           "\nContent-length: " + length + "\n\n" + properties + '\n';
}

QByteArray svnFolder(const QByteArray &name) {
    return "Node-path: " + name + "\nNode-kind: dir\nNode-action: add\n\n\n";
}

QByteArray svnFile(const QByteArray &action, int file, int revision) {
    const QByteArray text = content(revision, file);
    const QByteArray length = QByteArray::number(text.size());
    return "Node-path: " + fileName(file) + "\nNode-kind: file\nNode-action: " + action +
           "\nText-content-length: " + length + "\nContent-length: " + length + "\n\n" + text + "\n\n";
}

QByteArray svnFirstRevision(int files) {
    QByteArray stream = svnRevision(1) + svnFolder("src");
    for (int file = 0; file < files; ++file) {
        if (file % filesPerFolder == 0)
            stream += svnFolder(folderName(file / filesPerFolder));
        stream += svnFile("add", file, 1);
    }
    return stream;
}

} // namespace

QByteArray gitHistory(int revisions) {
    QByteArray stream;
    for (int revision = 1; revision <= revisions; ++revision) {
        stream += "commit refs/heads/main\ncommitter Author " + QByteArray::number(revision % 7) +
                  " <author@example.com> " + QByteArray::number(1'700'000'000 + revision) + " +0000\ndata " +
                  counted(message(revision));
        for (int change = 0; change < filesPerRevision; ++change) {
            const int file = changedFile(revision, change, revisions);
            stream += "M 100644 inline " + fileName(file) + "\ndata " + counted(content(revision, file));
        }
    }
    return stream;
}

QByteArray svnHistory(int revisions) {
    QByteArray stream = "SVN-fs-dump-format-version: 2\n\n" + svnFirstRevision(fileCount(revisions));
    for (int revision = 2; revision <= revisions; ++revision) {
        stream += svnRevision(revision);
        for (int change = 0; change < filesPerRevision; ++change)
            stream += svnFile("change", changedFile(revision, change, revisions), revision);
    }
    return stream;
}

} // namespace kestor
