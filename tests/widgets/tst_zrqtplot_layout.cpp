#include "shared/plotprobe.h"
#include "shared/quiettest.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"

#include <QtGui/QFontMetrics>

/// Where the plot puts its plot area and its children. Sizes of axes are theirs: the tests read them.
class tst_ZrQtPlotLayout : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void bare();
    void minimumMargins();
    void axisAtEdge_data();
    void axisAtEdge();
    void severalAxes_data();
    void severalAxes();
    void endLabelsReserveSpace_data();
    void endLabelsReserveSpace();
    void hiddenAxisTakesNoSpace();
    void axisWithoutEdgeTakesNoSpace();
    void axisAsksForMoreSpace();
    void emptyCanvasTakesTheRangeOfTheAxis_data();
    void emptyCanvasTakesTheRangeOfTheAxis();
    void axisOfUnknownSystemMakesARecord();
    void everythingCoversThePlotArea();
    void geometryIsSetOnlyIfItDiffers();
    void legendHeight_data();
    void legendHeight();
    void legendNames_data();
    void legendNames();
    void legendKeepsItsSpace();
    void legendBelowMinimumMargin();
    void layoutRequestAndResizeLayOut();
};

namespace {

const Cosy C0 = ZrQtPlot::COSY_0;
const Cosy C4 = ZrQtPlot::COSY_4;

bool isVertical(const ZrQtAxis *axis)
{
    return axis->position() == Qt::LeftEdge || axis->position() == Qt::RightEdge;
}

ZrQtAxis *addAxis(ZrQtPlot *plot, Qt::Edge edge)
{
    auto *axis = new ZrQtAxis(plot);
    axis->setPosition(edge);
    axis->show();
    return axis;
}

/// The margins that follow from the sizes of the visible axes.
QMargins expectedMargins(const ZrQtPlot *plot, const QVector<ZrQtAxis *> &axes, int legend = 0)
{
    QMargins sum(0, 0, 0, legend);
    int endsOfVertical = 0;
    int endsOfHorizontal = 0;
    for (const ZrQtAxis *axis : axes) {
        if (!axis->isVisible())
            continue;
        if (axis->position() == Qt::LeftEdge)
            sum.setLeft(sum.left() + axis->width());
        else if (axis->position() == Qt::RightEdge)
            sum.setRight(sum.right() + axis->width());
        else if (axis->position() == Qt::TopEdge)
            sum.setTop(sum.top() + axis->height());
        else
            sum.setBottom(sum.bottom() + axis->height());
        int &ends = isVertical(axis) ? endsOfVertical : endsOfHorizontal;
        ends = qMax(ends, qMax(axis->minMarginLow(), axis->minMarginHigh()));
    }
    return QMargins(qMax(plot->minMarginLeft(), qMax(sum.left(), endsOfHorizontal)),
                    qMax(plot->minMarginTop(), qMax(sum.top(), endsOfVertical)),
                    qMax(plot->minMarginRight(), qMax(sum.right(), endsOfHorizontal)),
                    qMax(plot->minMarginBottom(), qMax(sum.bottom(), endsOfVertical)));
}

/// Compares plot area, minimum size, and geometry and margins of the axes with what their sizes ask for.
void verifyLayout(const ZrQtPlot *plot, const QVector<ZrQtAxis *> &axes, int legend = 0)
{
    const QMargins margins = expectedMargins(plot, axes, legend);
    QCOMPARE(plotArea(plot), plot->rect().marginsRemoved(margins));
    QCOMPARE(plot->minimumWidth(), margins.left() + 20 + margins.right());
    QCOMPARE(plot->minimumHeight(), margins.top() + 20 + margins.bottom());

    // They stack outward from the plot area, in their order.
    QRect inner = plot->rect().marginsRemoved(margins);
    for (const ZrQtAxis *axis : axes) {
        if (!axis->isVisible())
            continue;
        QRect expected;
        if (isVertical(axis))
            expected = QRect(0, 0, axis->width(), plot->height());
        else
            expected = QRect(0, 0, plot->width(), axis->height());
        switch (axis->position()) {
        case Qt::LeftEdge:
            expected.moveLeft(inner.left() - axis->width());
            inner.setLeft(expected.left());
            break;
        case Qt::RightEdge:
            expected.moveLeft(inner.right() + 1);
            inner.setRight(expected.right());
            break;
        case Qt::TopEdge:
            expected.moveTop(inner.top() - axis->height());
            inner.setTop(expected.top());
            break;
        default:
            expected.moveTop(inner.bottom() + 1);
            inner.setBottom(expected.bottom());
            break;
        }
        QCOMPARE(axis->geometry(), expected);
        QCOMPARE(axis->marginLow(), isVertical(axis) ? margins.bottom() : margins.left());
        QCOMPARE(axis->marginHigh(), isVertical(axis) ? margins.top() : margins.right());
    }
}

/// Line height of the legend: the plot's font and half of it.
int lineHeight(const ZrQtPlot *plot)
{
    const int height = plot->fontMetrics().height();
    return height + int(height * 0.5 + 0.5);
}

int spacing(const ZrQtPlot *plot)
{
    return int(plot->fontMetrics().height() * 0.5 + 0.5);
}

int entryWidth(const ZrQtPlot *plot, const QString &name)
{
    const QFontMetrics metrics = plot->fontMetrics();
    return int(metrics.horizontalAdvance(name) + metrics.height() + spacing(plot) * 0.5 + 0.5);
}

} // namespace

void tst_ZrQtPlotLayout::bare()
{
    ShownPlot shown(QSize(300, 200));
    QCOMPARE(plotArea(shown.plot), QRect(0, 0, 300, 200));
    QCOMPARE(shown.plot->minimumSize(), QSize(20, 20));
}

void tst_ZrQtPlotLayout::minimumMargins()
{
    ShownPlot shown(QSize(300, 200));
    shown.plot->setMinMarginLeft(10);
    shown.plot->setMinMarginRight(20);
    shown.plot->setMinMarginTop(30);
    shown.plot->setMinMarginBottom(40);
    QCOMPARE(plotArea(shown.plot), QRect(10, 30, 270, 130));
    QCOMPARE(shown.plot->minimumSize(), QSize(50, 90));

    // Axes that need more get it, those that need less do not add to it.
    ZrQtAxis *left = addAxis(shown.plot, Qt::LeftEdge);
    settle(shown.plot);
    QVERIFY(left->width() > 10);
    verifyLayout(shown.plot, {left});
    shown.plot->setMinMarginLeft(left->width() + 15);
    settle(shown.plot);
    verifyLayout(shown.plot, {left});
    QCOMPARE(plotArea(shown.plot).left(), left->width() + 15);
    QCOMPARE(left->geometry().left(), 15);
}

void tst_ZrQtPlotLayout::axisAtEdge_data()
{
    QTest::addColumn<Qt::Edge>("edge");

    QTest::newRow("left") << Qt::LeftEdge;
    QTest::newRow("right") << Qt::RightEdge;
    QTest::newRow("top") << Qt::TopEdge;
    QTest::newRow("bottom") << Qt::BottomEdge;
}

void tst_ZrQtPlotLayout::axisAtEdge()
{
    QFETCH(const Qt::Edge, edge);

    ShownPlot shown(QSize(500, 400));
    ZrQtAxis *axis = addAxis(shown.plot, edge);
    settle(shown.plot);
    verifyLayout(shown.plot, {axis});
    axis->setTickSize(25);
    settle(shown.plot);
    verifyLayout(shown.plot, {axis});
    QFont font = axis->font();
    font.setPixelSize(30);
    axis->setFont(font);
    axis->setLabelFormat(ZrQtAxis::FloatingPoint);
    axis->setPrecision(3);
    axis->setAxisLabel(QStringLiteral("Pressure"));
    settle(shown.plot);
    verifyLayout(shown.plot, {axis});
    shown.plot->resize(800, 300);
    settle(shown.plot);
    verifyLayout(shown.plot, {axis});
}

void tst_ZrQtPlotLayout::severalAxes_data()
{
    QTest::addColumn<QVector<Qt::Edge>>("edges");

    using V = QVector<Qt::Edge>;
    const Qt::Edge l = Qt::LeftEdge;
    const Qt::Edge r = Qt::RightEdge;
    const Qt::Edge t = Qt::TopEdge;
    const Qt::Edge b = Qt::BottomEdge;
    QTest::newRow("two left: the first is next to the plot area") << V{l, l};
    QTest::newRow("two right") << V{r, r};
    QTest::newRow("two top") << V{t, t};
    QTest::newRow("two bottom") << V{b, b};
    QTest::newRow("one at each edge") << V{l, r, t, b};
    QTest::newRow("mixed") << V{b, l, t, l, r, b, l, r, t, b};
}

void tst_ZrQtPlotLayout::severalAxes()
{
    QFETCH(const QVector<Qt::Edge>, edges);

    ShownPlot shown(QSize(900, 700));
    QVector<ZrQtAxis *> axes;
    for (const Qt::Edge edge : edges) {
        ZrQtAxis *axis = addAxis(shown.plot, edge);
        axis->setTickSize(5 + 7 * axes.size()); // each has a size of its own
        axes.append(axis);
    }
    settle(shown.plot);
    verifyLayout(shown.plot, axes);

    if (edges.size() == 2 && edges[0] == Qt::LeftEdge) {
        QCOMPARE(axes[0]->geometry().right() + 1, plotArea(shown.plot).left());
        QCOMPARE(axes[1]->geometry().right() + 1, axes[0]->geometry().left());
    }

    // Without the first one, the others move in.
    shown.plot->removeAxis(axes[0]);
    delete axes.takeFirst();
    settle(shown.plot);
    verifyLayout(shown.plot, axes);
}

void tst_ZrQtPlotLayout::endLabelsReserveSpace_data()
{
    axisAtEdge_data();
}

void tst_ZrQtPlotLayout::endLabelsReserveSpace()
{
    QFETCH(const Qt::Edge, edge);

    ShownPlot shown(QSize(500, 400));
    ZrQtAxis *axis = addAxis(shown.plot, edge);
    QFont font = axis->font();
    font.setPixelSize(24);
    axis->setFont(font);
    axis->setPrecision(2);
    axis->setLabelFormat(ZrQtAxis::FloatingPoint);
    settle(shown.plot);
    const int ends = qMax(axis->minMarginLow(), axis->minMarginHigh());
    QVERIFY(ends >= 12);
    const QRect area = plotArea(shown.plot);
    const QMargins free(area.left(), area.top(), 500 - area.right() - 1, 400 - area.bottom() - 1);
    if (isVertical(axis)) {
        QCOMPARE(free.top(), ends);
        QCOMPARE(free.bottom(), ends);
    } else {
        QCOMPARE(free.left(), ends);
        QCOMPARE(free.right(), ends);
    }
}

void tst_ZrQtPlotLayout::hiddenAxisTakesNoSpace()
{
    ShownPlot shown(QSize(500, 400));
    ZrQtAxis *first = addAxis(shown.plot, Qt::LeftEdge);
    ZrQtAxis *second = addAxis(shown.plot, Qt::LeftEdge);
    settle(shown.plot);
    first->hide();
    settle(shown.plot);
    verifyLayout(shown.plot, {first, second});
    QCOMPARE(second->geometry().left(), 0);
    second->hide();
    settle(shown.plot);
    QCOMPARE(plotArea(shown.plot), shown.plot->rect());
    QCOMPARE(shown.plot->minimumSize(), QSize(20, 20));

    // Shown again, it asks for its space by itself.
    first->show();
    QApplication::processEvents();
    QVERIFY(plotArea(shown.plot).left() > 0);
}

void tst_ZrQtPlotLayout::axisWithoutEdgeTakesNoSpace()
{
    ShownPlot shown(QSize(500, 400));
    ZrQtAxis *axis = addAxis(shown.plot, Qt::LeftEdge);
    axis->setPosition(Qt::Edge(0));
    settle(shown.plot);
    QCOMPARE(plotArea(shown.plot), shown.plot->rect());
}

void tst_ZrQtPlotLayout::axisAsksForMoreSpace()
{
    // Without any event to the plot: the axis' own request lays out.
    ShownPlot shown(QSize(500, 400));
    ZrQtAxis *axis = addAxis(shown.plot, Qt::LeftEdge);
    settle(shown.plot);
    const int before = plotArea(shown.plot).left();
    axis->setTickSize(axis->tickSize() + 30);
    QCOMPARE(plotArea(shown.plot).left(), before + 30);
    QCOMPARE(axis->geometry().right() + 1, plotArea(shown.plot).left());
    axis->setPosition(Qt::RightEdge);
    QCOMPARE(plotArea(shown.plot).left(), 0);
    QCOMPARE(axis->geometry().right(), shown.plot->rect().right());
}

void tst_ZrQtPlotLayout::emptyCanvasTakesTheRangeOfTheAxis_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<QRectF>("canvas"); // before
    QTest::addColumn<QString>("expected");

    const QRectF nothing(0, 0, 0, 0);
    const QRectF noWidth(0, 1, 0, 5);
    const QRectF noHeight(1, 0, 5, 0);
    QTest::newRow("left") << Qt::LeftEdge << nothing << PlotLog::canvas(0, 0, 3, 7, C4);
    QTest::newRow("right") << Qt::RightEdge << nothing << PlotLog::canvas(0, 0, 3, 7, C4);
    QTest::newRow("top") << Qt::TopEdge << nothing << PlotLog::canvas(3, 7, 0, 0, C4);
    QTest::newRow("bottom") << Qt::BottomEdge << nothing << PlotLog::canvas(3, 7, 0, 0, C4);
    QTest::newRow("left, height is set") << Qt::LeftEdge << noWidth << QString();
    QTest::newRow("left, width is set") << Qt::LeftEdge << noHeight << PlotLog::canvas(1, 6, 3, 7, C4);
    QTest::newRow("bottom, width is set") << Qt::BottomEdge << noHeight << QString();
    QTest::newRow("bottom, height is set") << Qt::BottomEdge << noWidth << PlotLog::canvas(3, 7, 1, 6, C4);
}

void tst_ZrQtPlotLayout::emptyCanvasTakesTheRangeOfTheAxis()
{
    QFETCH(const Qt::Edge, edge);
    QFETCH(const QRectF, canvas);
    QFETCH(const QString, expected);

    ShownPlot shown(QSize(500, 400));
    shown.plot->setInitialCanvas(canvas);
    auto *axis = new ZrQtAxis;
    axis->setPosition(edge);
    axis->setCosy(C4);
    axis->setMinMax(3, 7);
    PlotLog log(shown.plot);
    shown.plot->addAxis(axis);
    QCOMPARE(log.take(), QStringList()); // not visible yet
    axis->show();
    settle(shown.plot);
    QCOMPARE(log.take(), expected.isEmpty() ? QStringList() : QStringList{expected});
    if (!expected.isEmpty())
        QCOMPARE(PlotLog::canvas(shown.plot->canvas(C4), C4), expected);
    QCOMPARE(axis->min(), 3.0);
    QCOMPARE(shown.plot->canvas(C0), canvas);
}

void tst_ZrQtPlotLayout::axisOfUnknownSystemMakesARecord()
{
    const Cosy combined = Cosy(ZrQtPlot::COSY_1 | ZrQtPlot::COSY_2);
    ShownPlot shown(QSize(500, 400));
    QCOMPARE(shown.plot->canvas(combined), QRectF());
    auto *axis = new ZrQtAxis;
    axis->setCosy(combined);
    axis->setMinMax(3, 7);
    shown.plot->addAxis(axis);
    axis->show();
    settle(shown.plot);
    QCOMPARE(shown.plot->canvas(combined), QRectF(0, 3, 0, 4));
    QCOMPARE(shown.plot->canvas(ZrQtPlot::COSY_1), QRectF(0, 0, 10, 10));
}

void tst_ZrQtPlotLayout::everythingCoversThePlotArea()
{
    ShownPlot shown(QSize(500, 400));
    auto *channel = new ProbeChannel(shown.plot, QRectF(0, 0, 1, 1));
    auto *hidden = new ProbeChannel(shown.plot, QRectF(0, 0, 1, 1));
    hidden->hide();
    auto *custom = new QWidget(shown.plot);
    addAxis(shown.plot, Qt::LeftEdge);
    addAxis(shown.plot, Qt::BottomEdge);
    settle(shown.plot);
    const QRect area = plotArea(shown.plot);
    QVERIFY(area.left() > 0 && area.bottom() < 399);
    QCOMPARE(channel->geometry(), area);
    QCOMPARE(hidden->geometry(), area);
    QCOMPARE(custom->geometry(), area);
    shown.plot->resize(600, 500);
    settle(shown.plot);
    QVERIFY(plotArea(shown.plot) != area);
    QCOMPARE(channel->geometry(), plotArea(shown.plot));
    QCOMPARE(custom->geometry(), plotArea(shown.plot));
}

void tst_ZrQtPlotLayout::geometryIsSetOnlyIfItDiffers()
{
    // A channel reports each move and resize, so an idle layout must not touch it.
    ShownPlot shown(QSize(500, 400));
    auto *channel = new ProbeChannel(shown.plot, QRectF(0, 0, 1, 1));
    addAxis(shown.plot, Qt::LeftEdge);
    settle(shown.plot);
    QSignalSpy moved(channel, &ZrQtBaseChannel::dataChanged);
    settle(shown.plot);
    QCOMPARE(moved.size(), 0);
    shown.plot->setMinMarginBottom(50);
    QVERIFY(moved.size() > 0);
}

namespace {

/// One channel of a legend.
struct Entry
{
    const char *name;
    bool visible = true;
    bool inLegend = true;
};

/// The width that is available, in terms of the entries.
enum Available {
    Plenty,   ///< more than all of them need
    Exact,    ///< all entries with the spacings between them
    OneLess,  ///< one pixel less
    First,    ///< the first entry and nothing more
    FirstTwo, ///< the first two entries with their spacing
    Tiny      ///< no entry fits
};

} // namespace

Q_DECLARE_METATYPE(QVector<Entry>)
Q_DECLARE_METATYPE(Available)

void tst_ZrQtPlotLayout::legendHeight_data()
{
    QTest::addColumn<QVector<Entry>>("entries");
    QTest::addColumn<Available>("available");
    QTest::addColumn<int>("lines");

    using E = QVector<Entry>;
    const Entry a{"alpha alpha"};
    const Entry b{"beta beta beta"};
    const Entry c{"gamma gamma gamma"};
    const Entry hidden{"hidden channel", false};
    const Entry silent{"silent channel", true, false};
    const Entry unnamed{""};

    QTest::newRow("no channel") << E{} << Plenty << 0;
    QTest::newRow("a single channel takes no line") << E{a} << Plenty << 0;
    QTest::newRow("a single channel that does not fit") << E{a} << Tiny << 1;
    QTest::newRow("two on a line") << E{a, b} << Plenty << 1;
    QTest::newRow("two on a line that fits exactly") << E{a, b} << Exact << 1;
    QTest::newRow("two, one pixel short") << E{a, b} << OneLess << 2;
    QTest::newRow("three on a line") << E{a, b, c} << Plenty << 1;
    QTest::newRow("three on a line that fits exactly") << E{a, b, c} << Exact << 1;
    QTest::newRow("three, one pixel short") << E{a, b, c} << OneLess << 2;
    QTest::newRow("two fit, the third gets a line") << E{a, b, c} << FirstTwo << 2;
    QTest::newRow("one fits a line each") << E{c, b, a} << First << 3;
    QTest::newRow("none fits: a line each") << E{a, b, c} << Tiny << 3;
    QTest::newRow("the first does not fit, the last one takes no line") << E{c, a} << OneLess << 1;
    QTest::newRow("last hidden") << E{a, b, hidden} << Plenty << 1;
    QTest::newRow("last hidden, the line is full") << E{a, hidden} << First << 1;
    QTest::newRow("first hidden, the last one takes no line") << E{hidden, a} << Plenty << 0;
    QTest::newRow("hidden between") << E{a, hidden, b} << Exact << 1;
    QTest::newRow("not in the legend") << E{a, silent, b} << Exact << 1;
    QTest::newRow("without name") << E{a, unnamed, b} << Exact << 1;
    QTest::newRow("all hidden") << E{hidden, hidden} << Plenty << 0;
}

void tst_ZrQtPlotLayout::legendHeight()
{
    QFETCH(const QVector<Entry>, entries);
    QFETCH(const Available, available);
    QFETCH(const int, lines);

    ShownPlot shown(QSize(1000, 400));
    QVector<int> widths;
    for (const Entry &entry : entries) {
        auto *channel = new ProbeChannel(shown.plot, QRectF(0, 0, 1, 1));
        const QString name = QString::fromLatin1(entry.name);
        channel->setName(name);
        channel->setVisible(entry.visible);
        channel->setShowInLegend(entry.inLegend);
        if (entry.visible && entry.inLegend && !name.isEmpty())
            widths.append(entryWidth(shown.plot, name));
    }
    int width = 1000;
    const int gap = spacing(shown.plot);
    if (available == Exact || available == OneLess) {
        width = gap * (widths.size() - 1) - (available == OneLess ? 1 : 0);
        for (const int each : qAsConst(widths))
            width += each;
        // Two entries of which the wider comes first: one pixel short of the first alone.
        if (QByteArray(QTest::currentDataTag()).startsWith("the first does not fit"))
            width = widths.first() - 1;
    } else if (available == First) {
        width = widths.first();
    } else if (available == FirstTwo) {
        width = qMax(widths[0] + gap + widths[1], widths.last());
    } else if (available == Tiny) {
        width = *std::min_element(widths.cbegin(), widths.cend()) - 1;
    }
    shown.plot->resize(width, 400);
    QCOMPARE(shown.plot->width(), width);
    shown.plot->setGenerateLegend(true);
    settle(shown.plot);
    const int height = lines * lineHeight(shown.plot);
    QCOMPARE(plotArea(shown.plot), QRect(0, 0, width, 400 - height));
    QCOMPARE(shown.plot->minimumHeight(), 20 + height);
}

void tst_ZrQtPlotLayout::legendNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<bool>("listed");

    QTest::newRow("name") << "alpha"
                          << "" << true;
    QTest::newRow("empty name: the object's name") << ""
                                                   << "alpha" << true;
    QTest::newRow("both empty: no entry") << ""
                                          << "" << false;
}

void tst_ZrQtPlotLayout::legendNames()
{
    QFETCH(const QString, name);
    QFETCH(const QString, objectName);
    QFETCH(const bool, listed);

    // Twice "alpha" fits exactly; the second one is a line only if the first is listed.
    ShownPlot shown(QSize(1000, 400));
    auto *first = new ProbeChannel(shown.plot, QRectF());
    first->setName(name);
    first->setObjectName(objectName);
    auto *last = new ProbeChannel(shown.plot, QRectF());
    last->setName(QStringLiteral("alpha"));
    shown.plot->setGenerateLegend(true);
    settle(shown.plot);
    const int line = lineHeight(shown.plot);
    QCOMPARE(shown.plot->height() - plotArea(shown.plot).height(), listed ? line : 0);

    const int width = entryWidth(shown.plot, QStringLiteral("alpha"));
    shown.plot->resize(2 * width + spacing(shown.plot), 400);
    settle(shown.plot);
    QCOMPARE(shown.plot->height() - plotArea(shown.plot).height(), listed ? line : 0);
    shown.plot->resize(2 * width + spacing(shown.plot) - 1, 400);
    settle(shown.plot);
    QCOMPARE(shown.plot->height() - plotArea(shown.plot).height(), listed ? 2 * line : 0);
}

void tst_ZrQtPlotLayout::legendKeepsItsSpace()
{
    ShownPlot shown(QSize(500, 400));
    for (const char *name : {"alpha", "beta", "gamma"})
        (new ProbeChannel(shown.plot, QRectF()))->setName(QString::fromLatin1(name));
    QCOMPARE(plotArea(shown.plot), QRect(0, 0, 500, 400));
    shown.plot->setGenerateLegend(true);
    const QRect with(0, 0, 500, 400 - lineHeight(shown.plot));
    QCOMPARE(plotArea(shown.plot), with);
    // On purpose: the space stays when the legend goes.
    shown.plot->setGenerateLegend(false);
    settle(shown.plot);
    QCOMPARE(plotArea(shown.plot), with);
    shown.plot->resize(450, 300);
    QCOMPARE(plotArea(shown.plot), QRect(0, 0, 450, 300 - lineHeight(shown.plot)));
    // It is given back by a layout with the legend on.
    const auto channels = shown.plot->findChildren<ZrQtBaseChannel *>();
    for (ZrQtBaseChannel *channel : channels)
        channel->setVisible(false);
    shown.plot->setGenerateLegend(true);
    QCOMPARE(plotArea(shown.plot), QRect(0, 0, 450, 300));
}

void tst_ZrQtPlotLayout::legendBelowMinimumMargin()
{
    ShownPlot shown(QSize(500, 400));
    for (const char *name : {"alpha", "beta", "gamma"})
        (new ProbeChannel(shown.plot, QRectF()))->setName(QString::fromLatin1(name));
    shown.plot->setMinMarginBottom(100);
    shown.plot->setGenerateLegend(true);
    QCOMPARE(plotArea(shown.plot), QRect(0, 0, 500, 300));

    // Axes at the bottom come on top of the legend's height, and span the whole width beside it.
    shown.plot->setMinMarginBottom(0);
    ZrQtAxis *bottom = addAxis(shown.plot, Qt::BottomEdge);
    ZrQtAxis *left = addAxis(shown.plot, Qt::LeftEdge);
    settle(shown.plot);
    verifyLayout(shown.plot, {bottom, left}, lineHeight(shown.plot));
}

void tst_ZrQtPlotLayout::layoutRequestAndResizeLayOut()
{
    ShownPlot shown(QSize(500, 400));
    auto *channel = new ProbeChannel(shown.plot, QRectF());
    channel->setGeometry(1, 2, 3, 4);
    QEvent request(QEvent::LayoutRequest);
    QApplication::sendEvent(shown.plot, &request);
    QCOMPARE(channel->geometry(), QRect(0, 0, 500, 400));
    shown.plot->resize(450, 350);
    QCOMPARE(channel->geometry(), QRect(0, 0, 450, 350));
}

QTEST_MAIN(tst_ZrQtPlotLayout)

#include "tst_zrqtplot_layout.moc"
