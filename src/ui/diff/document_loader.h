#pragma once

#include "ui/diff/diff_document.h"

#include <QFutureWatcher>
#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>

namespace kestor {

/// Whether the beginning of a long text is shown while the rest is being read.
enum class EarlyView : std::uint8_t { firstPart, none };

/// Makes documents of texts of any size without holding up the main thread: the first lines at once, all of them on a
/// worker. A text that is superseded before its document is ready yields none. Main thread only.
class DocumentLoader final : public QObject {
    Q_OBJECT

public:
    explicit DocumentLoader(QObject *parent = nullptr);
    ~DocumentLoader() override;

    /// Emits `loaded` at once with the document of a short text; for a long one at once with its first part, unless
    /// `early` says otherwise, and later with the whole.
    void loadDiff(const QString &text, EarlyView early);
    /// The same for what a command printed.
    void loadOutput(const QString &output, const QString &errors);
    /// Drops what is being read.
    void cancel();

signals:
    void loaded(const kestor::DiffDocumentPtr &document);

private:
    void startReading(std::function<DiffDocumentPtr()> read);

    QFutureWatcher<DiffDocumentPtr> reading;
};

} // namespace kestor
