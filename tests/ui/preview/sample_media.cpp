#include "sample_media.h"

#include <QBuffer>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QStandardPaths>

namespace kestor::testing {

using namespace Qt::StringLiterals;

QByteArray png(QSize size, Qt::GlobalColor color) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return data;
}

QByteArray svg(QSize size) {
    return u"<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" height=\"%2\"><circle cx=\"8\" cy=\"8\" r=\"8\"/></svg>"_s
        .arg(size.width())
        .arg(size.height())
        .toUtf8();
}

QByteArray anyFont() {
    for (const QString &folder : QStandardPaths::standardLocations(QStandardPaths::FontsLocation)) {
        QDirIterator files(folder, {u"*.ttf"_s, u"*.otf"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly))
                return file.readAll();
        }
    }
    return {};
}

} // namespace kestor::testing
