#include "log_samples.h"

namespace kestor {

namespace {

/// The file that a change concerns; changes of one entry lie side by side, as those of a real one do.
QByteArray changedPath(int revision, int change, int revisions, int paths) {
    const int files = revisions * paths / 10;
    const auto start = static_cast<int>(static_cast<qint64>(revision) * 7919 % files);
    const int file = (start + change) % files;
    return "src/part_" + QByteArray::number(file / 40) + "/widgets/source-file" + QByteArray::number(file % 40) +
           ".cpp";
}

QByteArray hashOf(int revision) {
    return QByteArray::number(revision, 16).rightJustified(40, 'a');
}

} // namespace

QByteArray svnLog(int revisions, int paths) {
    QByteArray log("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<log>\n");
    for (int revision = revisions; revision > 0; --revision) {
        log += "<logentry\n   revision=\"" + QByteArray::number(revision) + "\">\n<author>author" +
               QByteArray::number(revision % 7) + "</author>\n<date>2024-05-01T10:20:30.123456Z</date>\n<paths>\n";
        for (int i = 0; i < paths; ++i) {
            log += "<path\n   text-mods=\"true\"\n   prop-mods=\"false\"\n   kind=\"file\"\n   action=\"M\">/trunk/" +
                   changedPath(revision, i, revisions, paths) + "</path>\n";
        }
        log += "</paths>\n<msg>Keep the order of the entries when two of them compare equal\n\nSeen with " +
               QByteArray::number(revision) + ".\n</msg>\n</logentry>\n";
    }
    return log + "</log>\n";
}

QByteArray gitLog(int revisions, int paths) {
    QByteArray log;
    for (int revision = revisions; revision > 0; --revision) {
        log += "--KESTOR-GIT-COMMIT--" + hashOf(revision) + "\tAuthor " + QByteArray::number(revision % 7) +
               "\t2024-05-01T10:20:30+02:00\tKeep the order of the entries when two of them compare equal\n\n";
        for (int i = 0; i < paths; ++i)
            log += "M\t" + changedPath(revision, i, revisions, paths) + '\n';
    }
    return log;
}

} // namespace kestor
