#pragma once

#include "ui/diff/diff_view.h"
#include "ui/diff/document_loader.h"

#include <QString>

namespace kestor {

/// Text as a command printed it, of any size: selectable, copied with Ctrl+C, never tinted. What was printed as an
/// error follows under the heading "Standard error", both beside a red bar. `naturalHeight` says how high the view
/// would like to be; `textChanged` tells when that may differ, also when a long text has been read to its end.
class PlainTextView final : public DiffView {
    Q_OBJECT

public:
    explicit PlainTextView(QWidget *parent = nullptr);

    /// The beginning of a long text is shown at once, the rest when it has been read on a worker.
    void setOutput(const QString &output, const QString &errors);

signals:
    void textChanged();

private:
    DocumentLoader loader;
    DocumentChange nextChange = DocumentChange::otherSubject;
};

} // namespace kestor
