#ifndef ZRQTPLOT_P_H
#define ZRQTPLOT_P_H

//
// This file is not part of the API. It exists for the convenience of the library's own sources and may change
// from version to version without notice.
//

#include "internal/canvasscaling_p.h"
#include "internal/gridpositions_p.h"
#include "internal/legendlines_p.h"
#include "internal/plotgestures_p.h"
#include "zrqtplot.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtGui/QImage>

#include <functional>
#include <optional>

class QMouseEvent;
class QPainter;
class QWheelEvent;
class ToolTipWidget;
class ZrQtPlotSlider;

/// What the plot knows of one coordinate system.
struct CosyState
{
    using ScalingMode = ZrQtPlot::ScalingMode;

    /// The part of a record that exists once for x and once for y.
    struct Direction
    {
        ScalingMode scaling{};
        ScalingMode previousScaling{};         ///< what an automatic return comes back to
        ZrQtBaseChannel *minChannel = nullptr; ///< holds the low edge of the bounding rectangle
        ZrQtBaseChannel *maxChannel = nullptr; ///< holds the high edge
        bool fitted = false;                   ///< a look at the same channels would find the same
        bool hold = false;                     ///< an axis of this direction is being dragged
        bool inverted = false;                 ///< an axis shows this direction high-to-low
    };

    Direction &direction(ZrQtPlot::PlotAxis axis) { return axis == ZrQtPlot::Axis_X ? x : y; }
    bool edgesAreHeld() const { return x.minChannel || x.maxChannel || y.minChannel || y.maxChannel; }

    QRectF boundingRect;     ///< union of the bounding rectangles of the channels of this system
    QRectF lastBoundingRect; ///< the same as of the previous scaling
    QRectF canvas;           ///< as set or computed
    QRectF effectiveCanvas;  ///< adjusted to the aspect ratio if that is kept; what the plot announces
    Direction x;
    Direction y;
};

class ZrQtPlotPrivate
{
public:
    using CoordinateSystem = ZrQtPlot::CoordinateSystem;
    using PlotAxis = ZrQtPlot::PlotAxis;
    using ScalingMode = ZrQtPlot::ScalingMode;

    ZrQtPlotPrivate();
    virtual ~ZrQtPlotPrivate();

    /// Second stage of construction, called when the public object is complete.
    void init(ZrQtPlot *plot);
    /// Undoes every connection that would reach a plot under destruction.
    void disconnectAll();

    // Registration (zrqtplot_registration.cpp)
    void addAxis(ZrQtAxis *axis);
    void addChannel(ZrQtBaseChannel *channel);
    void addCustomWidget(QWidget *widget);
    void removeAxis(ZrQtAxis *axis);
    void removeChannel(ZrQtBaseChannel *channel);
    void removeCustomWidget(QWidget *widget);
    void passUpdateControlToChannels();
    void openOverlay();
    void handleOwnEvent(QEvent *event);

    // Scaling (zrqtplot_scaling.cpp)
    CosyState &state(CoordinateSystem cosy);
    QVector<CoordinateSystem> declaredSystems() const;
    QVector<CoordinateSystem> recordedSystems() const;
    QVector<CoordinateSystem> usedSystems() const;
    QRectF workingCanvas(CoordinateSystem cosy) const;
    void emitCanvas(CoordinateSystem cosy);
    void emitUsedCanvases();
    void applyScaling(CoordinateSystem cosy, PlotAxis axis);
    void setScaling(ScalingMode mode, CoordinateSystem cosy, PlotAxis axis, bool apply);
    bool setCanvasPart(const QRectF &rect, CoordinateSystem cosy, PlotAxis axis);
    void setCanvasEdge(double CanvasScaling::Extent::*edge, double value, CoordinateSystem cosy,
                       PlotAxis axis);
    void setDefaultScaling(ScalingMode &stored, ScalingMode mode, PlotAxis axis);
    void applyDefaultScaling(PlotAxis axis);
    void resetCanvases();
    void setCanvasMargin(double &stored, double margin, PlotAxis axis);

    // Extent of the data (zrqtplot_dataextent.cpp)
    enum class Tracking { Incremental, Forced };
    void trackBoundingRect(ZrQtBaseChannel *channel, const QRectF &rect, Tracking tracking);
    void refit(CoordinateSystem cosy, PlotAxis axis);
    void refitWith(ZrQtBaseChannel *channel, CoordinateSystem cosy, PlotAxis axis);
    void noteExtent(ZrQtBaseChannel *channel, const QRectF &rect);
    void refitUsed();
    void releaseChannel(ZrQtBaseChannel *channel);

    // Mouse and keyboard (zrqtplot_interaction.cpp, zrqtplot_eventfilter.cpp, zrqtplot_wheel.cpp)
    struct Gesture;
    Gesture gesture() const;
    void endDrag();
    bool inLegendStrip(const QPointF &position) const;
    QTransform selectionTransform() const;
    void paintRubberBand(QPainter &painter) const;
    bool dispatchToChannels(QEvent *event);
    bool filterAxisEvent(ZrQtAxis *axis, QEvent *event);
    void checkCursorArea(double y);
    void applyAxisCursor();
    void resetCursors();
    void zoom(CoordinateSystem cosy, const QPointF &origin, PlotGestures::ZoomFactors factors);

    // Tooltip (zrqtplot_tooltip.cpp)
    QPointF cursorPosition() const;
    bool cursorInPlotArea() const;
    void showTooltip();
    void hideTooltip();
    void checkTooltip(Qt::MouseButtons buttons);
    void refreshTooltip();

    // Overview slider (zrqtplot_slider.cpp)
    void setSlider(ZrQtPlotSlider *slider);
    void releaseSlider(ZrQtPlotSlider *slider);

    // Layout (zrqtplot_layout.cpp)
    void layOut();
    void setMinMargin(int &stored, int margin);

    // Painting (zrqtplot_painting.cpp, zrqtplot_grid.cpp, zrqtplot_legend.cpp)
    void paintDirectly(QPainter &painter);
    void paintCached(QPainter &painter);
    void paintGrid(QPainter &painter);
    void paintLegend(QPainter &painter);

    ZrQtPlot *q = nullptr;

    QList<ZrQtBaseChannel *> m_channels; ///< in order of registration
    QList<ZrQtAxis *> m_axes;
    QList<QWidget *> m_customWidgets;
    QList<ZrQtBaseChannel *> m_channelStack; ///< the channels that are children, topmost first
    bool m_channelStackIsOld = false;        ///< a channel came, or the order changed
    QPointer<QWidget> m_overlay;             ///< transparent layer above the channels

    QPointer<ZrQtPlotSlider> m_slider; ///< the overview slider that this plot is the master of
    QList<QPointer<ZrQtPlotSlider>>
        m_drivingSliders; ///< those that connectSlider() made masters of this plot

    CoordinateSystem selectionCosyX
        = ZrQtPlot::COSY_0; ///< systems in which selections and clicks are reported
    CoordinateSystem selectionCosyY = ZrQtPlot::COSY_0;
    ZrQtPlot::Interaction interaction = ZrQtPlot::NoInteraction;
    bool pressed = false;            ///< the left button went down on the plot
    bool m_mouseDragging = false;    ///< the plot area is being panned
    bool selectionVisible = false;   ///< the rubber band or line is painted
    bool selectionCancelled = false; ///< by Escape
    bool belowPlotArea = false;      ///< where the mouse was last seen
    QPointF lastMousePos;            ///< of the previous press or move, in pixels of the widget
    QPoint selectionStart;
    QPoint selectionEnd;
    QRectF selectionRect; ///< the rubber band, in pixels of the widget
    QLineF selectionLine; ///< the rubber line, likewise
    bool mouseWheelZoom = false;
    ZrQtPlot::PlotAxes zoomAxes = ZrQtPlot::Axis_X | ZrQtPlot::Axis_Y;
    QHash<ZrQtPlot::Interaction, QCursor> m_customCursors;

    QPointer<ToolTipWidget> m_toolTip;
    ZrQtPlot::TooltipMode tooltipMode = ZrQtPlot::SHOW_NEVER;
    bool m_makingTooltip = false; ///< the application's callback is running
    bool m_tooltipShown = false;  ///< shown and not hidden since, whether or not it has a text
    std::function<QString(double, double)> m_hoverCallback;
    QPoint cursorShift{0, -10};
    QTimer m_tooltipTimer;    ///< hides the tooltip
    int m_tooltipTimerId = 0; ///< of the timer that refreshes it, 0 when none runs

    bool keepAspectRatio = false;
    ScalingMode defaultScalingX = ZrQtPlot::AutoFit;
    ScalingMode defaultScalingY = ZrQtPlot::AutoFit;

    QRectF m_plotRect;  ///< the plot area in pixels of the widget
    QRectF m_imageRect; ///< the plot area that the cached image was made for
    int m_legendHeight = 0;
    int minMarginLeft = 0;
    int minMarginRight = 0;
    int minMarginTop = 0;
    int minMarginBottom = 0;

    QRectF initialCanvas{0.0, 0.0, 10.0, 10.0};
    double initialCanvasWidth = -1.0; ///< negative: not set

    QColor backgroundColor = Qt::white;
    QColor borderColor{0, 0, 0, 0};
    int borderWidth = 0;

    QHash<CoordinateSystem, CosyState> m_cosys;
    QHash<CoordinateSystem, CosyState> m_paintedCosys; ///< as of the last redraw of the cached image

    QTimer m_boundingRectReduceTimer;
    int boundingRectReduceUpdateInterval = -1;
    double canvasMarginLeft = 0.02;
    double canvasMarginTop = 0.02;
    double canvasMarginRight = 0.02;
    double canvasMarginBottom = 0.02;
    double keepOldBoundingRectWidthTolerance = 0.0;
    double keepOldBoundingRectHeightTolerance = 0.0;
    bool useEmptyBoundingRectsForAutoFitScaling = false;

    QSizeF gridSpacing{10.0, 10.0};
    QSizeF gridSubSpacing{25.0, 25.0};
    ZrQtPlot::GridMode gridModeX = ZrQtPlot::NoGrid;
    ZrQtPlot::GridMode gridModeY = ZrQtPlot::NoGrid;
    Qt::PenStyle gridStyle = Qt::SolidLine;
    bool drawBorderGridLines = false;

    QImage m_image; ///< cached picture of the plot area
    bool controlChannelUpdatesViaPlot = false;
    ZrQtPlot::PlotUpdateRestrictions plotUpdateRestrictions;
    bool m_dataChanged = false;
    bool m_forceRedraw = false;

    bool generateLegend = false;
    Qt::Alignment legendAlignment = Qt::AlignRight;

private:
    struct CanvasChange
    {
        bool boundingRect = false;
        bool canvas = false;
    };
    struct ExtentUpdate
    {
        bool lowKept = false;
        bool highKept = false;
        Tracking tracking = Tracking::Incremental;
    };
    struct Tracked;
    struct GridLine
    {
        double position = 0.0;
        CoordinateSystem cosy = ZrQtPlot::COSY_0;
    };
    struct GridLines
    {
        QVector<GridLine> main;
        QVector<GridLine> sub;
    };
    struct Margins
    {
        int left = 0;
        int right = 0;
        int top = 0;
        int bottom = 0;
    };

    void connectAxisToChannel(ZrQtAxis *axis, ZrQtBaseChannel *channel);
    void connectChannel(ZrQtBaseChannel *channel);
    void childAdded(QObject *child);
    void childRemoved(QObject *child);
    void settleChildOrder();
    void updateChannelStack();
    void raiseTopmost();
    void invertAxis(ZrQtAxis *axis);
    void afterChannelLeft(ZrQtBaseChannel *channel);
    void emitCanvasesOfChannels();
    void unparent(QWidget *widget);
    bool isChild(QWidget *widget) const;
    void letGo(ZrQtBaseChannel *channel);
    void adopt(QWidget *widget);
    void disconnectBothWays(QObject *leaving);
    void endOrphanedHolds();
    void forget(QObject *dying);
    bool isOwnWidget(const QObject *widget) const;
    void onChannelSystemChanged(ZrQtBaseChannel *channel, CoordinateSystem cosy);

    void adjustToAspectRatio(CosyState &record) const;
    void becomeManual(CoordinateSystem cosy, PlotAxis axis);
    void returnToAutoFit(CoordinateSystem cosy, PlotAxis axis);
    void returnToPreviousMode(CoordinateSystem cosy, PlotAxis axis);
    void scale(CoordinateSystem cosy, PlotAxis axis);

    std::optional<CanvasScaling::Extent> extentThatCounts(ZrQtBaseChannel *channel, PlotAxis axis) const;
    void updateExtent(ZrQtBaseChannel *channel, const QRectF &rect, PlotAxis axis,
                      const ExtentUpdate &update);
    void writeExtent(CoordinateSystem cosy, PlotAxis axis, CanvasScaling::Extent extent);
    Tracked track(ZrQtBaseChannel *channel, const QRectF &rect, PlotAxis axis, Tracking tracking);
    void startReduceTimer();
    void stopReduceTimer();

    void pan(CoordinateSystem cosy, const QPointF &delta);
    void scalePanned(CoordinateSystem cosy, PlotAxis axis);
    void dragCanvases(const QMouseEvent &event);
    void scaleUsed();
    void beginBand(const QPoint &position);
    void dragBand(const QMouseEvent &event);
    void zoomToBand();
    void reportBand();
    void beginLine(const QPoint &position);
    void dragLine(const QMouseEvent &event);
    void reportLine();
    void announcePress(const QMouseEvent &event);
    ZrQtBaseChannel *offerToChannels(QMouseEvent *event);
    void dragAxis(ZrQtAxis *axis, const QMouseEvent &event);
    void endAxisDrag(ZrQtAxis *axis);
    void wheelOnAxis(ZrQtAxis *axis, const QWheelEvent &event);
    void raiseAxisUnderEditField(const QPoint &globalPosition);
    QString tooltipText(const QPointF &cursor) const;

    void layOutOnce();
    void updateLegendHeight();
    Margins marginsAroundPlotArea() const;
    void placeAxes(const Margins &margins);
    void fillEmptyCanvas(ZrQtAxis *axis);
    void placeOnPlotArea();
    QVector<ZrQtAxis *> visibleAxes() const;
    QVector<LegendLines::Line> legendLines() const;
    static QString legendName(const ZrQtBaseChannel *channel);
    int legendLineStart(int lineWidth) const;
    int bottomAxesHeight() const;
    void paintLegendLine(QPainter &painter, const LegendLines::Line &line,
                         const LegendLines::Metrics &metrics, int baseline) const;

    CanvasChange canvasChangeSincePainted() const;
    bool mayRedraw(CanvasChange change, bool resized) const;
    void redrawImage(bool resized);
    void paintFrame(QPainter &painter) const;
    GridLines gridLines(PlotAxis axis) const;
    GridLines stepLines(const GridPositions::Lines &positions) const;
    QVector<GridLine> tickLines(PlotAxis axis) const;
    QVector<GridLine> subTickLines(PlotAxis axis) const;
    QVector<ZrQtAxis *> gridAxes(PlotAxis axis) const;
    void paintGridLine(QPainter &painter, const GridLine &line, PlotAxis axis) const;
    void paintPolarGridLine(QPainter &painter, const GridLine &line, PlotAxis axis) const;

    QObject *m_lastRemovedChild = nullptr; ///< only compared, never dereferenced
    bool m_layingOut = false;
    bool m_layoutPending = false;
};

/// The direction that an axis at \a position shows.
inline ZrQtPlot::PlotAxis directionOf(Qt::Edge position)
{
    return position == Qt::LeftEdge || position == Qt::RightEdge ? ZrQtPlot::Axis_Y : ZrQtPlot::Axis_X;
}

inline CanvasScaling::Direction toDirection(ZrQtPlot::PlotAxis axis)
{
    return axis == ZrQtPlot::Axis_X ? CanvasScaling::Direction::X : CanvasScaling::Direction::Y;
}

#endif // ZRQTPLOT_P_H
