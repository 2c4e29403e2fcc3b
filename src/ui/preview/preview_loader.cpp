#include "ui/preview/preview_loader.h"

#include <QtConcurrentMap>

namespace kestor {

PreviewLoader::PreviewLoader(QObject *parent) : QObject(parent) {
    boundImageMemory();
    workers.setMaxThreadCount(2); // one for each version
    connect(&decoding, &QFutureWatcher<PreviewVersion>::finished, this, [this] {
        if (decoding.isCanceled())
            return;
        const QList<PreviewVersion> versions = decoding.future().results();
        decoding.setFuture({}); // whoever shows them decides how long they live
        emit loaded(versions.first(), versions.last());
    });
}

PreviewLoader::~PreviewLoader() {
    cancel();
}

void PreviewLoader::cancel() {
    decoding.cancel();
    decoding.setFuture({});
}

void PreviewLoader::load(const DiffPreview &preview, const PreviewPlace &place) {
    cancel();
    enum class Side : quint8 { before, after };
    const auto decodeSide = [preview, place](Side side) {
        const bool isBefore = side == Side::before;
        return previewVersion(preview.kind, preview.path, isBefore ? preview.oldData : preview.newData,
                              isBefore ? preview.newData : preview.oldData, place);
    };
    decoding.setFuture(QtConcurrent::mapped(&workers, QList<Side>{Side::before, Side::after}, decodeSide));
}

} // namespace kestor
