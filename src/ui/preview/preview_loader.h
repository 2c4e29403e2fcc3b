#pragma once

#include "ui/preview/preview_version.h"

#include <QFutureWatcher>
#include <QObject>
#include <QThreadPool>

namespace kestor {

/// Decodes both versions of a preview at once, on workers. What is superseded before it is ready is dropped. Main
/// thread only.
class PreviewLoader final : public QObject {
    Q_OBJECT

public:
    explicit PreviewLoader(QObject *parent = nullptr);
    ~PreviewLoader() override;

    void load(const DiffPreview &preview, const PreviewPlace &place);
    void cancel();
    bool isLoading() const { return decoding.isRunning(); }

signals:
    void loaded(const kestor::PreviewVersion &before, const kestor::PreviewVersion &after);

private:
    QThreadPool workers;
    QFutureWatcher<PreviewVersion> decoding;
};

} // namespace kestor
