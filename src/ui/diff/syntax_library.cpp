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

/// One worker at a time for each file: the last one to end has read last, and where files hang one worker waits.
void SyntaxLibrary::startReading(const QString &key) {
    Entry &entry = entries[key];
    entry.hasToBeReadAgain = entry.isBeingRead;
    if (entry.isBeingRead)
        return;
    entry.isBeingRead = true;
    const auto read = [entry] {
        return readAgain(entry);
    };
    // Unlike a continuation, a watcher may go while its work is still being done.
    auto *watcher = new QFutureWatcher<std::optional<Reading>>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, key] {
        watcher->deleteLater();
        finishReading(key, watcher->result());
    });
    watcher->setFuture(QtConcurrent::run(read));
}

void SyntaxLibrary::finishReading(const QString &key, std::optional<Reading> reading) {
    Entry &entry = entries[key];
    entry.isBeingRead = false;
    const bool isNew = reading.has_value();
    if (isNew)
        entry.reading = std::move(reading);
    if (entry.hasToBeReadAgain)
        startReading(key);
    if (isNew)
        emit changed();
}

} // namespace kestor
