#ifndef ZRQTPLOTSLIDER_H
#define ZRQTPLOTSLIDER_H

#include "zrqtplot.h"

class ZrQtPlotSliderPrivate;

/// An overview strip that couples two plots along x. It lies inside a *master* plot, which shows all data;
/// two vertical handles mark a range of the master's canvas. A *slave* plot shows exactly that range:
/// dragging the handles sets its canvas, and panning or zooming it moves the handles.
///
/// \code
/// auto *slider = new ZrQtPlotSlider(overview);    // a child of the master registers itself
/// detail->connectSlider(slider);                  // detail is the slave
/// \endcode
///
/// A handle can be dragged alone, which resizes the selection; dragging between the handles moves both. Any
/// mouse button drags. A handle that is grabbed jumps with its outer side to the mouse. The handles keep a
/// distance of at least one pixel between them and stay within the strip.
///
/// The slider does not know its plots, only their canvases. Therefore the handles do not move when the
/// master's canvas changes, but with the next canvas of the slave, the next drag or the next resize. Canvases
/// that are not finite do not move the handles; while the width of the master canvas is not greater than 0,
/// pixels cannot be translated, and the selection stays as it is whatever the user drags.
///
/// **Ownership.** Like any widget, owned by its parent; a plot that it is added to becomes its parent. It may
/// be deleted at any time, also in a slot connected to selectionChanged().
///
/// **Thread.** Only to be used in the GUI thread.
class ZRQTPLOTWIDGETS_EXPORT ZrQtPlotSlider : public QWidget
{
    Q_OBJECT

    Q_PROPERTY(
        ZrQtPlot::CoordinateSystem masterCosy READ masterCosy WRITE setMasterCosy NOTIFY masterCosyChanged)
    Q_PROPERTY(ZrQtPlot::CoordinateSystem slaveCosy READ slaveCosy WRITE setSlaveCosy NOTIFY slaveCosyChanged)
    Q_PROPERTY(bool updateWhileDragging READ updateWhileDragging WRITE setUpdateWhileDragging)
    Q_PROPERTY(QColor slaveHandleColor READ slaveHandleColor WRITE setSlaveHandleColor)
    Q_PROPERTY(Qt::PenStyle slaveHandlePen READ slaveHandlePen WRITE setSlaveHandlePen)

public:
    /// Creates a slider for the systems `COSY_0` of both plots. If \a parent is a plot, the slider registers
    /// itself with it as its master.
    explicit ZrQtPlotSlider(QWidget *parent = nullptr);
    ~ZrQtPlotSlider() override;

    /// The coordinate system of the master plot whose x range the strip spans. Default: `COSY_0`. The setter
    /// emits masterCosyChanged() if the system is another one; the strip spans the new system as soon as its
    /// next canvas arrives.
    ZrQtPlot::CoordinateSystem masterCosy() const;
    void setMasterCosy(ZrQtPlot::CoordinateSystem cosy);

    /// The coordinate system of the slave plot that the selection drives. Default: `COSY_0`. The setter emits
    /// slaveCosyChanged() if the system is another one.
    ZrQtPlot::CoordinateSystem slaveCosy() const;
    void setSlaveCosy(ZrQtPlot::CoordinateSystem cosy);

    /// True (the default): selectionChanged() is emitted with every mouse move of a drag, and not at its end.
    /// False: only when a mouse button is released.
    bool updateWhileDragging() const;
    void setUpdateWhileDragging(bool on);

    /// The colour of a handle at rest. Default: `Qt::gray`. The setter also makes the colour of a handle that
    /// is dragged or under the mouse: the same one with its alpha raised by 50, to at most 255. Until the
    /// first call that one is an opaque blue.
    QColor slaveHandleColor() const;
    void setSlaveHandleColor(const QColor &color);

    /// The style of the black outline of the handles, one pixel wide. Default: `Qt::SolidLine`.
    Qt::PenStyle slaveHandlePen() const;
    void setSlaveHandlePen(Qt::PenStyle style);

    /// True while the left edge of the selection is being dragged, alone or with the whole selection.
    bool leftDragging() const;
    /// True while the right edge of the selection is being dragged, alone or with the whole selection.
    bool rightDragging() const;

public Q_SLOTS:
    /// Takes the canvas of the master plot, in data units; only its x range counts. Ignored if \a cosy is not
    /// masterCosy() or the x range is the one already known. The handles do not move. During a drag with
    /// updateWhileDragging() the selection becomes the range that the handles show now, and
    /// selectionChanged() is emitted.
    ///
    /// The last canvas that arrives while selectionChanged() is being emitted counts only once the drag is
    /// over, and on purpose emits nothing, so that one plot can be master and slave at once.
    void onMasterCanvasChanged(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy);

    /// Takes the canvas of the slave plot, in data units: it becomes the selection, and the handles move
    /// there. Nothing is emitted. Ignored if \a cosy is not slaveCosy() or the x range is not finite.
    ///
    /// An edge outside the master's canvas is placed at the end of the strip, and the selection ends there.
    /// On purpose the left handle moves first and is stopped by the place that the right one has before; its
    /// side of the selection then follows it.
    void onSlaveCanvasChanged(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy);

Q_SIGNALS:
    /// The user selected the x range of \a selection, in data units of the master, for the system
    /// \a slaveCosy of the slave. A selection that comes from the handles has the height 0: a slave takes its
    /// x range and keeps its y range. \a selfTriggered is always true.
    ///
    /// With updateWhileDragging(), emitted once per mouse move of a drag and when the master's canvas changes
    /// during one; without, once per release of a mouse button, even if nothing was dragged.
    void selectionChanged(QRectF selection, ZrQtPlot::CoordinateSystem slaveCosy, bool selfTriggered);

    /// For applications that have a use for it; the slider itself never emits it.
    void posChanged(double pos);
    /// For applications that have a use for it; the slider itself never emits it.
    void sizeChanged(double size);

    void masterCosyChanged(ZrQtPlot::CoordinateSystem cosy);
    void slaveCosyChanged(ZrQtPlot::CoordinateSystem cosy);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(ZrQtPlotSlider)
    Q_DECLARE_PRIVATE_D(m_d, ZrQtPlotSlider)

    QScopedPointer<ZrQtPlotSliderPrivate> m_d;
};

#endif // ZRQTPLOTSLIDER_H
