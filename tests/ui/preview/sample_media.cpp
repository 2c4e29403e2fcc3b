#include "sample_media.h"

#include <QBuffer>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QStandardPaths>
#include <QtEndian>

#include <array>

namespace kestor::testing {

using namespace Qt::StringLiterals;

namespace {

quint32 crc32(const QByteArray &data) {
    quint32 crc = ~0U;
    for (const char byte : data) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320U : 0);
    }
    return ~crc;
}

QByteArray bigEndian(quint32 value) {
    std::array<char, 4> bytes{};
    qToBigEndian(value, bytes.data());
    return {bytes.data(), bytes.size()};
}

} // namespace

QByteArray png(QSize size, Qt::GlobalColor color) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return data;
}

QByteArray pngHeader(QSize size) {
    const QByteArray bits("\x08\x06\x00\x00\x00", 5); // 8 bits, with alpha
    const QByteArray header =
        "IHDR" + bigEndian(static_cast<quint32>(size.width())) + bigEndian(static_cast<quint32>(size.height())) + bits;
    const QByteArray data = "IDAT";
    return "\x89PNG\r\n\x1a\n" + bigEndian(13) + header + bigEndian(crc32(header)) + bigEndian(0) + data +
           bigEndian(crc32(data));
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
