#include "internal/polyline_p.h"

#include "shared/quiettest.h"
#include "shared/seriesshapes.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

using Points = QVector<QPointF>;
using Runs = QVector<QPolygonF>;

template <typename Draw> QImage picture(const QPen &pen, const QTransform &transform, Draw draw)
{
    QImage image(120, 80, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(pen);
    painter.setWorldTransform(transform);
    draw(painter);
    return image;
}

} // namespace

class TestPolyline : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void isCutAtTheBox_data();
    void isCutAtTheBox();
    void ordinaryLineIsLeftToQt_data();
    void ordinaryLineIsLeftToQt();
    void speedCostsNoPixel_data();
    void speedCostsNoPixel();
    void absurdCoordinatesEnd_data();
    void absurdCoordinatesEnd();
    void absurdLineIsStillSeen();
};

void TestPolyline::isCutAtTheBox_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<Runs>("runs");
    QTest::newRow("nothing") << Points() << Runs();
    QTest::newRow("one point is no line") << Points{{5, 5}} << Runs();
    QTest::newRow("inside") << Points{{1, 1}, {5, 5}, {9, 1}} << Runs{Points{{1, 1}, {5, 5}, {9, 1}}};
    QTest::newRow("outside") << Points{{-5, -1}, {20, -3}} << Runs();
    QTest::newRow("across a corner") << Points{{-1, 8}, {3, 12}} << Runs{Points{{0, 9}, {1, 10}}};
    QTest::newRow("past a corner") << Points{{-1, 10.5}, {3, 14}} << Runs();
    QTest::newRow("leaves") << Points{{5, 5}, {5, 30}} << Runs{Points{{5, 5}, {5, 10}}};
    QTest::newRow("enters") << Points{{-15, 5}, {5, 5}} << Runs{Points{{0, 5}, {5, 5}}};
    QTest::newRow("crosses") << Points{{-10, 5}, {20, 5}} << Runs{Points{{0, 5}, {10, 5}}};
    QTest::newRow("leaves and comes back")
        << Points{{5, 5}, {5, 15}, {7, 15}, {7, 5}} << Runs{Points{{5, 5}, {5, 10}}, Points{{7, 10}, {7, 5}}};
    QTest::newRow("far away") << Points{{5, -1e300}, {5, 1e300}} << Runs{Points{{5, 0}, {5, 10}}};
    QTest::newRow("NaN is a gap") << Points{{1, 1}, {2, 2}, {notANumber, 3}, {4, 4}, {5, 5}}
                                  << Runs{Points{{1, 1}, {2, 2}}, Points{{4, 4}, {5, 5}}};
    QTest::newRow("infinity is a gap") << Points{{1, 1}, {2, infinity}, {4, 4}} << Runs();
    QTest::newRow("on the border") << Points{{0, 0}, {10, 0}} << Runs{Points{{0, 0}, {10, 0}}};
}

void TestPolyline::isCutAtTheBox()
{
    QFETCH(Points, points);
    QTEST(polylineWithin(points, QRectF(0, 0, 10, 10)), "runs");
}

void TestPolyline::ordinaryLineIsLeftToQt_data()
{
    QTest::addColumn<QPen>("pen");
    QTest::newRow("thin") << QPen(Qt::red, 1);
    QTest::newRow("wide") << QPen(Qt::red, 4);
    QTest::newRow("wide and dashed") << QPen(Qt::red, 4, Qt::DashLine);
    QTest::newRow("translucent") << QPen(QColor(255, 0, 0, 90), 6, Qt::DashDotLine);
}

void TestPolyline::ordinaryLineIsLeftToQt()
{
    QFETCH(QPen, pen);
    pen.setCosmetic(true);
    const Points points{{-1e5, 0}, {2, 3}, {3, 1}, {4, 5000}, {6, 2}};
    const QTransform transform(20, 0, 0, 0, -20, 0, 0, 80, 1);
    const QImage ours = picture(pen, transform, [&](QPainter &painter) { drawPolyline(painter, points); });
    const QImage qts = picture(pen, transform, [&](QPainter &painter) { painter.drawPolyline(points); });
    QCOMPARE(ours, qts);
    QVERIFY(ours != picture(pen, transform, [](QPainter &) {}));
}

void TestPolyline::speedCostsNoPixel_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<bool>("antialiased");
    QTest::addColumn<bool>("clipped");
    for (const bool antialiased : {false, true}) {
        for (const bool clipped : {false, true}) {
            const auto addRow = [=](const char *name, const Points &points) {
                QTest::addRow("%s, antialiased %d, clipped %d", name, antialiased, clipped)
                    << points << antialiased << clipped;
            };
            addRow("noise", SeriesShapes::noise(3000));
            addRow("random walk", SeriesShapes::randomWalk(3000));
            addRow("sine", SeriesShapes::sine(3000));
            addRow("gaps", SeriesShapes::gaps(3000));
        }
    }
}

void TestPolyline::speedCostsNoPixel()
{
    QFETCH(Points, points);
    QFETCH(bool, antialiased);
    QFETCH(bool, clipped);
    QPen pen(QColor(0, 0, 255, antialiased ? 200 : 255), 1);
    pen.setCosmetic(true);
    const QTransform inside(110, 0, 0, 0, -35, 0, 5, 40, 1);
    const QTransform reachingBeyond(300, 0, 0, 0, -95, 0, -90.3, 40.6, 1);
    const QTransform turned = QTransform(inside).rotate(20);
    for (const QTransform &transform : {inside, reachingBeyond, turned}) {
        for (const bool inWindow : {false, true}) {
            const auto prepared = [&](auto draw) {
                return picture(pen, transform, [&](QPainter &painter) {
                    painter.setRenderHint(QPainter::Antialiasing, antialiased);
                    if (clipped)
                        painter.setClipRect(QRectF(0.2, -0.5, 0.3, 1));
                    if (inWindow)
                        painter.setWindow(-10, -10, 300, 200);
                    draw(painter);
                });
            };
            const QImage ours = prepared([&](QPainter &painter) { drawPolyline(painter, points); });
            QCOMPARE(ours, prepared([&](QPainter &painter) { painter.drawPolyline(points); }));
            QVERIFY(ours != prepared([](QPainter &) {}));
        }
    }
}

void TestPolyline::absurdCoordinatesEnd_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<QTransform>("transform");
    const QTransform plain(10, 0, 0, 0, -8, 0, 0, 80, 1);
    const QTransform huge(1e250, 0, 0, 0, -1e250, 0, 0, 80, 1);
    const QTransform beyond(1e20, 0, 0, 0, -1e20, 0, -5e20, 80, 1);
    const Points zigzag{{0, 0}, {1, 1e300}, {2, -1e300}, {3, 1}};
    const Points diagonal{{-1e300, -1e300}, {1e300, 1e300}, {3, 1}};
    const Points gaps{{0, 0}, {1, notANumber}, {2, 5}, {notANumber, 1}, {infinity, 3}, {3, 3}};
    QTest::newRow("1e300 up and down") << zigzag << plain;
    QTest::newRow("1e300 in both directions") << diagonal << plain;
    QTest::newRow("NaN and infinity") << gaps << plain;
    QTest::newRow("beyond the range of double") << zigzag << huge;
    QTest::newRow("NaN, far zoomed in") << gaps << huge;
    QTest::newRow("tiny canvas") << Points{{0, 0}, {1, 5}, {5, 2}, {9, 3}} << beyond;
}

void TestPolyline::absurdCoordinatesEnd()
{
    QFETCH(Points, points);
    QFETCH(QTransform, transform);
    for (const Qt::PenStyle style : {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                     Qt::DashDotDotLine, Qt::CustomDashLine}) {
        for (const int width : {0, 1, 2, 5}) {
            QPen pen(Qt::black, width, style);
            pen.setCosmetic(true);
            QElapsedTimer timer;
            timer.start();
            picture(pen, transform, [&](QPainter &painter) { drawPolyline(painter, points); });
            QVERIFY2(timer.elapsed() < 2000,
                     qPrintable(QString::asprintf("style %d width %d", style, width)));
        }
    }
}

void TestPolyline::absurdLineIsStillSeen()
{
    QPen pen(Qt::black, 2, Qt::DashLine);
    pen.setCosmetic(true);
    const Points points{{5, -1e300}, {5, 1e300}};
    const QImage image = picture(pen, QTransform::fromScale(10, 10),
                                 [&](QPainter &painter) { drawPolyline(painter, points); });
    int dark = 0;
    for (int y = 0; y < image.height(); ++y)
        dark += image.pixelColor(50, y) == QColor(Qt::black) ? 1 : 0;
    // Qt itself gives up the dashes of a line as long as this and draws it solid.
    QVERIFY(dark > 20);
}

QTEST_MAIN(TestPolyline)
#include "tst_polyline.moc"
