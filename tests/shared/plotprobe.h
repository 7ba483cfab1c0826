#ifndef PLOTPROBE_H
#define PLOTPROBE_H

#include "ZrQtPlotWidgets/zrqtbasechannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QStringList>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

/// What the tests of the plot share: a channel that does as it is told, a recorder of the plot's signals, a
/// plot in a shown window, and the plot area.

using Cosy = ZrQtPlot::CoordinateSystem;

/// A channel whose extent is set directly, and which counts how often it is painted.
class ProbeChannel : public ZrQtBaseChannel
{
public:
    /// With a parent it is selected for display from the start, as the channels of the library are. Without
    /// one it is not, since it would open a window.
    explicit ProbeChannel(QWidget *parent = nullptr)
        : ZrQtBaseChannel(nullptr)
    {
        setParent(parent);
        if (parent)
            setVisible(true);
    }

    /// A channel with an extent and systems, registered with \a plot as its child.
    ProbeChannel(ZrQtPlot *plot, const QRectF &rect, Cosy cosyForX = ZrQtPlot::COSY_0,
                 Cosy cosyForY = ZrQtPlot::COSY_0)
        : ZrQtBaseChannel(nullptr)
    {
        setCosyX(cosyForX);
        setCosyY(cosyForY);
        setParent(plot);
        setVisible(true);
        setRect(rect);
    }

    QRectF boundingRect() override { return m_rect; }

    void clear() override { setRect(QRectF()); }

    void paint(QPainter &painter) override
    {
        ++paintCount;
        painterTransform = painter.worldTransform();
        paintedSize = QSize(painter.device()->width(), painter.device()->height());
        if (fill.isValid())
            painter.fillRect(rect(), fill);
        if (line.isValid())
            painter.fillRect(QRect(0, lineRow, width(), 1), line);
    }

    /// Stores the extent and reports it, also when it is the same.
    void setRect(const QRectF &rect)
    {
        m_rect = rect;
        Q_EMIT boundingRectChanged(rect);
    }

    /// Stores the extent without a word.
    void setRectSilently(const QRectF &rect) { m_rect = rect; }

    void announceData() { Q_EMIT dataChanged(cosyX(), cosyY()); }

    QColor fill;     ///< fills the whole channel when valid
    QColor line;     ///< colour of one row of pixels when valid
    int lineRow = 0; ///< which row that is
    int paintCount = 0;
    QSize paintedSize; ///< of the device
    QTransform painterTransform;

private:
    QRectF m_rect;
};

/// Writes down what a plot signals, one line a signal, in the order of emission.
class PlotLog : public QObject
{
public:
    explicit PlotLog(ZrQtPlot *plot)
    {
        connect(plot, &ZrQtPlot::canvasChanged, this,
                [this](const QRectF &rect, Cosy cosy) { m_entries.append(canvas(rect, cosy)); });
        connect(plot, &ZrQtPlot::scalingModeChanged, this,
                [this](ZrQtPlot::ScalingMode scaling, ZrQtPlot::PlotAxis axis, Cosy cosy) {
                    m_entries.append(mode(scaling, axis, cosy));
                });
    }

    /// What came since the last call.
    QStringList take()
    {
        const QStringList result = m_entries;
        m_entries.clear();
        return result;
    }

    /// "canvas COSY_2 x 0..10 y -1..1"
    static QString canvas(const QRectF &rect, Cosy cosy)
    {
        return QStringLiteral("canvas %1 x %2..%3 y %4..%5")
            .arg(name(cosy), number(rect.left()), number(rect.right()), number(rect.top()),
                 number(rect.bottom()));
    }

    static QString canvas(double left, double right, double top, double bottom, Cosy cosy)
    {
        return canvas(QRectF(left, top, right - left, bottom - top), cosy);
    }

    /// "mode COSY_2 X Manual"
    static QString mode(ZrQtPlot::ScalingMode scaling, ZrQtPlot::PlotAxis axis, Cosy cosy)
    {
        const char *key = QMetaEnum::fromType<ZrQtPlot::ScalingMode>().valueToKey(scaling);
        return QStringLiteral("mode %1 %2 %3")
            .arg(name(cosy), QString::fromLatin1(axis == ZrQtPlot::Axis_X ? "X" : "Y"),
                 key ? QString::fromLatin1(key) : QString::number(int(scaling)));
    }

    static QString name(Cosy cosy)
    {
        const char *key = QMetaEnum::fromType<Cosy>().valueToKey(cosy);
        return key ? QString::fromLatin1(key) : QStringLiteral("COSY_?%1").arg(int(cosy));
    }

    /// Ten digits: enough to tell values apart, few enough to hide rounding. No negative zero.
    static QString number(double value)
    {
        const QString text = QString::number(value, 'g', 10);
        return text == QLatin1String("-0") ? QStringLiteral("0") : text;
    }

private:
    QStringList m_entries;
};

/// A plot inside a shown window, so that sizes, visibility and paint events are real.
class ShownPlot
{
public:
    explicit ShownPlot(const QSize &size = QSize(400, 300), ZrQtPlot *own = nullptr)
        : plot(own ? own : new ZrQtPlot)
    {
        plot->setParent(&window);
        window.resize(1200, 900);
        plot->resize(size);
        plot->show();
        window.show();
        exposed = QTest::qWaitForWindowExposed(&window);
        QApplication::processEvents();
    }

    QWidget window;
    ZrQtPlot *plot;
    bool exposed = false;
};

/// The transparent layer above the channels; it covers exactly the plot area.
inline QWidget *overlayOf(const ZrQtPlot *plot)
{
    return plot->findChild<QWidget *>(QStringLiteral("ZrQtPlot::m_overlay"), Qt::FindDirectChildrenOnly);
}

inline QRect plotArea(const ZrQtPlot *plot)
{
    const QWidget *overlay = overlayOf(plot);
    return overlay ? overlay->geometry() : QRect();
}

/// Lays the plot out until the sizes of the axes, which depend on the layout, no longer change.
inline void settle(ZrQtPlot *plot)
{
    for (int i = 0; i < 4; ++i) {
        QEvent request(QEvent::LayoutRequest);
        QApplication::sendEvent(plot, &request);
        QApplication::processEvents();
    }
}

/// The plot alone, painted into a picture of its size on a green ground: without axes, channels and legend.
inline QImage paintedAlone(ZrQtPlot *plot)
{
    QImage image(plot->size().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::green);
    QPainter painter(&image);
    plot->paint(&painter);
    return image;
}

/// Waits and lets every timer that is due fire; QTest::qWait() may end with a sleep.
inline void waitFor(int milliseconds)
{
    QTest::qWait(milliseconds);
    QApplication::processEvents();
}

/// The sixteen systems in their order.
inline QVector<Cosy> allSystems()
{
    QVector<Cosy> systems;
    for (int i = 0; i < 16; ++i)
        systems.append(Cosy(1 << i));
    return systems;
}

#endif // PLOTPROBE_H
