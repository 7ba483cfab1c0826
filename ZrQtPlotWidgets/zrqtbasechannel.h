#ifndef ZRQTBASECHANNEL_H
#define ZRQTBASECHANNEL_H

#include "zrqtplot.h"
#include "zrqtplotwidgets_global.h"

#include <QtCore/QPoint>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QScopedPointer>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <QtWidgets/QWidget>

class QPainter;
class ZrQtBaseChannelPrivate;
class ZrQtPlotPrivate;

/// The base of every layer of data that a ZrQtPlot shows.
///
/// A channel is a widget that the plot places over its plot area; its width and height are the pixels onto
/// which its canvas, the visible range of data, is mapped. It paints itself, unless the plot paints its
/// channels (ZrQtPlot::setControlChannelUpdatesViaPlot()).
///
/// x values belong to the coordinate system cosyX(), y values to cosyY(); larger y values are higher on the
/// screen unless the y axis is inverted.
///
/// \code
/// class Threshold : public ZrQtBaseChannel
/// {
/// public:
///     explicit Threshold(QWidget *parent = nullptr) { setParent(parent); setVisible(true); }
///     QRectF boundingRect() override { return QRectF(0, 5, 10, 0); }
///     void paint(QPainter &painter) override { painter.drawLine(mapToPixel({0, 5}), mapToPixel({10, 5})); }
///     void clear() override {}
/// };
/// \endcode
///
/// **Ownership.** The parent, usually the plot, owns the channel as with every widget. A channel may be
/// deleted at any time.
///
/// **Thread.** Only to be used in the GUI thread.
class ZRQTPLOTWIDGETS_EXPORT ZrQtBaseChannel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name WRITE setName)
    Q_PROPERTY(QRectF boundingRect READ boundingRect)
    Q_PROPERTY(QRectF canvas READ canvas WRITE setCanvas NOTIFY canvasChanged)
    Q_PROPERTY(ZrQtPlot::CoordinateSystem cosyX READ cosyX WRITE setCosyX NOTIFY cosyXChanged)
    Q_PROPERTY(ZrQtPlot::CoordinateSystem cosyY READ cosyY WRITE setCosyY NOTIFY cosyYChanged)
    Q_PROPERTY(Qt::PenStyle lineStyle READ lineStyle WRITE setLineStyle)
    Q_PROPERTY(PointStyle pointStyle READ pointStyle WRITE setPointStyle)
    Q_PROPERTY(int lineWidth READ lineWidth WRITE setLineWidth)
    Q_PROPERTY(int pointSize READ pointSize WRITE setPointSize)
    Q_PROPERTY(QColor pointColor READ pointColor WRITE setPointColor)
    Q_PROPERTY(QColor lineColor READ lineColor WRITE setLineColor)
    Q_PROPERTY(QColor fillColor READ fillColor WRITE setFillColor)
    Q_PROPERTY(Qt::BrushStyle fillStyle READ fillStyle WRITE setFillStyle)
    Q_PROPERTY(bool antialiasing READ antialiasing WRITE setAntialiasing NOTIFY antialiasingChanged)
    Q_PROPERTY(bool useForScaling READ useForScaling WRITE setUseForScaling)
    Q_PROPERTY(bool showInLegend READ showInLegend WRITE setShowInLegend)

public:
    /// The shape of the marker that is drawn on every point.
    enum PointStyle : int {
        PointStyle_None = 0,
        PointStyle_Rectangle = 1, ///< filled, `pointSize` pixels across, left out beyond the canvas
        PointStyle_Circle = 2,    ///< filled, `pointSize` pixels across, left out beyond the canvas
        PointStyle_Cross = 3,     ///< an upright cross that reaches `pointSize` pixels to each side
        PointStyle_X = 4          ///< a diagonal cross that reaches `pointSize` pixels to each side
    };
    Q_ENUM(PointStyle)

    /// Makes a channel that is not selected for display until it is shown.
    ///
    /// With a plot as `parent` the channel is registered at once, while its subclass does not exist yet: the
    /// plot then learns its extent from the next boundingRectChanged(). So a subclass better hands over no
    /// parent, and calls setParent() and setVisible(true) at the end of its own constructor.
    explicit ZrQtBaseChannel(QWidget *parent = nullptr);
    ~ZrQtBaseChannel() override;

    /// The rectangle in data units that the content covers; top is its smallest y. Read by the automatic
    /// scaling of the plot; a null rectangle means that there is nothing to scale to.
    virtual QRectF boundingRect() = 0;

    /// Paints the content onto `painter`, whose units are the pixels of this widget, and leaves the painter
    /// as it was. Called by the paint event, or by the plot if it paints its channels.
    virtual void paint(QPainter &painter) = 0;

    /// Removes all content. Whether boundingRect() shrinks with it is up to the subclass.
    virtual void clear() = 0;

protected:
    /// Recomputes the mapping from data units to pixels from canvas, size and inverted axes, and repaints.
    /// Called on every change of these. While the canvas has no width or height, nothing sensible is drawn.
    virtual void updateTransform();

public:
    /// The name in the plot's legend; empty by default. Setting it sends no signal and does not repaint.
    QString name() const;
    void setName(const QString &name);

    /// The visible range: left and right in units of cosyX(), top (the smaller y) and bottom in units of
    /// cosyY(). A null rectangle until the plot provides one. A rectangle that differs in any of left, top,
    /// width and height, however little, recomputes the mapping to pixels and then sends canvasChanged().
    QRectF canvas() const;
    void setCanvas(const QRectF &canvas);

    /// The coordinate system of the x values; `COSY_0` by default. A change sends cosyXChanged(), upon which
    /// the plot hands over the canvas of the new system; the mapping to pixels is not recomputed before.
    ZrQtPlot::CoordinateSystem cosyX() const;
    void setCosyX(ZrQtPlot::CoordinateSystem cosy);

    /// The coordinate system of the y values; as cosyX().
    ZrQtPlot::CoordinateSystem cosyY() const;
    void setCosyY(ZrQtPlot::CoordinateSystem cosy);

    /// cosyX() for ZrQtPlot::Axis_X, otherwise cosyY().
    ZrQtPlot::CoordinateSystem cosy(ZrQtPlot::PlotAxis axis) const;

    /// The style of lines; `Qt::SolidLine` by default. A change repaints.
    Qt::PenStyle lineStyle() const;
    void setLineStyle(Qt::PenStyle style);

    /// The shape of point markers; `PointStyle_None` by default. A change repaints.
    PointStyle pointStyle() const;
    void setPointStyle(PointStyle style);

    /// The width of lines in pixels; 1 by default. A change repaints. Any number is stored; painting takes
    /// more than 32767 as 32767. With 0 or less a ZrQtBufferedChannel draws no line, and a ZrQtPlotChannel
    /// lines of one pixel.
    int lineWidth() const;
    void setLineWidth(int width);

    /// The size of point markers in pixels, see PointStyle; 3 by default. On purpose a change does not
    /// repaint: the new size shows at the next repaint.
    int pointSize() const;
    void setPointSize(int size);

    /// The colour of point markers; black by default. A change repaints.
    QColor pointColor() const;
    void setPointColor(QColor color);

    /// The colour of lines; black by default. A change repaints.
    QColor lineColor() const;
    void setLineColor(const QColor &color);

    /// The colour of filled content, in channels that have such content; transparent by default. A change
    /// repaints.
    QColor fillColor() const;
    void setFillColor(const QColor &color);

    /// The brush style of filled content; `Qt::SolidPattern` by default. A change repaints.
    Qt::BrushStyle fillStyle() const;
    void setFillStyle(Qt::BrushStyle style);

    /// Whether edges are smoothed; false by default. A change sends antialiasingChanged() and then repaints.
    bool antialiasing() const;
    void setAntialiasing(bool antialiasing);

    /// Whether the automatic scaling of the plot takes account of this channel; true by default. Sends
    /// boundingRectChanged() at every call, also if nothing changes.
    bool useForScaling() const;
    void setUseForScaling(bool use);

    /// Whether the legend of the plot lists this channel; true by default. On purpose silent: the legend
    /// shows a change at its next repaint.
    bool showInLegend() const;
    void setShowInLegend(bool show);

    /// What the last call of setVisible() asked for, also while a hidden parent hides the channel.
    bool isSelectedForDisplay() const;

    /// The data value at `pixel` (in this widget).
    QPointF mapToData(const QPoint &pixel) const;

    /// The pixel (in this widget) of a data value; fractions are cut off towards zero. Values beyond the
    /// range of `int` get its nearest end.
    QPoint mapToPixel(const QPointF &value) const;

public Q_SLOTS:
    /// Shows or hides the channel. Sends visibilityChanged() and then boundingRectChanged() at every call, so
    /// that the plot scales with or without it.
    void setVisible(bool visible) override;

    /// Takes over left and right of `canvas` if `cosy` is cosyX(), top and bottom if it is cosyY(), both if
    /// it is both; otherwise nothing. See setCanvas().
    void onCanvasChanged(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy);

    /// Takes over whether the x or y axis is inverted, if `cosy` is the system of that direction, and
    /// recomputes the mapping to pixels in any case.
    void onAxisInverted(ZrQtPlot::PlotAxis axis, ZrQtPlot::CoordinateSystem cosy, bool inverted);

Q_SIGNALS:
    /// The content or its place on the screen changed: sent by the setters of data, and whenever the widget
    /// is resized or moved.
    void dataChanged(ZrQtPlot::CoordinateSystem cosyX, ZrQtPlot::CoordinateSystem cosyY);

    /// The visible range changed; the mapping to pixels is up to date.
    void canvasChanged(QRectF canvas);

    /// The extent of the content changed, or the automatic scaling must look at it again.
    void boundingRectChanged(QRectF boundingRect);

    /// Whether edges are smoothed is now `arg`; the repaint follows.
    void antialiasingChanged(bool arg);

    /// The x values belong to `cosy` now. The plot that shows the channel answers with the canvas of `cosy`.
    void cosyXChanged(ZrQtPlot::CoordinateSystem cosy);

    /// The y values belong to `cosy` now; as cosyXChanged().
    void cosyYChanged(ZrQtPlot::CoordinateSystem cosy);

    /// setVisible() was called with `visible`.
    void visibilityChanged(bool visible);

    /// For subclasses that want the plot to repaint its legend; the channel itself never sends it.
    void showInLegendChanged(bool showInLegend);

protected:
    /// For subclasses of the library: takes ownership of `d` and does not set a parent.
    explicit ZrQtBaseChannel(ZrQtBaseChannelPrivate &d);

    /// Draws a marker of the channel's style, size and colour on each of `points` (data units), at constant
    /// size in pixels. Crosses have the width of the painter's pen. Leaves the painter as it was.
    void drawPoints(QPainter &painter, const QVector<QPointF> &points);

    void paintEvent(QPaintEvent *event) override;

    /// Both recompute the mapping to pixels and then send dataChanged().
    void resizeEvent(QResizeEvent *event) override;
    void moveEvent(QMoveEvent *event) override;

    QScopedPointer<ZrQtBaseChannelPrivate> m_d;

private:
    Q_DISABLE_COPY(ZrQtBaseChannel)
    Q_DECLARE_PRIVATE_D(m_d, ZrQtBaseChannel)
    friend class ZrQtPlot;
    friend class ZrQtPlotPrivate;
};

#endif // ZRQTBASECHANNEL_H
