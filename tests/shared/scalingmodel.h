#ifndef SCALINGMODEL_H
#define SCALINGMODEL_H

#include "shared/plotprobe.h"

#include <QtCore/QMap>

#include <cmath>
#include <limits>

/// One direction of one coordinate system.
struct ModelledDirection
{
    double extentLow = 0;
    double extentHigh = 0;
    double lastLow = 0;
    double lastHigh = 0;
    double low = 0; // of the canvas
    double high = 10;
    int mode = ZrQtPlot::AutoFit;
    int previous = ZrQtPlot::AutoFit;
    int lowChannel = -1;
    int highChannel = -1;

    double size() const { return high - low; }
};

struct ModelledSystem
{
    ModelledDirection direction[2];
    QRectF announced = QRectF(0, 0, 10, 10);

    QRectF canvas() const
    {
        return QRectF(direction[0].low, direction[1].low, direction[0].size(), direction[1].size());
    }
};

struct ModelledChannel
{
    int system[2] = {1, 1};
    QRectF rect;
    bool visible = true;
    bool selected = false;
    bool forScaling = true;
    bool registered = false;
    QRectF canvas;

    double low(int d) const { return d == 0 ? rect.left() : rect.top(); }
    double high(int d) const { return d == 0 ? rect.right() : rect.bottom(); }
    double size(int d) const { return d == 0 ? rect.width() : rect.height(); }
};

/// What a plot without axes must do to its canvases, written down as plainly as possible and a second time.
class ScalingModel
{
public:
    QMap<int, ModelledSystem> systems;
    QMap<int, ModelledChannel> channels;
    QVector<int> order; // of registration
    QStringList signalled;
    QSize size;
    double margin[2][2] = {{0.02, 0.02}, {0.02, 0.02}}; // x: left, right; y: bottom, top
    double tolerance[2] = {0, 0};
    int interval = -1;
    bool timerRunning = false;
    bool keepAspect = false;
    bool useEmpty = false;
    QRectF initial = QRectF(0, 0, 10, 10);
    int defaultMode[2] = {ZrQtPlot::AutoFit, ZrQtPlot::AutoFit};
    double initialWidth = -1;
    bool ambiguous = false; ///< a decision hung on the last bit of a division

    ScalingModel()
    {
        for (int i = 0; i < 16; ++i)
            systems.insert(1 << i, ModelledSystem());
    }

    QVector<int> systemsInUse() const
    {
        QVector<int> used;
        for (const int id : order) {
            for (const int cosy : channels[id].system) {
                if (!used.contains(cosy))
                    used.append(cosy);
            }
        }
        return used;
    }

    /// For the message of a failure.
    QString description() const
    {
        QString text;
        for (const int cosy : systemsInUse()) {
            for (int d = 0; d < 2; ++d) {
                const ModelledDirection &own = systems[cosy].direction[d];
                text += QStringLiteral(
                            "  system %1.%2: extent %3..%4 canvas %5..%6 mode %7 (%8) channels %9\n")
                            .arg(cosy)
                            .arg(d)
                            .arg(own.extentLow)
                            .arg(own.extentHigh)
                            .arg(own.low)
                            .arg(own.high)
                            .arg(own.mode)
                            .arg(own.previous)
                            .arg(QStringLiteral("%1, %2").arg(own.lowChannel).arg(own.highChannel));
            }
        }
        for (const int id : order) {
            const ModelledChannel &channel = channels[id];
            text += QStringLiteral(
                        "  channel %1: systems %2, %3 x %4..%5 y %6..%7 selected %8 for scaling %9\n")
                        .arg(id)
                        .arg(channel.system[0])
                        .arg(channel.system[1])
                        .arg(channel.low(0))
                        .arg(channel.high(0))
                        .arg(channel.low(1))
                        .arg(channel.high(1))
                        .arg(channel.selected)
                        .arg(channel.forScaling);
        }
        text += QStringLiteral("  tolerances %1, %2 interval %3 empty %4 aspect %5 size %6 x %7\n")
                    .arg(tolerance[0])
                    .arg(tolerance[1])
                    .arg(interval)
                    .arg(useEmpty)
                    .arg(keepAspect)
                    .arg(size.width())
                    .arg(size.height());
        return text;
    }

    // ---- what the application does ----

    void setCanvas(const QRectF &rect, int cosy)
    {
        bool changed = false;
        for (int d = 0; d < 2; ++d) {
            const double low = d == 0 ? rect.left() : rect.top();
            const double width = d == 0 ? rect.width() : rect.height();
            ModelledDirection &own = systems[cosy].direction[d];
            if (!(width > 0) || (own.low == low && own.size() == width))
                continue;
            changed = true;
            if (own.mode != ZrQtPlot::Manual) {
                own.previous = own.mode;
                own.mode = ZrQtPlot::Manual;
                signalMode(ZrQtPlot::Manual, d, cosy);
            }
            own.low = low;
            own.high = low + width;
            apply(cosy, d);
        }
        if (changed)
            announceUsed();
    }

    void setEdge(double value, int d, bool isHigh, int cosy)
    {
        setMode(ZrQtPlot::Manual, d, cosy, true);
        (isHigh ? systems[cosy].direction[d].high : systems[cosy].direction[d].low) = value;
        announce(cosy);
    }

    void setMode(int mode, int d, int cosy, bool applied)
    {
        ModelledDirection &own = systems[cosy].direction[d];
        own.previous = own.mode;
        own.mode = mode;
        if (applied) {
            apply(cosy, d);
            announce(cosy);
        }
        signalMode(mode, d, cosy);
    }

    void setDefaultMode(int mode, int d)
    {
        if (defaultMode[d] == mode)
            return;
        defaultMode[d] = mode;
        for (int i = 0; i < 16; ++i) {
            systems[1 << i].direction[d].previous = mode;
            systems[1 << i].direction[d].mode = mode;
            signalMode(mode, d, 1 << i);
        }
    }

    void setInitialCanvas(const QRectF &rect)
    {
        if (rect == initial)
            return;
        initial = rect;
        for (int i = 0; i < 16; ++i) {
            for (int d = 0; d < 2; ++d) {
                ModelledDirection &own = systems[1 << i].direction[d];
                own.low = d == 0 ? rect.left() : rect.top();
                own.high = d == 0 ? rect.right() : rect.bottom();
                own.lowChannel = -1;
                own.highChannel = -1;
            }
            send(rect, 1 << i);
        }
    }

    void setInitialWidth(double width)
    {
        if (initialWidth < 0)
            initialWidth = width;
    }

    void useInitialWidth(int cosy)
    {
        if (initialWidth > 0)
            systems[cosy].direction[0].high = systems[cosy].direction[0].low + initialWidth;
    }

    void setKeepAspect(bool keep)
    {
        if (keepAspect == keep)
            return;
        keepAspect = keep;
        announceUsed();
    }

    void setMargin(double value, int d, int side)
    {
        if (margin[d][side] == value)
            return;
        margin[d][side] = value;
        for (const int cosy : systemsInUse())
            refit(cosy, d);
    }

    void setUseEmpty(bool use)
    {
        if (useEmpty == use)
            return;
        useEmpty = use;
        refitUsed();
    }

    void setInterval(int milliseconds)
    {
        interval = milliseconds;
        if (interval < 1)
            timerRunning = false;
    }

    void resize(const QSize &to)
    {
        if (size == to)
            return;
        size = to;
        announceUsed();
        if (!keepAspect)
            return;
        for (const int id : order) {
            const ModelledChannel channel = channels[id];
            announce(channel.system[0]);
            if (channel.system[1] != channel.system[0])
                announce(channel.system[1]);
        }
    }

    void fireTimer()
    {
        timerRunning = false;
        refitUsed();
    }

    // ---- what channels do ----

    void add(int id)
    {
        ModelledChannel &channel = channels[id];
        if (channel.registered)
            return;
        channel.registered = true;
        order.append(id);
        deliver(id, systems[channel.system[0]].announced, channel.system[0]);
        deliver(id, systems[channel.system[1]].announced, channel.system[1]);
        refit(channel.system[0], 0);
        refit(channel.system[1], 1);
    }

    void remove(int id)
    {
        if (!channels[id].registered)
            return;
        channels[id].registered = false;
        order.removeAll(id);
        release(id);
        if (systems[1].direction[0].mode == ZrQtPlot::AutoFit
            || systems[1].direction[1].mode == ZrQtPlot::AutoFit)
            return;
        // Nothing brings the previous mode back here.
        for (int d = 0; d < 2; ++d) {
            ModelledDirection &own = systems[1].direction[d];
            own.previous = own.mode;
            own.mode = ZrQtPlot::AutoFit;
            fit(1, d);
            announce(1);
            signalMode(ZrQtPlot::AutoFit, d, 1);
        }
    }

    void setRect(int id, const QRectF &rect)
    {
        channels[id].rect = rect;
        track(id, false);
    }

    void setVisible(int id, bool visible)
    {
        channels[id].visible = visible;
        channels[id].selected = visible;
        if (!visible)
            track(id, true);
        track(id, false);
    }

    void setForScaling(int id, bool use)
    {
        channels[id].forScaling = use;
        track(id, false);
    }

    void setSystem(int id, int d, int cosy)
    {
        ModelledChannel &channel = channels[id];
        if (channel.system[d] == cosy)
            return;
        channel.system[d] = cosy;
        if (!channel.registered)
            return;
        release(id);
        if (channel.visible)
            track(id, false);
        deliver(id, systems[cosy].announced, cosy);
    }

private:
    static constexpr double maximum = std::numeric_limits<double>::max();

    void signalMode(int mode, int d, int cosy)
    {
        signalled << PlotLog::mode(ZrQtPlot::ScalingMode(mode), d == 0 ? ZrQtPlot::Axis_X : ZrQtPlot::Axis_Y,
                                   Cosy(cosy));
    }

    void send(const QRectF &rect, int cosy)
    {
        systems[cosy].announced = rect;
        signalled << PlotLog::canvas(rect, Cosy(cosy));
        for (const int id : qAsConst(order))
            deliver(id, rect, cosy);
    }

    void deliver(int id, const QRectF &rect, int cosy)
    {
        ModelledChannel &channel = channels[id];
        if (channel.system[0] == cosy)
            channel.canvas = QRectF(rect.left(), channel.canvas.top(), rect.width(), channel.canvas.height());
        if (channel.system[1] == cosy)
            channel.canvas = QRectF(channel.canvas.left(), rect.top(), channel.canvas.width(), rect.height());
    }

    void announce(int cosy) { send(keepAspect ? adjusted(systems[cosy]) : systems[cosy].canvas(), cosy); }

    void announceUsed()
    {
        for (const int cosy : systemsInUse())
            announce(cosy);
    }

    QRectF adjusted(const ModelledSystem &system) const
    {
        const QRectF canvas = system.canvas();
        if (!(canvas.width() > 0 && canvas.height() > 0))
            return canvas;
        const double own = canvas.width() / canvas.height();
        const double plot = double(size.width()) / size.height();
        if (qMin(own, plot) >= std::abs(own - plot) * 1e12)
            return canvas;
        double extent[2] = {canvas.width(), canvas.height()};
        if (own > plot)
            extent[1] = canvas.width() / plot;
        else
            extent[0] = canvas.height() * plot;
        double low[2] = {canvas.left(), canvas.top()};
        for (int d = 0; d < 2; ++d) {
            const ModelledDirection &direction = system.direction[d];
            if (direction.mode == ZrQtPlot::KeepAtHead)
                extent[d] = direction.high - low[d];
            else if (direction.mode != ZrQtPlot::Custom)
                low[d] = (direction.low + direction.high) / 2 - extent[d] / 2;
        }
        return QRectF(low[0], low[1], extent[0], extent[1]);
    }

    void apply(int cosy, int d)
    {
        maybeReturn(cosy, d);
        fit(cosy, d);
    }

    void fit(int cosy, int d)
    {
        ModelledDirection &own = systems[cosy].direction[d];
        const double data = own.extentHigh - own.extentLow;
        const double canvas = own.size();
        if (own.mode == ZrQtPlot::AutoFit) {
            const double sum = margin[d][0] + margin[d][1];
            const double total = 1 - sum != 0 ? data / (1 - sum) : data;
            const double free = total - data;
            own.low = own.extentLow - (sum != 0 ? free * (margin[d][0] / sum) : 0);
            own.high = own.extentHigh + (sum != 0 ? free * (margin[d][1] / sum) : 0);
        } else if (own.mode == ZrQtPlot::Centered) {
            own.low = (own.extentLow + own.extentHigh) / 2 - canvas / 2;
            own.high = own.low + canvas;
        } else if (own.mode == ZrQtPlot::KeepAtHead) {
            own.low = canvas > data ? own.extentLow : own.extentHigh - canvas;
            own.high = own.low + canvas;
        }
    }

    void maybeReturn(int cosy, int d)
    {
        ModelledDirection &own = systems[cosy].direction[d];
        if (own.mode == own.previous)
            return;
        bool comesBack = false;
        if (own.previous == ZrQtPlot::AutoFit && own.size() != 0) {
            const double low = size.width() * std::abs(own.extentLow - own.low) / own.size();
            const double high = size.width() * std::abs(own.extentHigh - own.high) / own.size();
            comesBack = low <= 10 && high <= 10;
            ambiguous = ambiguous || std::abs(low - 10) < 1e-9 || std::abs(high - 10) < 1e-9;
        } else if (own.previous == ZrQtPlot::KeepAtHead) {
            comesBack = own.high >= own.lastHigh && own.extentHigh >= own.high;
        }
        if (comesBack)
            setMode(own.previous, d, cosy, false);
    }

    void track(int id, bool forced)
    {
        const ModelledChannel channel = channels[id];
        if (!channel.registered || !channel.forScaling)
            return;
        bool inside[2] = {false, false};
        bool changed[2] = {false, false};
        for (int d = 0; d < 2; ++d) {
            const int cosy = channel.system[d];
            ModelledDirection &own = systems[cosy].direction[d];
            if (!useEmpty && !(channel.size(d) > 0)) {
                if (own.lowChannel == id || own.highChannel == id)
                    refit(cosy, d);
                continue;
            }
            const double reach = tolerance[d] * (own.extentHigh - own.extentLow) / 2;
            const bool lowKept = std::abs(channel.low(d) - own.extentLow) <= reach;
            const bool highKept = std::abs(channel.high(d) - own.extentHigh) <= reach;
            const double from = own.extentLow - reach;
            const double to = own.extentHigh + reach;
            const auto within = [from, to](double value) { return value >= from && value <= to; };
            const bool kept = lowKept && highKept;
            inside[d] = !kept && within(channel.low(d)) && within(channel.high(d));
            changed[d] = channel.low(d) != own.extentLow || channel.size(d) != own.extentHigh - own.extentLow;
            const bool wanted = !kept && changed[d] && channel.selected && (!inside[d] || interval < 1);
            if (forced || wanted)
                update(id, cosy, d, lowKept, highKept, forced);
        }
        if (interval < 1)
            return;
        if ((inside[1] && (changed[1] || (inside[0] && changed[0]))) || (inside[0] && changed[0]))
            timerRunning = true;
        else if (!inside[0])
            timerRunning = false;
    }

    void update(int id, int cosy, int d, bool lowKept, bool highKept, bool forced)
    {
        const ModelledChannel channel = channels[id];
        if (!forced && !((useEmpty || channel.size(d) > 0) && channel.selected && channel.forScaling))
            return;
        ModelledDirection &own = systems[cosy].direction[d];
        double low = own.lowChannel < 0 ? maximum : own.extentLow;
        double high = own.highChannel < 0 ? -maximum : own.extentHigh;
        if (!lowKept || low == maximum)
            low = qMin(low, channel.low(d));
        if (!highKept || high == -maximum)
            high = qMax(high, channel.high(d));
        if (channel.low(d) == low)
            own.lowChannel = id;
        if (channel.high(d) == high)
            own.highChannel = id;
        const bool lowGone = own.lowChannel == id && ((low < channel.low(d) && !lowKept) || forced);
        const bool highGone = own.highChannel == id && ((channel.high(d) < high && !highKept) || forced);
        if (lowGone || highGone) {
            refit(cosy, d);
            return;
        }
        if ((low != own.extentLow && !lowKept) || (high != own.extentHigh && !highKept))
            write(cosy, d, low, high);
    }

    void refit(int cosy, int d)
    {
        double low = maximum;
        double high = -maximum;
        bool any = false;
        ModelledDirection &own = systems[cosy].direction[d];
        for (const int id : qAsConst(order)) {
            const ModelledChannel &channel = channels[id];
            if (channel.system[d] != cosy || !channel.selected || !channel.forScaling
                || !(useEmpty || channel.size(d) > 0))
                continue;
            any = true;
            low = qMin(low, channel.low(d));
            if (channel.low(d) == low)
                own.lowChannel = id;
            high = qMax(high, channel.high(d));
            if (channel.high(d) == high)
                own.highChannel = id;
        }
        if (!any) {
            for (ModelledDirection &each : systems[cosy].direction)
                each.lowChannel = each.highChannel = -1;
        } else if (low != own.extentLow || high != own.extentHigh) {
            write(cosy, d, low, high);
        }
    }

    void write(int cosy, int d, double low, double high)
    {
        if (useEmpty && low == high) {
            low -= 0.5;
            high += 0.5;
        }
        ModelledDirection &own = systems[cosy].direction[d];
        own.extentLow = low;
        own.extentHigh = high;
        apply(cosy, d);
        own.lastLow = low;
        own.lastHigh = high;
        announce(cosy);
    }

    void release(int id)
    {
        for (int i = 0; i < 16; ++i) {
            for (int d = 0; d < 2; ++d) {
                ModelledDirection &own = systems[1 << i].direction[d];
                if (own.lowChannel != id && own.highChannel != id)
                    continue;
                own.lowChannel = own.lowChannel == id ? -1 : own.lowChannel;
                own.highChannel = own.highChannel == id ? -1 : own.highChannel;
                refit(1 << i, d);
            }
        }
    }

    /// All of x before all of y: a direction that nobody uses takes the edge channels of the other one with
    /// it, so the order shows.
    void refitUsed()
    {
        for (int d = 0; d < 2; ++d) {
            QVector<int> done;
            for (const int id : qAsConst(order)) {
                const int cosy = channels[id].system[d];
                if (!done.contains(cosy))
                    refit(cosy, d);
                done.append(cosy);
            }
        }
    }
};

#endif // SCALINGMODEL_H
