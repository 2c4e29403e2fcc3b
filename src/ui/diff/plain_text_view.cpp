#include "ui/diff/plain_text_view.h"

namespace kestor {

PlainTextView::PlainTextView(QWidget *parent) : DiffView(parent) {
    setPlainTint(PlainTint::none);
    connect(&loader, &DocumentLoader::loaded, this, [this](const DiffDocumentPtr &document) {
        setDocument(document, nextChange);
        nextChange = DocumentChange::completed;
        emit textChanged();
    });
}

void PlainTextView::setOutput(const QString &output, const QString &errors) {
    nextChange = DocumentChange::otherSubject;
    loader.loadOutput(output, errors);
}

} // namespace kestor
