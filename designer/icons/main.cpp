#include <QtCore/QDir>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <cstdio>

// Draws the images of the widgets: zrqtplot-icons FOLDER. They are seen at 22 pixels in Qt Designer: few
// shapes, strong lines, and a light card below that holds on dark themes, too.
namespace {

const QColor cardColor(0xfb, 0xfc, 0xfe);
const QColor edgeColor(0x6b, 0x77, 0x85);
const QColor inkColor(0x2b, 0x34, 0x40);
const QColor gridColor(0xd5, 0xdc, 0xe5);
const QColor blue(0x1f, 0x77, 0xd0);
const QColor orange(0xf0, 0x86, 0x1a);
const QColor green(0x2f, 0x9e, 0x5b);

/// All images are drawn in units of 64 to the side.
constexpr double side = 64.0;

void setPen(QPainter &painter, const QColor &color, double width)
{
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
}

void drawCard(QPainter &painter, const QRectF &rect)
{
    setPen(painter, edgeColor, 2);
    painter.setBrush(cardColor);
    painter.drawRoundedRect(rect, 7, 7);
}

/// A curve through \a points that is smooth, with horizontal tangents.
QPainterPath curveThrough(const QVector<QPointF> &points)
{
    QPainterPath path(points.first());
    for (int i = 1; i < points.size(); ++i) {
        const QPointF from = points.at(i - 1);
        const QPointF to = points.at(i);
        const double middle = (from.x() + to.x()) / 2;
        path.cubicTo({middle, from.y()}, {middle, to.y()}, to);
    }
    return path;
}

void drawGrid(QPainter &painter, const QRectF &area)
{
    setPen(painter, gridColor, 1.5);
    for (int i = 1; i < 4; ++i) {
        const double x = area.left() + area.width() * i / 4;
        const double y = area.top() + area.height() * i / 4;
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
    }
}

void drawAxes(QPainter &painter, const QRectF &area)
{
    setPen(painter, inkColor, 4);
    painter.drawPolyline(QVector<QPointF>{area.topLeft(), area.bottomLeft(), area.bottomRight()});
}

void drawHandle(QPainter &painter, const QPointF &center)
{
    setPen(painter, inkColor, 2);
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(center - QPointF(3.5, 3.5), QSizeF(7, 7)));
}

void drawPlot(QPainter &painter)
{
    drawCard(painter, {2, 2, 60, 60});
    const QRectF area(13, 10, 42, 41);
    drawGrid(painter, area);
    setPen(painter, blue, 5);
    painter.drawPath(curveThrough({{17, 44}, {30, 19}, {41, 35}, {54, 13}}));
    drawAxes(painter, area);
}

/// An axis at the left, with ticks, sub-ticks and bars for the labels.
void drawAxis(QPainter &painter)
{
    drawCard(painter, {2, 2, 60, 60});
    setPen(painter, inkColor, 4);
    painter.drawLine(QPointF(50, 9), QPointF(50, 55));
    for (double y : {11.0, 32.0, 53.0}) {
        setPen(painter, inkColor, 4);
        painter.drawLine(QPointF(37, y), QPointF(50, y));
        setPen(painter, blue, 6);
        painter.drawLine(QPointF(13, y), QPointF(26, y));
    }
    setPen(painter, inkColor, 3);
    for (double y : {21.5, 42.5})
        painter.drawLine(QPointF(43, y), QPointF(50, y));
}

/// A sampled line with its samples.
void drawBufferedChannel(QPainter &painter)
{
    drawCard(painter, {2, 2, 60, 60});
    const QVector<QPointF> samples{{10, 40}, {21, 17}, {32, 47}, {43, 19}, {54, 42}};
    setPen(painter, blue, 4);
    painter.drawPolyline(samples);
    setPen(painter, cardColor, 2);
    painter.setBrush(orange);
    for (const QPointF &sample : samples)
        painter.drawEllipse(sample, 5.5, 5.5);
}

/// A rectangle with handles and a circle.
void drawPlotChannel(QPainter &painter)
{
    drawCard(painter, {2, 2, 60, 60});
    setPen(painter, orange, 4);
    painter.drawEllipse(QPointF(43, 21), 12, 12);
    setPen(painter, green, 4);
    painter.setBrush(QColor(green.red(), green.green(), green.blue(), 60));
    const QRectF rect(12, 27, 28, 25);
    painter.drawRect(rect);
    for (const QPointF &corner : {rect.topLeft(), rect.topRight(), rect.bottomLeft(), rect.bottomRight()})
        drawHandle(painter, corner);
}

/// A strip with a curve, and two handles around what is selected.
void drawSlider(QPainter &painter)
{
    drawCard(painter, {2, 14, 60, 36});
    painter.fillRect(QRectF(22, 15, 22, 34), QColor(blue.red(), blue.green(), blue.blue(), 60));
    setPen(painter, edgeColor, 3);
    painter.drawPath(curveThrough({{6, 41}, {18, 25}, {32, 40}, {46, 24}, {58, 33}}));
    setPen(painter, inkColor, 2);
    painter.setBrush(blue);
    for (double x : {18.0, 46.0})
        painter.drawRoundedRect(QRectF(x - 5, 8, 10, 48), 3, 3);
}

/// A button in the channel's colour, checked, and the channel's name beside it.
void drawChannelEdit(QPainter &painter)
{
    drawCard(painter, {2, 14, 60, 36});
    setPen(painter, inkColor, 2);
    painter.setBrush(orange);
    painter.drawRoundedRect(QRectF(9, 21, 22, 22), 5, 5);
    setPen(painter, Qt::white, 4);
    painter.drawPolyline(QVector<QPointF>{{14, 32}, {18.5, 37}, {26, 27}});
    setPen(painter, inkColor, 5);
    painter.drawLine(QPointF(40, 27), QPointF(54, 27));
    painter.drawLine(QPointF(40, 38), QPointF(49, 38));
}

/// The library itself: data, content, and what of it the user has chosen.
void drawLibrary(QPainter &painter)
{
    drawCard(painter, {2, 2, 60, 60});
    const QRectF area(10, 8, 47, 46);
    painter.fillRect(QRectF(area.left() + area.width() / 4, area.top(), area.width() / 2, area.height()),
                     QColor(blue.red(), blue.green(), blue.blue(), 26));
    drawGrid(painter, area);
    setPen(painter, green, 2);
    painter.drawPath(curveThrough({{12, 22}, {22, 15}, {34, 33}, {46, 44}, {56, 40}}));
    setPen(painter, blue, 3);
    painter.drawPath(curveThrough({{12, 48}, {24, 30}, {35, 40}, {47, 16}, {56, 22}}));
    setPen(painter, cardColor, 1);
    painter.setBrush(orange);
    for (const QPointF &sample : {QPointF(24, 30), QPointF(35, 40), QPointF(47, 16)})
        painter.drawEllipse(sample, 3, 3);
    setPen(painter, inkColor, 2.5);
    painter.drawPolyline(QVector<QPointF>{area.topLeft(), area.bottomLeft(), area.bottomRight()});
    for (int i = 1; i <= 4; ++i) {
        const double x = area.left() + area.width() * i / 4;
        const double y = area.bottom() - area.height() * i / 4;
        painter.drawLine(QPointF(x, area.bottom()), QPointF(x, area.bottom() + 3));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.left() - 3, y));
    }
}

struct Picture
{
    const char *name;
    int size;
    void (*draw)(QPainter &);
};

constexpr Picture pictures[] = {
    {"zrqtplot", 64, drawPlot},
    {"zrqtaxis", 64, drawAxis},
    {"zrqtbufferedchannel", 64, drawBufferedChannel},
    {"zrqtplotchannel", 64, drawPlotChannel},
    {"zrqtplotslider", 64, drawSlider},
    {"zrqtplotchanneledit", 64, drawChannelEdit},
    {"zrqtplotwidgets", 256, drawLibrary},
};

QImage imageOf(const Picture &picture)
{
    QImage image(picture.size, picture.size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(picture.size / side, picture.size / side);
    picture.draw(painter);
    return image;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: zrqtplot-icons FOLDER\n");
        return 1;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (const Picture &picture : pictures) {
        const QString file = folder.filePath(QStringLiteral("%1.png").arg(QLatin1String(picture.name)));
        if (!imageOf(picture).save(file)) {
            std::fprintf(stderr, "Cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
