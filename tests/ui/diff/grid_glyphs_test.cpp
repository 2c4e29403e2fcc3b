
#include "support/window_test.h"
#include "ui/diff/diff_metrics.h"

#include <QImage>
#include <QPainter>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

template <class Paint>
QImage painted(const DiffMetrics &metrics, const Paint &paint) {
    QImage image(600, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(metrics.text);
    paint(painter);
    return image;
}

TEST(GridGlyphs, DrawAsShapedText) {
    const DiffMetrics metrics = diffMetrics({}, 1, {}, 0);
    const QString code = uR"(if (a != b->c[0]) return "~x~"; // @{fi} %d)"_s;
    const QImage drawn = painted(metrics, [&](QPainter &painter) {
        EXPECT_TRUE(metrics.textGlyphs.draw(painter, {7.5, 25}, code));
        for (const QStringView other : {QStringView(u"tab\there"), QStringView(u"naïve"), QStringView(u"漢字")})
            EXPECT_FALSE(metrics.textGlyphs.draw(painter, {7.5, 25}, other)) << other.toString().toStdString();
    });
    EXPECT_EQ(drawn, painted(metrics, [&](QPainter &painter) { painter.drawText(QPointF(7.5, 25), code); }));
}

} // namespace
} // namespace kestor
