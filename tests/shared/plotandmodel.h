#ifndef PLOTANDMODEL_H
#define PLOTANDMODEL_H

#include "shared/plotprobe.h"
#include "shared/scalingmodel.h"

#include <QtCore/QMap>
#include <QtCore/QRandomGenerator>

/// The last canvas of each system, and all modes: what remains when the order of the systems is free.
inline QStringList lastOfEachSystem(const QStringList &signalled)
{
    QMap<QString, QString> canvases;
    QStringList result;
    for (const QString &entry : signalled) {
        if (entry.startsWith(QLatin1String("canvas")))
            canvases.insert(entry.section(QLatin1Char(' '), 1, 1), entry);
        else
            result << entry;
    }
    result << canvases.values();
    result.sort();
    return result;
}

/// A plot and a model of it that are put through the same random operations.
class PlotAndModel : public ShownPlot
{
public:
    explicit PlotAndModel(quint32 seed)
        : ShownPlot(QSize(256, 128))
        , log(plot)
        , m_random(seed)
    {
        model.size = QSize(256, 128);
        for (int d = 0; d < 2; ++d) {
            for (int side = 0; side < 2; ++side)
                setMargin(d, side, 0.5);
        }
    }

    /// One random operation on both; returns what it was.
    QString step();
    /// What differs, or nothing.
    QString difference();
    void setMargin(int d, int side, double value);
    int addChannel();

    /// A random operation on a channel; 9 is a new extent.
    QString stepChannel(int kind);

    ScalingModel model;
    PlotLog log;
    QMap<int, ProbeChannel *> channels;
    bool orderMatters = true; ///< whether the last operation has one possible order of signals

private:
    int below(int bound) { return int(m_random.bounded(bound)); }
    bool chance(int percent) { return below(100) < percent; }
    /// A multiple of a quarter between -64 and 64.
    double number() { return below(513) / 4.0 - 64; }
    int system() { return chance(50) ? 1 : 1 << below(3); }
    int mode() { return 1 << below(5); }
    QRectF rectangle();
    QRectF near(const QRectF &rect);
    int anyChannel();

    QString stepCanvas(int kind);
    QString stepProperty(int kind);

    static constexpr int hugeInterval = 1000000;

    QWidget m_parking; // hidden parent of channels that are not registered yet
    QRandomGenerator m_random;
    int m_nextId = 0;
};

inline QRectF PlotAndModel::rectangle()
{
    if (chance(6))
        return QRectF(number(), number(), 0, chance(50) ? 0 : below(200) / 4.0);
    if (chance(6))
        return QRectF(number(), number(), below(200) / 4.0, 0);
    return QRectF(number(), number(), (1 + below(400)) / 4.0, (1 + below(400)) / 4.0);
}

/// A rectangle whose edges differ little, or not at all, from those of \a rect.
inline QRectF PlotAndModel::near(const QRectF &rect)
{
    const auto shift = [this] { return chance(50) ? 0.0 : (below(9) - 4) / 4.0; };
    return QRectF(QPointF(rect.left() + shift(), rect.top() + shift()),
                  QPointF(rect.right() + shift(), rect.bottom() + shift()));
}

inline int PlotAndModel::anyChannel()
{
    const QList<int> ids = channels.keys();
    return ids.isEmpty() ? -1 : ids.at(below(ids.size()));
}

inline void PlotAndModel::setMargin(int d, int side, double value)
{
    using Setter = void (ZrQtPlot::*)(double);
    static const Setter setters[2][2] = {{&ZrQtPlot::setCanvasMarginLeft, &ZrQtPlot::setCanvasMarginRight},
                                         {&ZrQtPlot::setCanvasMarginBottom, &ZrQtPlot::setCanvasMarginTop}};
    const Setter setter = setters[d][side];
    (plot->*setter)(value);
    model.setMargin(value, d, side);
}

inline int PlotAndModel::addChannel()
{
    const int id = m_nextId++;
    auto *channel = new ProbeChannel(&m_parking);
    const bool selected = chance(50);
    channel->setVisible(selected);
    const int x = system();
    const int y = chance(70) ? x : system();
    channel->setCosyX(Cosy(x));
    channel->setCosyY(Cosy(y));
    const QRectF rect = rectangle();
    channel->setRectSilently(rect);
    channels.insert(id, channel);
    ModelledChannel &twin = model.channels[id];
    twin.system[0] = x;
    twin.system[1] = y;
    twin.rect = rect;
    twin.visible = false;
    twin.selected = selected;
    plot->addChannel(channel);
    model.add(id);
    channel->setVisible(true);
    model.setVisible(id, true);
    return id;
}

inline QString PlotAndModel::stepChannel(int kind)
{
    const int id = anyChannel();
    if (id < 0 || (kind == 0 && channels.size() < 6)) {
        return QStringLiteral("add channel %1").arg(addChannel());
    }
    ProbeChannel *channel = channels.value(id);
    switch (kind) {
    case 0:
        plot->removeChannel(channel);
        delete channel;
        channels.remove(id);
        model.remove(id);
        return QStringLiteral("remove channel %1").arg(id);
    case 1:
        delete channels.take(id);
        model.remove(id);
        return QStringLiteral("delete channel %1").arg(id);
    case 2: {
        const bool visible = !channel->isSelectedForDisplay() || chance(10);
        channel->setVisible(visible);
        model.setVisible(id, visible);
        return QStringLiteral("visible %1 %2").arg(id).arg(visible);
    }
    case 3: {
        const bool use = chance(70);
        channel->setUseForScaling(use);
        model.setForScaling(id, use);
        return QStringLiteral("use for scaling %1 %2").arg(id).arg(use);
    }
    case 4: {
        const int d = below(2);
        const int cosy = system();
        if (d == 0)
            channel->setCosyX(Cosy(cosy));
        else
            channel->setCosyY(Cosy(cosy));
        model.setSystem(id, d, cosy);
        return QStringLiteral("system %1 %2 %3").arg(id).arg(d).arg(cosy);
    }
    default: {
        const ModelledSystem &own = model.systems[channel->cosyX()];
        QRectF rect = rectangle();
        if (chance(40))
            rect = near(channel->boundingRect());
        else if (chance(30))
            rect = near(QRectF(QPointF(own.direction[0].extentLow, own.direction[1].extentLow),
                               QPointF(own.direction[0].extentHigh, own.direction[1].extentHigh)));
        channel->setRect(rect);
        model.setRect(id, rect);
        return QStringLiteral("rect %1 %2").arg(id).arg(PlotLog::canvas(rect, ZrQtPlot::COSY_0));
    }
    }
}

inline QString PlotAndModel::stepCanvas(int kind)
{
    const int cosy = system();
    const ModelledSystem own = model.systems[cosy];
    switch (kind) {
    case 0: {
        QRectF rect = rectangle();
        if (chance(30))
            rect = near(own.canvas());
        else if (chance(40))
            rect = near(QRectF(QPointF(own.direction[0].extentLow, own.direction[1].extentLow),
                               QPointF(own.direction[0].extentHigh, own.direction[1].extentHigh)));
        plot->setCanvas(rect, Cosy(cosy));
        model.setCanvas(rect, cosy);
        return QStringLiteral("set ") + PlotLog::canvas(rect, Cosy(cosy));
    }
    case 1: {
        using Setter = void (ZrQtPlot::*)(double, Cosy);
        const Setter setters[]
            = {&ZrQtPlot::setMinX, &ZrQtPlot::setMaxX, &ZrQtPlot::setMinY, &ZrQtPlot::setMaxY};
        const int edge = below(4);
        const ModelledDirection &direction = own.direction[edge / 2];
        const double value
            = edge % 2 ? direction.low + (1 + below(200)) / 4.0 : direction.high - (1 + below(200)) / 4.0;
        (plot->*setters[edge])(value, Cosy(cosy));
        model.setEdge(value, edge / 2, edge % 2 == 1, cosy);
        return QStringLiteral("edge %1 of %2 to %3").arg(edge).arg(cosy).arg(value);
    }
    case 2: {
        const int to = mode();
        plot->setScaling(ZrQtPlot::ScalingMode(to), Cosy(cosy));
        model.setMode(to, 0, cosy, true);
        model.setMode(to, 1, cosy, true);
        return QStringLiteral("scaling of %1 to %2").arg(cosy).arg(to);
    }
    case 3: {
        plot->setInitialCanvasWidth(8);
        model.setInitialWidth(8);
        plot->setCanvasToInitialWidth(Cosy(cosy));
        model.useInitialWidth(cosy);
        return QStringLiteral("initial width of %1").arg(cosy);
    }
    default: {
        const int to = mode();
        const int d = below(2);
        const bool applied = chance(60);
        if (d == 0)
            plot->setScalingX(ZrQtPlot::ScalingMode(to), Cosy(cosy), applied);
        else
            plot->setScalingY(ZrQtPlot::ScalingMode(to), Cosy(cosy), applied);
        model.setMode(to, d, cosy, applied);
        return QStringLiteral("scaling %1 of %2 to %3, applied: %4").arg(d).arg(cosy).arg(to).arg(applied);
    }
    }
}

inline QString PlotAndModel::stepProperty(int kind)
{
    const double tolerances[] = {0, 0, 0.25, 0.5, 1};
    switch (kind) {
    case 0: {
        const double value = tolerances[below(5)];
        plot->setKeepOldBoundingRectWidthTolerance(value);
        model.tolerance[0] = value;
        return QStringLiteral("width tolerance %1").arg(value);
    }
    case 1: {
        const double value = tolerances[below(5)];
        plot->setKeepOldBoundingRectHeightTolerance(value);
        model.tolerance[1] = value;
        return QStringLiteral("height tolerance %1").arg(value);
    }
    case 2: {
        // Every sum of two of these divides exactly; beyond 1 the canvas is turned around.
        const double margins[] = {0, 0.5, 1.5};
        const int d = below(2);
        const int side = below(2);
        const double value = margins[below(chance(90) ? 2 : 3)];
        setMargin(d, side, value);
        return QStringLiteral("margin %1 %2 %3").arg(d).arg(side).arg(value);
    }
    case 3: {
        const int to = mode();
        const int d = below(2);
        if (d == 0)
            plot->setDefaultScalingX(ZrQtPlot::ScalingMode(to));
        else
            plot->setDefaultScalingY(ZrQtPlot::ScalingMode(to));
        model.setDefaultMode(to, d);
        return QStringLiteral("default %1 to %2").arg(d).arg(to);
    }
    case 4: {
        const QRectF rect = rectangle();
        plot->setInitialCanvas(rect);
        model.setInitialCanvas(rect);
        return QStringLiteral("initial ") + PlotLog::canvas(rect, ZrQtPlot::COSY_0);
    }
    case 5: {
        const bool use = chance(50);
        orderMatters = false;
        plot->setUseEmptyBoundingRectsForAutoFitScaling(use);
        model.setUseEmpty(use);
        return QStringLiteral("use empty %1").arg(use);
    }
    case 6: {
        const int interval = chance(50) ? -1 : hugeInterval;
        plot->setBoundingRectReduceUpdateInterval(interval);
        model.setInterval(interval);
        return QStringLiteral("interval %1").arg(interval);
    }
    case 7: {
        const QSize to(64 << below(4), 64 << below(3));
        plot->resize(to);
        model.resize(to);
        return QStringLiteral("resize %1 %2").arg(to.width()).arg(to.height());
    }
    default: {
        const bool keep = chance(50);
        plot->setKeepAspectRatio(keep);
        model.setKeepAspect(keep);
        return QStringLiteral("keep aspect %1").arg(keep);
    }
    }
}

inline QString PlotAndModel::step()
{
    orderMatters = true;
    const int kind = below(100);
    if (kind < 60)
        return stepChannel(kind < 40 ? 9 : below(5));
    return kind < 85 ? stepCanvas(below(5)) : stepProperty(below(9));
}

inline QString PlotAndModel::difference()
{
    const QStringList got = log.take();
    const QStringList wanted = model.signalled;
    model.signalled.clear();
    if (orderMatters ? got != wanted : lastOfEachSystem(got) != lastOfEachSystem(wanted)) {
        return QStringLiteral("signals\n  got:\n    %1\n  wanted:\n    %2")
            .arg(got.join(QStringLiteral("\n    ")), wanted.join(QStringLiteral("\n    ")));
    }
    for (const Cosy cosy : allSystems()) {
        const ModelledSystem &twin = model.systems[cosy];
        const QString wantedCanvas = PlotLog::canvas(twin.canvas(), cosy);
        const QString gotCanvas = PlotLog::canvas(plot->canvas(cosy), cosy);
        if (gotCanvas != wantedCanvas)
            return QStringLiteral("canvas: got %1, wanted %2").arg(gotCanvas, wantedCanvas);
        const int gotModes[] = {plot->scalingX(cosy), plot->scalingY(cosy)};
        for (int d = 0; d < 2; ++d) {
            if (gotModes[d] != twin.direction[d].mode) {
                return QStringLiteral("mode %1 of %2: got %3, wanted %4")
                    .arg(d)
                    .arg(cosy)
                    .arg(gotModes[d])
                    .arg(twin.direction[d].mode);
            }
        }
    }
    for (auto it = channels.cbegin(); it != channels.cend(); ++it) {
        const QString wantedCanvas = PlotLog::canvas(model.channels[it.key()].canvas, ZrQtPlot::COSY_0);
        const QString gotCanvas = PlotLog::canvas(it.value()->canvas(), ZrQtPlot::COSY_0);
        if (gotCanvas != wantedCanvas) {
            return QStringLiteral("canvas of channel %1: got %2, wanted %3")
                .arg(it.key())
                .arg(gotCanvas, wantedCanvas);
        }
    }
    return QString();
}

#endif // PLOTANDMODEL_H
