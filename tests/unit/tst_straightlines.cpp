#include "internal/straightlines_p.h"

#include "shared/quiettest.h"

#include <QtCore/QVector>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPen>
#include <QtGui/QPicture>

#include <functional>

namespace {

const QVector<QLine> Cross = {{20, 5, 20, 45}, {5, 20, 45, 20}};

struct Canvas
{
    QImage::Format format = QImage::Format_ARGB32_Premultiplied;
    double pixelRatio = 1.0;
    bool antialiased = false;
    double opacity = 1.0;
    QTransform transform;
    QRegion clip;
};

template <typename Draw> QImage picture(const Canvas &canvas, const QPen &pen, Draw draw)
{
    QImage image(QSize(60, 50) * canvas.pixelRatio, canvas.format);
    image.setDevicePixelRatio(canvas.pixelRatio);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, canvas.antialiased);
    painter.setOpacity(canvas.opacity);
    painter.setPen(pen);
    painter.setBrush(Qt::yellow);
    painter.setTransform(canvas.transform, true);
    if (!canvas.clip.isEmpty())
        painter.setClipRegion(canvas.clip);
    draw(painter);
    return image;
}

} // namespace

Q_DECLARE_METATYPE(Canvas)

class TestStraightLines : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void looksAsIfDrawnByQt_data();
    void looksAsIfDrawnByQt();
    void staysALineInAPicture();
    void leavesThePainterAsItWas();
};

void TestStraightLines::looksAsIfDrawnByQt_data()
{
    QTest::addColumn<QVector<QLine>>("lines");
    QTest::addColumn<Canvas>("canvas");
    QTest::addColumn<QPen>("pen");

    const auto addLines = [](const char *name, const QVector<QLine> &lines) {
        QTest::newRow(name) << lines << Canvas() << QPen();
    };
    addLines("none", {});
    addLines("downwards", {{10, 5, 10, 40}});
    addLines("upwards", {{10, 40, 10, 5}});
    addLines("to the right", {{5, 10, 40, 10}});
    addLines("to the left", {{40, 10, 5, 10}});
    addLines("two pixels", {{7, 7, 7, 8}, {9, 7, 8, 7}});
    addLines("one pixel", {{7, 7, 7, 7}});
    addLines("beyond the image", {{-100, 10, 100, 10}, {10, -16777215, 10, 16777215}});
    addLines("outside", {{-10, 5, -10, 40}, {5, 70, 40, 70}});
    addLines("crossing", Cross);

    const auto addPen
        = [](const char *name, const QPen &pen) { QTest::newRow(name) << Cross << Canvas() << pen; };
    addPen("cosmetic", QPen(Qt::red, 0));
    addPen("translucent", QColor(200, 0, 0, 90));
    addPen("two pixels wide", QPen(Qt::red, 2));
    addPen("half a pixel wide", QPen(Qt::red, 0.5));
    addPen("dashed", QPen(Qt::red, 1, Qt::DashLine));
    addPen("no pen", Qt::NoPen);
    addPen("round ends", QPen(Qt::red, 1, Qt::SolidLine, Qt::RoundCap));
    addPen("flat ends", QPen(Qt::red, 1, Qt::SolidLine, Qt::FlatCap));
    addPen("pattern", QPen(QBrush(Qt::red, Qt::Dense4Pattern), 1));

    const auto addCanvas = [](const char *name, const std::function<void(Canvas &)> &prepare) {
        Canvas canvas;
        prepare(canvas);
        QTest::newRow(name) << Cross << canvas << QPen();
    };
    addCanvas("image without alpha", [](Canvas &canvas) { canvas.format = QImage::Format_RGB32; });
    addCanvas("image of 16 bits", [](Canvas &canvas) { canvas.format = QImage::Format_RGB16; });
    addCanvas("monochrome image", [](Canvas &canvas) { canvas.format = QImage::Format_Mono; });
    addCanvas("pixel ratio 1.25", [](Canvas &canvas) { canvas.pixelRatio = 1.25; });
    addCanvas("pixel ratio 1.5", [](Canvas &canvas) { canvas.pixelRatio = 1.5; });
    addCanvas("pixel ratio 2", [](Canvas &canvas) { canvas.pixelRatio = 2.0; });
    addCanvas("antialiased", [](Canvas &canvas) { canvas.antialiased = true; });
    addCanvas("translucent painter", [](Canvas &canvas) { canvas.opacity = 0.4; });
    addCanvas("moved", [](Canvas &canvas) { canvas.transform.translate(-4, 3); });
    addCanvas("moved by parts of a pixel", [](Canvas &canvas) { canvas.transform.translate(2.5, 1.3); });
    addCanvas("moved back by parts of a pixel",
              [](Canvas &canvas) { canvas.transform.translate(-2.5, -1.7); });
    addCanvas("scaled", [](Canvas &canvas) { canvas.transform.scale(0.7, 1.9); });
    addCanvas("mirrored", [](Canvas &canvas) { canvas.transform.translate(50, 0).scale(-1, 1); });
    addCanvas("turned", [](Canvas &canvas) { canvas.transform.translate(0, 45).rotate(-90); });
    addCanvas("turned a little", [](Canvas &canvas) { canvas.transform.rotate(5); });
    addCanvas("clipped", [](Canvas &canvas) { canvas.clip = QRect(10, 10, 15, 15); });
    addCanvas("clipped by a circle",
              [](Canvas &canvas) { canvas.clip = QRegion(5, 5, 30, 30, QRegion::Ellipse); });
}

void TestStraightLines::looksAsIfDrawnByQt()
{
    QFETCH(QVector<QLine>, lines);
    QFETCH(Canvas, canvas);
    QFETCH(QPen, pen);
    const QImage drawn = picture(
        canvas, pen, [&](QPainter &painter) { drawStraightLines(painter, lines.constData(), lines.size()); });
    const QImage byQt = picture(canvas, pen, [&](QPainter &painter) { painter.drawLines(lines); });
    QCOMPARE(drawn, byQt);
}

/// What is printed or written to a file of lines can be scaled later.
void TestStraightLines::staysALineInAPicture()
{
    QPicture recorded;
    {
        QPainter painter(&recorded);
        drawStraightLines(painter, Cross.constData(), Cross.size());
    }
    Canvas enlarged;
    enlarged.transform.scale(1.1, 1.1);
    const QImage replayed
        = picture(enlarged, QPen(), [&](QPainter &painter) { painter.drawPicture(0, 0, recorded); });
    const QImage byQt = picture(enlarged, QPen(), [&](QPainter &painter) { painter.drawLines(Cross); });
    QCOMPARE(replayed, byQt);
}

void TestStraightLines::leavesThePainterAsItWas()
{
    const QPen pen(Qt::darkGreen);
    picture(Canvas(), pen, [&](QPainter &painter) {
        drawStraightLines(painter, Cross.constData(), Cross.size());
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), QBrush(Qt::yellow));
    });
}

QTEST_MAIN(TestStraightLines)
#include "tst_straightlines.moc"
