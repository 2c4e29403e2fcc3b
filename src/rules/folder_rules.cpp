#include "rules/folder_rules.h"

#include "rules/working_copy_paths.h"

#include <QFile>
#include <QStringDecoder>

#include <fcntl.h>
#include <sys/stat.h>

namespace kestor {

namespace {

bool isRegularFile(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

/// Stateless decoding: a file that ends within a character is no UTF-8 either.
QString utf8Text(const Directory &directory, const char *name) {
    if (!directory)
        return {};
    // Opening a pipe of that name would otherwise wait for its other end. Git follows no link there either.
    const int descriptor = ::openat(::dirfd(directory.get()), name, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
    QFile file;
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return {};
    if (!isRegularFile(descriptor))
        return {};
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(file.readAll());
    return decoder.hasError() ? QString() : text;
}

} // namespace

QList<IgnoreRule> readIgnoreFiles(const Directory &directory, const QString &folder) {
    QList<IgnoreRule> rules;
    for (const QStringView name : {gitIgnoreName, kestorIgnoreName}) {
        const QString text = utf8Text(directory, name.toLatin1().constData());
        for (const QStringView line : QStringView(text).tokenize(u'\n')) {
            if (std::optional<IgnoreRule> rule = IgnoreRule::fromLine(line, folder))
                rules.append(*std::move(rule));
        }
    }
    return rules;
}

FolderRules FolderRules::with(const QList<IgnoreRule> &rules) const {
    if (rules.isEmpty())
        return *this;
    auto level = std::make_shared<Level>();
    for (const IgnoreRule &rule : rules)
        level->rules.append(rule);
    level->above = deepest;
    FolderRules result;
    result.deepest = std::move(level);
    return result;
}

bool FolderRules::ignores(QStringView path, bool isDirectory) const {
    for (const Level *level = deepest.get(); level; level = level->above.get()) {
        if (const IgnoreRule *rule = level->rules.lastMatch(path, isDirectory))
            return !rule->isNegated;
    }
    return false;
}

} // namespace kestor
