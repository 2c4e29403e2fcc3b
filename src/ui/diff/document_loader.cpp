#include "ui/diff/document_loader.h"

#include <QtConcurrentRun>

#include <utility>

namespace kestor {

DocumentLoader::DocumentLoader(QObject *parent) : QObject(parent) {
    connect(&reading, &QFutureWatcher<DiffDocumentPtr>::finished, this, [this] {
        if (!reading.isCanceled())
            emit loaded(reading.result());
    });
}

DocumentLoader::~DocumentLoader() {
    cancel();
}

void DocumentLoader::cancel() {
    reading.cancel();
    reading.setFuture({});
}

void DocumentLoader::startReading(std::function<DiffDocumentPtr()> read) {
    reading.setFuture(QtConcurrent::run(std::move(read)));
}

void DocumentLoader::loadDiff(const QString &text, EarlyView early) {
    cancel();
    const qsizetype first = firstPartSize(text);
    if (first == text.size()) {
        emit loaded(diffDocument(text));
        return;
    }
    startReading([text] { return diffDocument(text); });
    if (early == EarlyView::firstPart)
        emit loaded(beginningOfDiff(text, first));
}

void DocumentLoader::loadOutput(const QString &output, const QString &errors) {
    cancel();
    const qsizetype first = firstPartSize(output);
    if (first == output.size() && firstPartSize(errors) == errors.size()) {
        emit loaded(outputDocument(output, errors));
        return;
    }
    startReading([output, errors] { return outputDocument(output, errors); });
    if (first > 0)
        emit loaded(outputDocument(output.first(first), {}, DocumentPart::first));
}

} // namespace kestor
