#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "driver.h"

namespace {

bool isNear(double a, double b)
{
    return qAbs(a - b) < 1.0; // millisecond
}

} // namespace

QString judge(QWidget &window)
{
    auto *plot = qobject_cast<ZrQtPlot *>(&window);
    auto *channel = window.findChild<ZrQtBufferedChannel *>();
    const auto canvas = [plot] { return plot->canvas(ZrQtPlot::COSY_0); };
    const auto follows = [&] { return isNear(canvas().right(), channel->boundingRect().right()); };

    const QRectF atFirst = canvas();
    if (!QTest::qWaitFor([&] { return canvas().right() > atFirst.right() + 200.0; }))
        return QStringLiteral("nothing new is shown");
    if (!follows() || !isNear(canvas().width(), atFirst.width()) || canvas().height() != atFirst.height())
        return QStringLiteral("the plot does not follow the newest sample, or changes its size");

    const QPoint middle = plot->rect().center();
    drag(plot, middle, middle + QPoint(100, 0));
    const QRectF held = canvas();
    const double newest = channel->boundingRect().right();
    if (!QTest::qWaitFor([&] { return channel->boundingRect().right() > newest + 200.0; })
        || canvas() != held)
        return QStringLiteral("the plot does not stand still while the user looks back");

    drag(plot, middle, middle - QPoint(130, 0));
    if (!QTest::qWaitFor(follows))
        return QStringLiteral("the plot does not follow again");
    return QString();
}
