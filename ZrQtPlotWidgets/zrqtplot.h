#ifndef ZRQTPLOT_H
#define ZRQTPLOT_H

#include "zrqtplotwidgets_global.h"

#include <QtCore/QLineF>
#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtCore/QScopedPointer>
#include <QtCore/QSizeF>
#include <QtGui/QColor>
#include <QtGui/QCursor>
#include <QtWidgets/QWidget>

#include <functional>

class ZrQtAxis;
class ZrQtBaseChannel;
class ZrQtPlotPrivate;
class ZrQtPlotSlider;

/// A two-dimensional plot: it hosts axes, channels and other widgets as its children, decides which range of
/// data each of its sixteen coordinate systems shows, lays the children out and paints background, grid,
/// frame and legend.
///
/// \code
/// auto *plot = new ZrQtPlot(window);
/// auto *axis = new ZrQtAxis(plot);                // a child registers itself
/// axis->setPosition(Qt::BottomEdge);
/// auto *channel = new ZrQtBufferedChannel(plot);
/// channel->setData({1.0, 4.0, 9.0, 16.0});
/// \endcode
///
/// **Coordinate systems.** Each channel draws its x values in one system and its y values in one system; each
/// axis shows one direction of one system. The visible range of a system is its *canvas*, a rectangle in data
/// units: left is the smallest visible x, right the largest, top the smallest y and bottom the largest.
/// Every function takes exactly one system. A combination such as `COSY_0 | COSY_1` names a further,
/// independent system and is never split into its bits.
///
/// **Ownership.** A registered widget becomes a child of the plot; registration deletes nothing. Registered
/// widgets may be deleted at any time and by anyone; the plot forgets them. As everywhere in Qt, a widget
/// that is added to a plot that is already shown must be shown by the caller.
///
/// **Thread.** Like all widgets, only to be used in the GUI thread.
class ZRQTPLOTWIDGETS_EXPORT ZrQtPlot : public QWidget
{
    Q_OBJECT

    Q_PROPERTY(QColor backgroundColor READ backgroundColor WRITE setBackgroundColor)
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor)
    Q_PROPERTY(int borderWidth READ borderWidth WRITE setBorderWidth)

    Q_PROPERTY(int minMarginLeft READ minMarginLeft WRITE setMinMarginLeft)
    Q_PROPERTY(int minMarginRight READ minMarginRight WRITE setMinMarginRight)
    Q_PROPERTY(int minMarginTop READ minMarginTop WRITE setMinMarginTop)
    Q_PROPERTY(int minMarginBottom READ minMarginBottom WRITE setMinMarginBottom)

    Q_PROPERTY(ScalingMode defaultScalingX READ defaultScalingX WRITE setDefaultScalingX)
    Q_PROPERTY(ScalingMode defaultScalingY READ defaultScalingY WRITE setDefaultScalingY)
    Q_PROPERTY(double canvasMarginLeft READ canvasMarginLeft WRITE setCanvasMarginLeft)
    Q_PROPERTY(double canvasMarginRight READ canvasMarginRight WRITE setCanvasMarginRight)
    Q_PROPERTY(double canvasMarginTop READ canvasMarginTop WRITE setCanvasMarginTop)
    Q_PROPERTY(double canvasMarginBottom READ canvasMarginBottom WRITE setCanvasMarginBottom)
    Q_PROPERTY(bool keepAspectRatio READ keepAspectRatio WRITE setKeepAspectRatio)
    Q_PROPERTY(QRectF initialCanvas READ initialCanvas WRITE setInitialCanvas)
    Q_PROPERTY(bool useEmptyBoundingRectsForAutoFitScaling READ useEmptyBoundingRectsForAutoFitScaling WRITE
                   setUseEmptyBoundingRectsForAutoFitScaling)

    Q_PROPERTY(Interaction interaction READ interaction WRITE setInteraction)
    Q_PROPERTY(CoordinateSystem selectionCosyX READ selectionCosyX WRITE setSelectionCosyX)
    Q_PROPERTY(CoordinateSystem selectionCosyY READ selectionCosyY WRITE setSelectionCosyY)
    Q_PROPERTY(bool mouseWheelZoom READ mouseWheelZoom WRITE setMouseWheelZoom)
    Q_PROPERTY(PlotAxes zoomAxes READ zoomAxes WRITE setZoomAxes)
    Q_PROPERTY(TooltipMode tooltipMode READ tooltipMode WRITE setTooltipMode)

    Q_PROPERTY(GridMode gridModeX READ gridModeX WRITE setGridModeX)
    Q_PROPERTY(GridMode gridModeY READ gridModeY WRITE setGridModeY)
    Q_PROPERTY(QSizeF gridSpacing READ gridSpacing WRITE setGridSpacing)
    Q_PROPERTY(QSizeF gridSubSpacing READ gridSubSpacing WRITE setGridSubSpacing)
    Q_PROPERTY(Qt::PenStyle gridStyle READ gridStyle WRITE setGridStyle)
    Q_PROPERTY(bool drawBorderGridLines READ drawBorderGridLines WRITE setDrawBorderGridLines)
    Q_PROPERTY(bool generateLegend READ generateLegend WRITE setGenerateLegend)

public:
    /// The sixteen coordinate systems. Single bits, but each function takes exactly one of them.
    enum CoordinateSystem : int {
        COSY_0 = 0x1,
        COSY_1 = 0x2,
        COSY_2 = 0x4,
        COSY_3 = 0x8,
        COSY_4 = 0x10,
        COSY_5 = 0x20,
        COSY_6 = 0x40,
        COSY_7 = 0x80,
        COSY_8 = 0x100,
        COSY_9 = 0x200,
        COSY_10 = 0x400,
        COSY_11 = 0x800,
        COSY_12 = 0x1000,
        COSY_13 = 0x2000,
        COSY_14 = 0x4000,
        COSY_15 = 0x8000
    };
    Q_ENUM(CoordinateSystem)

    /// How the canvas of a system follows the data in one direction.
    enum ScalingMode : int {
        Manual = 1,     ///< left where the user or the program put it
        AutoFit = 2,    ///< fitted to the data, with the canvas margins around it
        Centered = 4,   ///< moved so that the data is in its centre; size kept
        KeepAtHead = 8, ///< moved so that it ends at the highest value; size kept
        Custom = 0x10   ///< left alone by the plot; the application moves it
    };
    Q_ENUM(ScalingMode)

    /// Where the grid lines of one direction come from. The x mode alone decides whether lines are polar.
    enum GridMode : int {
        NoGrid = 0,
        TickGrid = 1,        ///< at the ticks of the axes that are used for the grid
        SubTickGrid = 2,     ///< at their ticks and sub-ticks
        PercentStepGrid = 3, ///< every `gridSpacing` fraction (0 to 1) of the plot area
        PixelStepGrid = 4,   ///< every `gridSpacing` pixels
        TickPolarGrid = 5,   ///< circles around the data origin, through the ticks
        SubTickPolarGrid = 6 ///< circles around the data origin, through ticks and sub-ticks
    };
    Q_ENUM(GridMode)

    /// What a drag with the left mouse button does on the plot area.
    enum Interaction : int {
        NoInteraction = 0, ///< nothing
        PanAndScan = 1,    ///< moves the canvases of all systems in use; on an axis, of its system alone
        RectangleZoom = 2, ///< zooms all systems in use to a rectangle of at least 5 x 5 pixels
        SelectRoi = 3,     ///< reports a rectangle with selectionChanged(QRectF); Escape cancels
        SelectLine = 4     ///< reports a line with selectionChanged(QLineF); Escape cancels
    };
    Q_ENUM(Interaction)

    /// When the tooltip with the coordinates under the mouse is shown.
    enum TooltipMode : int {
        SHOW_NEVER = 0,
        SHOW_ALWAYS = 1,        ///< while the mouse is over the plot area
        SHOW_WHILE_PRESSED = 2, ///< while the left button is held
        SHOW_ON_CLICK = 3       ///< after a click, for at most three seconds; hidden every three from then on
    };
    Q_ENUM(TooltipMode)

    /// A direction of a coordinate system.
    enum PlotAxis : int { Axis_X = 1, Axis_Y = 2 };
    Q_ENUM(PlotAxis)
    Q_DECLARE_FLAGS(PlotAxes, PlotAxis)
    Q_FLAG(PlotAxes)

    /// Which events allow a redraw of the cached picture of the plot area; see setPlotUpdateRestrictions().
    enum PlotUpdateRestriction : int {
        RedrawOnDataChange = 0x1,         ///< a channel reported new content since the last redraw
        RedrawOnBoundingRectChange = 0x2, ///< the data extent of a system differs from the one last painted
        RedrawOnCanvasChange = 0x4,       ///< the canvas of a system differs from the one last painted
        RedrawUnderMouse = 0x8            ///< the mouse is over the plot
    };
    Q_DECLARE_FLAGS(PlotUpdateRestrictions, PlotUpdateRestriction)

    explicit ZrQtPlot(QWidget *parent = nullptr);
    ~ZrQtPlot() override;

    /// \name Registration
    /// Adding a registered widget again, or a null pointer, does nothing; so does removing a widget that is
    /// not registered. Axes, channels and other widgets that become children of the plot are added by
    /// themselves, and removed when they leave it.
    /// \{

    /// Makes \a axis a child of the plot, lets it follow the canvas of its system, and lays the plot out.
    void addAxis(ZrQtAxis *axis);
    /// Undoes addAxis(). The axis loses its parent if that is still the plot; it is not deleted.
    void removeAxis(ZrQtAxis *axis);

    /// Makes \a channel a child of the plot, gives it the canvases of its systems and takes its data into
    /// account for scaling. Its selection for display (ZrQtBaseChannel::isSelectedForDisplay()) is kept.
    void addChannel(ZrQtBaseChannel *channel);
    /// Undoes addChannel(). On purpose, `COSY_0` then returns to `AutoFit` in both directions, unless one of
    /// its directions is `AutoFit` already, whatever systems the channel used.
    void removeChannel(ZrQtBaseChannel *channel);

    /// Lays any other widget over the plot area.
    void addCustomWidget(QWidget *widget);
    /// Undoes addCustomWidget().
    void removeCustomWidget(QWidget *widget);

    /// Makes \a slider a child of the plot, lays it over the plot area and makes this plot its master: the
    /// slider spans what the plot shows. Replaces and un-parents the slider that was there; null just removes
    /// that.
    void addSlider(ZrQtPlotSlider *slider);
    /// Undoes addSlider(), if \a slider is the current one.
    void removeSlider(ZrQtPlotSlider *slider);
    /// Makes this plot the slave of \a slider, which belongs to another plot: the plot shows what the slider
    /// selects, and the slider follows the plot.
    void connectSlider(ZrQtPlotSlider *slider);
    /// Cuts every connection between the plot and the slider given to addSlider(). On purpose, what
    /// connectSlider() connected to the slider of another plot stays connected.
    void disconnectSlider();
    /// \}

    /// \name Appearance
    /// \{

    /// Fill of the plot area; white by default.
    QColor backgroundColor() const;
    void setBackgroundColor(const QColor &color);

    /// Colour of the frame around the plot area; fully transparent by default.
    QColor borderColor() const;
    void setBorderColor(const QColor &color);

    /// Pen width of the frame in pixels; 0 (the default) is a hairline.
    int borderWidth() const;
    void setBorderWidth(int width);
    /// \}

    /// \name Margins around the plot area
    /// Least space in pixels between the widget's edge and the plot area; 0 by default. Axes, their labels
    /// and the legend take more where they need it.
    /// \{
    int minMarginLeft() const;
    void setMinMarginLeft(int margin);
    int minMarginRight() const;
    void setMinMarginRight(int margin);
    int minMarginTop() const;
    void setMinMarginTop(int margin);
    int minMarginBottom() const;
    void setMinMarginBottom(int margin);
    /// \}

    /// \name Canvas and scaling
    /// \{

    /// The canvas of \a cosy in data units, without the adjustment to the aspect ratio; a null rectangle for
    /// a system that has no record.
    QRectF canvas(CoordinateSystem cosy) const;

    /// The scaling mode of \a cosy. A combination of systems that was never used reports 0.
    ScalingMode scalingX(CoordinateSystem cosy) const;
    ScalingMode scalingY(CoordinateSystem cosy) const;

    /// Stores \a mode and, with \a apply, moves the canvas accordingly and emits canvasChanged(). Emits
    /// scalingModeChanged() in every case, also if the mode is the same.
    ///
    /// On purpose, an applied mode may end at once: while the data edges lie within 10 pixels of the canvas
    /// edges, a previous `AutoFit` comes back, and a previous `KeepAtHead` while the canvas shows the newest
    /// data. The signal of the mode that came back is then sent first, that of \a mode last.
    void setScalingX(ScalingMode mode, CoordinateSystem cosy, bool apply = true);
    void setScalingY(ScalingMode mode, CoordinateSystem cosy, bool apply = true);
    /// setScalingX() followed by setScalingY(), both applied.
    void setScaling(ScalingMode mode, CoordinateSystem cosy);

    /// Mode that every system gets at construction and whenever this property changes; `AutoFit` by default.
    /// The canvases are not fitted anew. Emits scalingModeChanged() for each of the sixteen systems.
    ScalingMode defaultScalingX() const;
    void setDefaultScalingX(ScalingMode mode);
    ScalingMode defaultScalingY() const;
    void setDefaultScalingY(ScalingMode mode);

    /// \name Canvas margins
    /// Free space that `AutoFit` leaves beside the data, as a fraction of the canvas (0.02 by default; with a
    /// sum of exactly 1 there is no free space, beyond it the canvas runs backwards): left below the smallest
    /// x, right above the largest x, bottom below the smallest y, top above the largest y. On purpose, a
    /// change shows with the next change of the data's extent.
    /// \{
    double canvasMarginLeft() const;
    void setCanvasMarginLeft(double margin);
    double canvasMarginRight() const;
    void setCanvasMarginRight(double margin);
    double canvasMarginTop() const;
    void setCanvasMarginTop(double margin);
    double canvasMarginBottom() const;
    void setCanvasMarginBottom(double margin);
    /// \}

    /// Whether one unit of x is as long on the screen as one unit of y. Widens or heightens what
    /// canvasChanged() carries; canvas() stays as it is. A direction that follows the newest data
    /// (`KeepAtHead`) keeps its range. Off by default.
    bool keepAspectRatio() const;
    void setKeepAspectRatio(bool keep);

    /// Canvas of every system at the start, (0, 0, 10 x 10) by default. A new value resets the canvases of
    /// all systems and emits canvasChanged() for each.
    QRectF initialCanvas() const;
    void setInitialCanvas(const QRectF &canvas);

    /// Stores a width in data units for setCanvasToInitialWidth(). Only the first call counts; a negative
    /// width is the same as none, and a NaN blocks later calls.
    void setInitialCanvasWidth(double width);
    /// Gives the canvas of \a cosy the width stored by setInitialCanvasWidth(), if that is greater than 0.
    /// The left edge stays. Emits nothing and scales nothing.
    void setCanvasToInitialWidth(CoordinateSystem cosy);

    /// Whether channels whose bounding rectangle has no width (height) count for automatic scaling of x (y).
    /// A single value then gets a canvas of width 1 around it. Off by default.
    bool useEmptyBoundingRectsForAutoFitScaling() const;
    void setUseEmptyBoundingRectsForAutoFitScaling(bool use);

    /// A reported edge of the data that lies within this fraction of the data's width (height) around the
    /// known edge does not move the canvas; 0 by default. A negative number or a NaN keeps no edge.
    void setKeepOldBoundingRectWidthTolerance(double tolerance);
    void setKeepOldBoundingRectHeightTolerance(double tolerance);

    /// Time in milliseconds after which data that shrank within the tolerance is fitted anew; below 1 (the
    /// default is -1) it is fitted at once.
    void setBoundingRectReduceUpdateInterval(int milliseconds);
    /// \}

    /// \name Mouse
    /// \{

    /// What the mouse does; `NoInteraction` by default. A drag in progress goes on and ends in the new mode.
    /// The axes show the cursor of the mode at once, the plot when the mouse next comes over the lower edge
    /// of the plot area.
    Interaction interaction() const;
    void setInteraction(Interaction interaction);

    /// The systems in whose values selections, clicks and the tooltip are given; `COSY_0` by default.
    CoordinateSystem selectionCosyX() const;
    void setSelectionCosyX(CoordinateSystem cosy);
    CoordinateSystem selectionCosyY() const;
    void setSelectionCosyY(CoordinateSystem cosy);

    /// Whether the wheel zooms by 15 percent a step around the mouse; off by default. A wheel event over the
    /// plot area is accepted only where it zooms; an axis swallows it in any case.
    bool mouseWheelZoom() const;
    void setMouseWheelZoom(bool zoom);
    /// The directions that a wheel over the plot area zooms; both by default. A wheel over an axis zooms that
    /// axis.
    PlotAxes zoomAxes() const;
    void setZoomAxes(PlotAxes axes);

    /// Replaces the cursor of \a interaction; also sets the plot's own cursor to that of the current mode.
    void setCustomCursor(const QCursor &cursor, Interaction interaction);
    /// Back to arrow, open hand and crosses.
    void resetCustomCursors();
    /// \}

    /// \name Tooltip
    /// \{

    /// When the tooltip shows; `SHOW_NEVER` by default. A tooltip that is shown when the mode changes stays
    /// until the next occasion to hide it.
    TooltipMode tooltipMode() const;
    void setTooltipMode(TooltipMode mode);
    /// Replaces the text of the tooltip, which is "[x, y]", by what \a callback makes of the values under the
    /// mouse; an empty callable restores it. It runs in the GUI thread at each mouse move, and every 50 ms in
    /// `SHOW_ALWAYS`. An empty text hides the tooltip; rich text is shown as such.
    void registerHoverCallback(std::function<QString(double, double)> callback);
    /// Offset in pixels of the tooltip's top left corner from the mouse; (0, -10) by default.
    void setCursorShift(QPoint shift);
    /// Font of the text and present size of the tooltip in pixels, shown or not.
    const QFont &getToolTipFont() const;
    QSize getToolTipSize() const;
    /// The values under the mouse, without regard to inverted axes; (0, 0) while it is not over the plot
    /// area.
    QPointF getTooltipPosition() const;
    /// Whether the mouse is where a tooltip would be shown.
    bool isToolTipShown() const;
    /// \}

    /// \name Grid
    /// \{
    GridMode gridModeX() const;
    void setGridModeX(GridMode mode);
    GridMode gridModeY() const;
    void setGridModeY(GridMode mode);

    /// Distance of the lines of `PixelStepGrid` (in pixels, at least 1) and of `PercentStepGrid` (as a
    /// fraction of the plot area, clamped to 0 to 1); (10, 10) by default.
    QSizeF gridSpacing() const;
    void setGridSpacing(const QSizeF &spacing);
    /// The same for the lighter lines: pixels over the whole plot area, or a fraction of the distance of two
    /// lines of `PercentStepGrid`; (25, 25) by default.
    QSizeF gridSubSpacing() const;
    void setGridSubSpacing(const QSizeF &spacing);

    Qt::PenStyle gridStyle() const;
    void setGridStyle(Qt::PenStyle style);

    /// Whether grid lines closer than 3 pixels to the edge of the plot area are drawn; off by default.
    bool drawBorderGridLines() const;
    void setDrawBorderGridLines(bool draw);
    /// \}

    /// \name Legend
    /// \{

    /// Whether the names and colours of the visible channels are listed below the plot area; off by default.
    /// On purpose, switching it off leaves the space as it is, and a last channel that would begin a line of
    /// its own takes none: a single channel is not listed.
    bool generateLegend() const;
    void setGenerateLegend(bool generate);
    /// `Qt::AlignRight` (the default), `Qt::AlignLeft` or `Qt::AlignHCenter`; anything else counts as left.
    void setLegendAlignment(Qt::Alignment alignment);
    /// \}

    /// \name Painting
    /// \{

    /// With \a on, the plot paints all channels and the grid into one cached picture, under the restrictions
    /// of setPlotUpdateRestrictions(); off (the default), each channel paints itself.
    void setControlChannelUpdatesViaPlot(bool on);
    /// Events that allow a redraw of the cached picture; none (the default) means that every paint redraws
    /// it. Without effect unless the plot controls the channels' updates. Colours and pens of channels are no
    /// such event: they show with the next redraw.
    void setPlotUpdateRestrictions(PlotUpdateRestrictions restrictions);

    /// Paints background, frame and grid (and, when the plot controls their updates, the channels) with
    /// \a painter (not null), in pixels of this widget. Legend and axes are not part of it.
    virtual void paint(QPainter *painter);
    /// \}

    /// Handles what the mouse does over axes and channels; a subclass that extends it passes on the rest.
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// Shows \a canvas in \a cosy; directions that change become `Manual`, unless the automatic return told
    /// at setScalingX() applies. A direction in which \a canvas has a width (height) of 0 or less, or none
    /// that is a number, stays as it is. Emits scalingModeChanged() for the modes, then canvasChanged() for
    /// every system that a channel uses; a system that no channel uses changes silently.
    void setCanvas(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy);

    /// Moves one edge of the canvas, in data units of \a cosy; the opposite edge stays and the direction
    /// becomes `Manual`, unless the automatic return told at setScalingX() applies. canvasChanged() is
    /// emitted twice, the first time with the old edge. Any number is taken: a minimum above the maximum
    /// turns the canvas inside out, and NaN shows nothing until the edge is set again.
    void setMinX(double minimum, ZrQtPlot::CoordinateSystem cosy);
    void setMaxX(double maximum, ZrQtPlot::CoordinateSystem cosy);
    void setMinY(double minimum, ZrQtPlot::CoordinateSystem cosy);
    void setMaxY(double maximum, ZrQtPlot::CoordinateSystem cosy);

Q_SIGNALS:
    /// The visible range of \a cosy, adjusted to the aspect ratio if that is kept.
    void canvasChanged(QRectF canvas, ZrQtPlot::CoordinateSystem cosy);
    /// A mode was set, by the application, the user or an automatic return; also if it is the same as before.
    void scalingModeChanged(ZrQtPlot::ScalingMode scalingMode, ZrQtPlot::PlotAxis axis,
                            ZrQtPlot::CoordinateSystem cosy);

    /// A selection was finished by releasing the left button, in values of `selectionCosyX` and
    /// `selectionCosyY`: a rectangle whose width and height are not negative, both 0 after a mere click. Sent
    /// after canvasChanged() for each system in use; not sent after Escape.
    void selectionChanged(QRectF rect);
    void selectionChanged(QLineF line);
    /// A mouse button, any of them, went down over a plot that holds a ZrQtPlotChannel; in pixels of the plot
    /// area. The second press of a double click does not count.
    void pointPressed(QPoint channelPixel, Qt::MouseButton button);
    /// Likewise, while the cursor is in the plot area, in values of `selectionCosyX` and `selectionCosyY`,
    /// without regard to inverted axes.
    void mouseClicked(double x, double y, Qt::MouseButton button);
    /// The tooltip was hidden, whether or not it was shown before.
    void tooltipHidden();

protected:
    /// For subclasses that bring a private object of their own, of which the plot takes ownership.
    explicit ZrQtPlot(ZrQtPlotPrivate &d, QWidget *parent = nullptr);

    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

    QScopedPointer<ZrQtPlotPrivate> m_d;

private:
    Q_DISABLE_COPY(ZrQtPlot)
    Q_DECLARE_PRIVATE_D(m_d, ZrQtPlot)
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ZrQtPlot::PlotAxes)
Q_DECLARE_OPERATORS_FOR_FLAGS(ZrQtPlot::PlotUpdateRestrictions)

#endif // ZRQTPLOT_H
