#include "rules/folder_rules.h"

#include "rules/working_copy_paths.h"

#include <QFile>
#include <QStringDecoder>

#include <sys/stat.h>

namespace kestor {

namespace {

bool isRegularFile(const QString &path) {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Only regular files: opening a pipe of that name would wait for its other end. Stateless: a file that ends within a
/// character is no UTF-8 either.
QString utf8Text(const QString &path) {
    QFile file(path);
    if (!isRegularFile(path) || !file.open(QIODevice::ReadOnly))
        return {};
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(file.readAll());
    return decoder.hasError() ? QString() : text;
}

} // namespace

QList<IgnoreRule> readIgnoreFiles(const QString &folder, const QString &root) {
    QList<IgnoreRule> rules;
    const QString absoluteFolder = absolutePath(folder, root);
    for (const QStringView name : {gitIgnoreName, kestorIgnoreName}) {
        const QString text = utf8Text(absolutePath(name, absoluteFolder));
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
