#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "shared/quiettest.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QImage>

#include <algorithm>
#include <limits>

namespace {

constexpr int Low = 40;  ///< margin at the low end
constexpr int High = 25; ///< margin at the high end
constexpr int Extent = 400;

bool isVertical(Qt::Edge edge)
{
    return edge == Qt::LeftEdge || edge == Qt::RightEdge;
}

bool isOuter(Qt::Edge edge)
{
    return edge == Qt::LeftEdge || edge == Qt::TopEdge;
}

/// An axis with red labels: what is black is line or tick. Fixed to the range 0 to 10 and written with one
/// decimal, so that all labels but the last have the same width.
class RedLabelAxis : public ZrQtAxis
{
    Q_OBJECT

public:
    explicit RedLabelAxis(Qt::Edge edge)
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(13);
        setFont(font);
        setAxisLabelFont(font);
        setLabelColor(Qt::red);
        setLabelFormat(FloatingPoint);
        setPosition(edge);
        setMinMax(0.0, 10.0);
        setMarginLow(Low);
        setMarginHigh(High);
        stretch(Extent);
    }

    bool vertical() const { return isVertical(position()); }

    void stretch(int extent) { resize(vertical() ? QSize(width(), extent) : QSize(extent, height())); }

    /// Coordinate of the axis line across the widget.
    int line() const
    {
        if (!isOuter(position()))
            return 0;
        return (vertical() ? width() : height()) - 1;
    }

    /// Coordinate that lies \a distance pixels from the line in the direction of the ticks.
    int away(int distance) const { return isOuter(position()) ? line() - distance : line() + distance; }

    /// Pixels of the ends of the whole line, the smaller one first.
    int lineBegin() const { return vertical() ? High : Low; }
    int lineEnd() const { return vertical() ? Extent - Low : Extent - High; }
};

/// What an axis paints, addressed along and across it.
class Picture
{
public:
    explicit Picture(RedLabelAxis &axis)
        : m_vertical(axis.vertical())
        , m_image(axis.size().expandedTo(QSize(1, 1)), QImage::Format_RGB32)
    {
        m_image.fill(Qt::white);
        axis.render(&m_image, QPoint(), QRegion(), QWidget::RenderFlags());
    }

    bool isBlack(int along, int across) const { return pixel(along, across) == qRgb(0, 0, 0); }

    static bool isInk(QRgb rgb) { return rgb != qRgb(255, 255, 255) && qRed(rgb) > 100; }
    static bool isAnyInk(QRgb rgb) { return rgb != qRgb(255, 255, 255); }

    /// Smallest rectangle that holds all label pixels within \a area.
    QRect ink(const QRect &area) const { return bounds(area, &Picture::isInk); }
    QRect ink() const { return ink(m_image.rect()); }
    QRect anyInk() const { return bounds(m_image.rect(), &Picture::isAnyInk); }

    int inkPixels(const QRect &area) const
    {
        int count = 0;
        const QRect visible = area & m_image.rect();
        for (int y = visible.top(); y <= visible.bottom(); ++y) {
            for (int x = visible.left(); x <= visible.right(); ++x)
                count += isInk(m_image.pixel(x, y)) ? 1 : 0;
        }
        return count;
    }

    /// Number of label pixels in each column (row) of \a area.
    QVector<int> columns(const QRect &area) const
    {
        QVector<int> counts;
        for (int x = area.left(); x <= area.right(); ++x)
            counts.append(inkPixels(QRect(x, area.top(), 1, area.height())));
        return counts;
    }
    QVector<int> rows(const QRect &area) const
    {
        QVector<int> counts;
        for (int y = area.top(); y <= area.bottom(); ++y)
            counts.append(inkPixels(QRect(area.left(), y, area.width(), 1)));
        return counts;
    }

    QImage part(const QRect &area) const { return m_image.copy(area); }

private:
    QRgb pixel(int along, int across) const
    {
        return m_vertical ? m_image.pixel(across, along) : m_image.pixel(along, across);
    }

    QRect bounds(const QRect &area, bool (*matches)(QRgb)) const
    {
        QRect rect;
        const QRect visible = area & m_image.rect();
        for (int y = visible.top(); y <= visible.bottom(); ++y) {
            for (int x = visible.left(); x <= visible.right(); ++x) {
                if (matches(m_image.pixel(x, y)))
                    rect |= QRect(x, y, 1, 1);
            }
        }
        return rect;
    }

    bool m_vertical;
    QImage m_image;
};

int difference(const QVector<int> &a, const QVector<int> &b)
{
    int sum = 0;
    for (int i = 0; i < qMin(a.size(), b.size()); ++i)
        sum += qAbs(a.at(i) - b.at(i));
    return sum;
}

void addEdges()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::newRow("top") << Qt::TopEdge;
    QTest::newRow("left") << Qt::LeftEdge;
    QTest::newRow("right") << Qt::RightEdge;
    QTest::newRow("bottom") << Qt::BottomEdge;
}

} // namespace

class TestZrQtAxisPainting : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void sizes_data();
    void sizes();
    void lineGoesFromMarginToMargin_data() { addEdges(); }
    void lineGoesFromMarginToMargin();
    void lineCanBeHidden_data() { addEdges(); }
    void lineCanBeHidden();
    void limitedRangeHasAShorterLine_data();
    void limitedRangeHasAShorterLine();
    void ticksStandAtTheirPositions_data() { addEdges(); }
    void ticksStandAtTheirPositions();
    void noTicksOfSizeZero_data() { addEdges(); }
    void noTicksOfSizeZero();
    void noSubTicksOfSizeZero_data() { addEdges(); }
    void noSubTicksOfSizeZero();
    void labelsStayWithoutTicks_data() { addEdges(); }
    void labelsStayWithoutTicks();
    void labelsBelongToTheirTicks_data() { addEdges(); }
    void labelsBelongToTheirTicks();
    void labelsOfVerticalAxesEndTogether_data();
    void labelsOfVerticalAxesEndTogether();
    void turnedLabelsMeetTheirTicks_data();
    void turnedLabelsMeetTheirTicks();
    void invertedAxisExchangesLabels_data() { addEdges(); }
    void invertedAxisExchangesLabels();
    void axisLabelIsCentredBetweenMargins_data();
    void axisLabelIsCentredBetweenMargins();
    void turnedAxisLabelReadsUpwards_data();
    void turnedAxisLabelReadsUpwards();
    void axisLabelIsPlainText();
    void labelsHaveTheirColour_data() { addEdges(); }
    void labelsHaveTheirColour();
    void nothingButLineAndLabelWithoutRange_data();
    void nothingButLineAndLabelWithoutRange();
    void smallestWidgetsArePainted_data() { addEdges(); }
    void smallestWidgetsArePainted();
};

void TestZrQtAxisPainting::sizes_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<int>("tickSize");
    QTest::addColumn<int>("subTickSize");
    QTest::addColumn<bool>("turned");
    const struct
    {
        const char *name;
        Qt::Edge edge;
    } edges[] = {
        {"top", Qt::TopEdge}, {"left", Qt::LeftEdge}, {"right", Qt::RightEdge}, {"bottom", Qt::BottomEdge}};
    for (const auto &[name, edge] : edges) {
        QTest::addRow("%s", name) << edge << 10 << 5 << false;
        QTest::addRow("%s, sub-ticks longer", name) << edge << 5 << 14 << false;
        QTest::addRow("%s, turned", name) << edge << 10 << 5 << true;
    }
}

void TestZrQtAxisPainting::sizes()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(int, tickSize);
    QFETCH(int, subTickSize);
    QFETCH(bool, turned);
    RedLabelAxis axis(edge);
    axis.setTickSize(tickSize);
    axis.setSubTickSize(subTickSize);
    axis.setVerticalXTickTexts(turned);
    axis.setVerticalYLabel(turned);
    axis.setAxisLabel(QStringLiteral("pressure"));

    const QFontMetrics metrics(axis.font());
    const QRect label = QFontMetrics(axis.axisLabelFont()).boundingRect(QStringLiteral("pressure"));
    const int textWidth = metrics.horizontalAdvance(QStringLiteral("10.0"));
    const int text = isVertical(edge) || turned ? textWidth : metrics.height();
    const int labelExtent = isVertical(edge) && !turned ? label.width() : label.height();
    const int expected = isOuter(edge) ? labelExtent + 4 + text + tickSize + 2 + 1
                                       : qMax(tickSize, subTickSize) + 3 + text + 2 + labelExtent + 2;
    QCOMPARE(isVertical(edge) ? axis.width() : axis.height(), expected);
    QCOMPARE(axis.minimumSizeHint(), isVertical(edge) ? QSize(expected, -1) : QSize(-1, expected));
}

void TestZrQtAxisPainting::lineGoesFromMarginToMargin()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    axis.setTickSize(0);
    axis.setSubTickSize(0);
    const Picture picture(axis);
    for (int along = axis.lineBegin(); along <= axis.lineEnd(); ++along)
        QVERIFY2(picture.isBlack(along, axis.line()), QByteArray::number(along));
    QVERIFY(!picture.isBlack(axis.lineBegin() - 1, axis.line()));
    QVERIFY(!picture.isBlack(axis.lineEnd() + 1, axis.line()));
    QVERIFY(!picture.isBlack(Extent / 2, axis.away(1)));
}

void TestZrQtAxisPainting::lineCanBeHidden()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    axis.setTickSize(0);
    axis.setSubTickSize(0);
    axis.setDrawAxisLine(false);
    const Picture picture(axis);
    for (int along = 0; along < Extent; ++along)
        QVERIFY(!picture.isBlack(along, axis.line()));
}

void TestZrQtAxisPainting::limitedRangeHasAShorterLine_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<double>("drawMin");
    QTest::addColumn<double>("drawMax");
    QTest::addColumn<int>("begin");
    QTest::addColumn<int>("end");
    // Length is 400 - 40 - 25 - 1 = 334 pixels.
    QTest::newRow("bottom, lower half") << Qt::BottomEdge << 0.0 << 5.0 << 40 << 208;
    QTest::newRow("top, upper half") << Qt::TopEdge << 5.0 << 10.0 << 207 << 375;
    QTest::newRow("left, lower half") << Qt::LeftEdge << 0.0 << 5.0 << 192 << 360;
    QTest::newRow("right, upper half") << Qt::RightEdge << 5.0 << 10.0 << 25 << 193;
}

void TestZrQtAxisPainting::limitedRangeHasAShorterLine()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(double, drawMin);
    QFETCH(double, drawMax);
    QFETCH(int, begin);
    QFETCH(int, end);
    RedLabelAxis axis(edge);
    axis.setTickSize(0);
    axis.setSubTickSize(0);
    axis.setDrawMinMax(drawMin, drawMax);
    axis.setDrawingRangeLimited(true);
    QCOMPARE(axis.vertical() ? axis.height() : axis.width(), Extent);
    const Picture picture(axis);
    for (int along = 0; along < Extent; ++along)
        QVERIFY2(picture.isBlack(along, axis.line()) == (along >= begin && along <= end),
                 QByteArray::number(along));
}

void TestZrQtAxisPainting::ticksStandAtTheirPositions()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    axis.setDrawAxisLine(false);
    axis.setTickSize(12);
    axis.setSubTickSize(7);
    const Picture picture(axis);

    QHash<int, int> sizes;
    for (const double subTick : axis.subTickPositions())
        sizes.insert(int(subTick), 7);
    QVERIFY(!sizes.isEmpty());
    QVERIFY(axis.tickPositions().size() > 2);
    for (const double tick : axis.tickPositions())
        sizes.insert(int(tick), 12);
    for (int along = 0; along < Extent; ++along) {
        const int size = sizes.value(along, -1);
        for (int distance = 0; distance <= 13; ++distance)
            QVERIFY2(picture.isBlack(along, axis.away(distance)) == (distance <= size),
                     QByteArray::number(along));
    }
}

void TestZrQtAxisPainting::noTicksOfSizeZero()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    axis.setDrawAxisLine(false);
    axis.setTickSize(0);
    const Picture picture(axis);
    for (const double tick : axis.tickPositions()) {
        if (!axis.subTickPositions().contains(tick))
            QVERIFY(!picture.isBlack(int(tick), axis.line()));
    }
    QVERIFY(picture.isBlack(int(axis.subTickPositions().constFirst()), axis.line()));
}

void TestZrQtAxisPainting::noSubTicksOfSizeZero()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    axis.setDrawAxisLine(false);
    axis.setSubTickSize(0);
    QVERIFY(!axis.subTickPositions().isEmpty());
    const Picture picture(axis);
    for (const double subTick : axis.subTickPositions())
        QVERIFY(!picture.isBlack(int(subTick), axis.line()));
    QVERIFY(picture.isBlack(int(axis.tickPositions().constFirst()), axis.away(axis.tickSize())));
}

void TestZrQtAxisPainting::labelsStayWithoutTicks()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    axis.setSubTickSize(0);
    const QRect withTicks = Picture(axis).ink();
    axis.setTickSize(0);
    const QRect withoutTicks = Picture(axis).ink();
    QVERIFY(!withoutTicks.isEmpty());
    QCOMPARE(withoutTicks.size(), withTicks.size());
}

void TestZrQtAxisPainting::labelsBelongToTheirTicks()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    const Picture picture(axis);
    const QFontMetrics metrics(axis.font());
    const int reach
        = axis.vertical() ? metrics.height() / 2 : metrics.horizontalAdvance(QStringLiteral("10.0")) / 2 + 1;
    for (const double tick : axis.tickPositions()) {
        const int along = int(tick);
        const QRect around = axis.vertical() ? QRect(0, along - reach - 2, axis.width(), 2 * reach + 2)
                                             : QRect(along - reach, 0, 2 * reach + 1, axis.height());
        const QRect label = picture.ink(around);
        QVERIFY(!label.isEmpty());
        const int centre = axis.vertical() ? label.center().y() : label.center().x();
        QVERIFY2(qAbs(centre - along) <= 2, QByteArray::number(centre - along));
    }
    // All labels stand clear of the ticks.
    const QRect all = picture.ink();
    const int first = axis.away(axis.tickSize() + 1);
    if (isOuter(edge))
        QVERIFY((axis.vertical() ? all.right() : all.bottom()) <= first);
    else
        QVERIFY((axis.vertical() ? all.left() : all.top()) >= first);
}

void TestZrQtAxisPainting::labelsOfVerticalAxesEndTogether_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::newRow("left") << Qt::LeftEdge;
    QTest::newRow("right") << Qt::RightEdge;
}

void TestZrQtAxisPainting::labelsOfVerticalAxesEndTogether()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    const Picture picture(axis);
    const int height = QFontMetrics(axis.font()).height();
    const auto label = [&](double tick) {
        return picture.ink(QRect(0, int(tick) - height / 2 - 2, axis.width(), height + 2));
    };
    const QRect first = label(axis.tickPositions().constFirst());
    const QRect last = label(axis.tickPositions().constLast());
    QCOMPARE(first.right(), last.right());
    QVERIFY2(last.width() > first.width() + 4, "10.0 is wider than 0.0");
}

void TestZrQtAxisPainting::turnedLabelsMeetTheirTicks_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::newRow("top") << Qt::TopEdge;
    QTest::newRow("bottom") << Qt::BottomEdge;
}

void TestZrQtAxisPainting::turnedLabelsMeetTheirTicks()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    axis.setMinMax(0.0, 1111.0);
    axis.setVerticalXTickTexts(true);
    const Picture picture(axis);
    const QFontMetrics metrics(axis.font());
    const auto label = [&](double tick) {
        const int half = metrics.height() / 2;
        return picture.ink(QRect(int(tick) - half, 0, 2 * half, axis.height()));
    };
    const QRect first = label(axis.tickPositions().constFirst());
    const QRect last = label(axis.tickPositions().constLast());
    QVERIFY2(first.height() > first.width(), "the text is turned");
    QVERIFY(qAbs(last.center().x() - int(axis.tickPositions().constLast())) <= 2);
    QVERIFY2(last.height() > first.height() + 4, "1111.0 is longer than 0.0");
    // The text ends at the tick above the plot area and hangs from it below.
    const int gap = axis.tickSize() + 2;
    if (edge == Qt::TopEdge) {
        QVERIFY(qAbs(first.bottom() - last.bottom()) <= 1);
        QVERIFY(last.bottom() <= axis.away(gap) && last.bottom() > axis.away(gap + 4));
    } else {
        QVERIFY(qAbs(first.top() - last.top()) <= 1);
        QVERIFY(last.top() >= axis.away(gap) && last.top() < axis.away(gap + 4));
    }
    // From top to bottom stands what the straight text has from right to left.
    const QVector<int> turned = picture.rows(last);
    axis.setVerticalXTickTexts(false);
    const Picture straight(axis);
    QVector<int> text = straight.columns(
        straight.ink(QRect(int(axis.tickPositions().constLast()) - 25, 0, 50, axis.height())));
    const int forwards = difference(turned, text);
    std::reverse(text.begin(), text.end());
    QVERIFY(difference(turned, text) < forwards / 2);
}

void TestZrQtAxisPainting::invertedAxisExchangesLabels()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    axis.setMarginHigh(Low);
    const int last = int(axis.tickPositions().constLast());
    const Picture upright(axis);
    axis.setInverted(true);
    QCOMPARE(int(axis.tickPositions().constFirst()), last);
    const Picture inverted(axis);
    const auto at = [&axis](double tick) {
        return axis.vertical() ? QRect(0, int(tick) - 8, axis.width(), 16)
                               : QRect(int(tick) - 16, 0, 32, axis.height());
    };
    QCOMPARE(inverted.inkPixels(at(axis.tickPositions().constLast())), upright.inkPixels(at(last)));
    QVERIFY(inverted.inkPixels(at(last)) != upright.inkPixels(at(last)));
}

void TestZrQtAxisPainting::axisLabelIsCentredBetweenMargins_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<bool>("turned");
    QTest::newRow("top") << Qt::TopEdge << false;
    QTest::newRow("left") << Qt::LeftEdge << false;
    QTest::newRow("right") << Qt::RightEdge << false;
    QTest::newRow("bottom") << Qt::BottomEdge << false;
    QTest::newRow("left, turned") << Qt::LeftEdge << true;
    QTest::newRow("right, turned") << Qt::RightEdge << true;
}

void TestZrQtAxisPainting::axisLabelIsCentredBetweenMargins()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(bool, turned);
    RedLabelAxis axis(edge);
    axis.setAxisLabel(QStringLiteral("HHHH"));
    axis.setVerticalYLabel(turned);
    axis.setMarginHigh(140);
    const int width = axis.width();
    const int height = axis.height();
    axis.setMinMax(0.0, 0.0); // no tick labels, so that all that is red is the axis label
    QVERIFY(axis.tickPositions().isEmpty());
    const QRect label = Picture(axis).ink();
    QVERIFY(!label.isEmpty());
    const int centre = axis.vertical() ? label.center().y() : label.center().x();
    const int expected = axis.vertical() ? (140 + height - Low) / 2 : (Low + width - 140) / 2;
    QVERIFY2(qAbs(centre - expected) <= 3, QByteArray::number(centre - expected));
    const QRect bounds = QFontMetrics(axis.axisLabelFont()).boundingRect(axis.axisLabel());
    const int across = isVertical(edge) && !turned ? bounds.width() : bounds.height();
    const QRect place = [&]() -> QRect {
        switch (edge) {
        case Qt::TopEdge:
            return {0, 2, width, across};
        case Qt::LeftEdge:
            return {2, 0, across, height};
        case Qt::RightEdge:
            return {axis.width() - 2 - across, 0, across, height};
        default:
            return {0, axis.height() - 2 - across, width, across};
        }
    }();
    QVERIFY(place.contains(label));
}

void TestZrQtAxisPainting::turnedAxisLabelReadsUpwards_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::newRow("left") << Qt::LeftEdge;
    QTest::newRow("right") << Qt::RightEdge;
}

void TestZrQtAxisPainting::turnedAxisLabelReadsUpwards()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    axis.setMinMax(0.0, 0.0);
    axis.setAxisLabel(QStringLiteral("....MMMM"));
    axis.setVerticalYLabel(true);
    const Picture picture(axis);
    const QRect label = picture.ink();
    QVERIFY(label.height() > label.width());
    QRect upper = label;
    upper.setHeight(label.height() / 4);
    QRect lower = label;
    lower.setTop(label.bottom() - label.height() / 4);
    QVERIFY(picture.inkPixels(upper) > 3 * picture.inkPixels(lower));
    // The feet of the letters are at the right, where the points stand.
    const QRect end(label.left(), label.bottom() - 2, label.width(), 3);
    QVERIFY(picture.ink(end).left() > label.center().x());
}

void TestZrQtAxisPainting::axisLabelIsPlainText()
{
    RedLabelAxis axis(Qt::BottomEdge);
    axis.setMinMax(0.0, 0.0);
    axis.setAxisLabel(QStringLiteral("<b>t</b>"));
    const int width = QFontMetrics(axis.axisLabelFont()).boundingRect(axis.axisLabel()).width();
    QVERIFY(qAbs(Picture(axis).ink().width() - width) <= 4);
}

void TestZrQtAxisPainting::labelsHaveTheirColour()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    axis.setAxisLabel(QStringLiteral("time"));
    axis.setDrawAxisLine(false);
    axis.setTickSize(0);
    axis.setSubTickSize(0);
    const QImage image = Picture(axis).part(axis.rect());
    int red = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb rgb = image.pixel(x, y);
            QVERIFY2(qRed(rgb) == 255 || qRed(rgb) > qGreen(rgb), "nothing is black");
            red += rgb == qRgb(255, 0, 0) ? 1 : 0;
        }
    }
    QVERIFY(red > 20);
}

void TestZrQtAxisPainting::nothingButLineAndLabelWithoutRange_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("bottom, max = min") << Qt::BottomEdge << 3.0 << 3.0;
    QTest::newRow("left, max = min") << Qt::LeftEdge << 3.0 << 3.0;
    QTest::newRow("top, NaN") << Qt::TopEdge << notANumber << notANumber;
    QTest::newRow("right, NaN") << Qt::RightEdge << notANumber << 1.0;
}

void TestZrQtAxisPainting::nothingButLineAndLabelWithoutRange()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(double, min);
    QFETCH(double, max);
    RedLabelAxis axis(edge);
    axis.setMinMax(min, max);
    const Picture bare(axis);
    QVERIFY(bare.ink().isEmpty());
    const QRect all = bare.anyInk();
    QCOMPARE(axis.vertical() ? all.width() : all.height(), 1);
    QCOMPARE(axis.vertical() ? all.top() : all.left(), axis.lineBegin());
    QCOMPARE(axis.vertical() ? all.bottom() : all.right(), axis.lineEnd());
    axis.setAxisLabel(QStringLiteral("time"));
    QVERIFY(!Picture(axis).ink().isEmpty());
}

void TestZrQtAxisPainting::smallestWidgetsArePainted()
{
    QFETCH(Qt::Edge, edge);
    RedLabelAxis axis(edge);
    for (int extent : {0, 1, 2, Low, Low + High, Low + High + 1, Low + High + 2}) {
        axis.stretch(extent);
        axis.updateAxis();
        const Picture picture(axis);
        for (const double tick : axis.tickPositions())
            QVERIFY(qAbs(tick) <= Low + High);
    }
}

QTEST_MAIN(TestZrQtAxisPainting)

#include "tst_zrqtaxis_painting.moc"
