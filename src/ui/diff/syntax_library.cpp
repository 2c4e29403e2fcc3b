#include "ui/diff/syntax_library.h"

#include <QFileInfo>
#include <QFutureWatcher>
#include <QtConcurrentRun>

namespace kestor {

namespace {

std::shared_ptr<CompiledSyntax> compiled(const std::optional<SyntaxDefinition> &definition) {
    return definition ? std::make_shared<CompiledSyntax>(*definition) : nullptr;
}

QString keyOf(const SyntaxSource &source) {
    return source.languageName + u'\n' + source.syntaxFile.value_or(QString());
}

} // namespace

void SyntaxLibrary::setLanguageRules(const QList<CustomLanguageRule> &newRules) {
    if (newRules == rules)
        return;
    rules = newRules;
    emit changed();
}

std::shared_ptr<CompiledSyntax> SyntaxLibrary::syntaxOf(const QString &path) {
    const SyntaxSource source = SyntaxHighlighter::source(path, rules);
    const QString key = keyOf(source);
    if (!entries.contains(key)) {
        Entry &entry = entries[key];
        entry.source = source;
        if (source.syntaxFile)
            startReading(key);
        else
            entry.reading = Reading{compiled(SyntaxHighlighter::definition(source)), {}};
    }
    const Entry &entry = entries[key];
    return entry.reading ? entry.reading->syntax : nullptr;
}

void SyntaxLibrary::checkFiles() {
    const QStringList keys = entries.keys();
    for (const QString &key : keys) {
        if (entries[key].source.syntaxFile)
            startReading(key);
    }
}

/// Nothing when the file is as it was.
std::optional<SyntaxLibrary::Reading> SyntaxLibrary::readAgain(const Entry &entry) {
    const QDateTime modified = QFileInfo(*entry.source.syntaxFile).lastModified();
    if (entry.reading && entry.reading->modified == modified)
        return std::nullopt;
    return Reading{compiled(SyntaxHighlighter::definition(entry.source)), modified};
}

void SyntaxLibrary::startReading(const QString &key) {
    const auto read = [entry = entries[key]] {
        return readAgain(entry);
    };
    // Unlike a continuation, a watcher may go while its work is still being done.
    auto *watcher = new QFutureWatcher<std::optional<Reading>>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, key] {
        watcher->deleteLater();
        if (std::optional<Reading> reading = watcher->result()) {
            entries[key].reading = std::move(reading);
            emit changed();
        }
    });
    watcher->setFuture(QtConcurrent::run(read));
}

} // namespace kestor
