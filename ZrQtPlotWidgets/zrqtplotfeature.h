#ifndef ZRQTPLOTFEATURE_H
#define ZRQTPLOTFEATURE_H

#include "zrqtplotwidgets_global.h"

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QScopedPointer>
#include <QtCore/QSizeF>

class QPainter;
class ZrQtPlotChannel;
class ZrQtPlotFeaturePrivate;

/// Content of a ZrQtPlotChannel that the application draws itself, where points, lines, rectangles and
/// circles do not do. A channel shows at most one, and a feature is in one channel at most.
///
/// \code
/// class Target : public ZrQtPlotFeature
/// {
/// public:
///     void paint(QPainter &painter, QSizeF handleSize) override
///     {
///         painter.drawEllipse(m_center, 2.0, 2.0);
///         if (handleSize.isValid())
///             painter.drawRect(QRectF(m_center, handleSize));
///     }
///     void translate(QPointF offset) override { m_center += offset; }
///     QRectF boundingRectangle() override { return QRectF(m_center - QPointF(2, 2), QSizeF(4, 4)); }
///
/// private:
///     QPointF m_center{5.0, 5.0};
/// };
/// \endcode
///
/// **Ownership.** A channel does not own its feature: the application removes it with
/// ZrQtPlotChannel::setCustomFeature(nullptr) and then deletes it. A feature that is deleted while it is
/// installed takes itself out of its channel.
///
/// **Thread.** Only to be used in the GUI thread.
class ZRQTPLOTWIDGETS_EXPORT ZrQtPlotFeature
{
public:
    ZrQtPlotFeature();
    virtual ~ZrQtPlotFeature();

    /// Draws the feature. The painter has the pen, brush and smoothing of the channel and draws in data
    /// units; what the feature changes of it is taken back. `handleSize` is the size of a handle, 8 x 8
    /// pixels, in data units; it is not valid (-1 x -1) while the channel is not editable: then no handles
    /// are to be drawn. Called at every paint of the channel, after all other content.
    virtual void paint(QPainter &painter, QSizeF handleSize) = 0;

    /// Moves the feature by `offset`, in data units. Called when the user drags the whole content of the
    /// channel; the feature need not call update().
    virtual void translate(QPointF offset) = 0;

    /// The extent in data units; a null rectangle unless reimplemented, which adds nothing to the extent of
    /// the channel. Read only by ZrQtPlotChannel::setCustomFeature(): install the feature again after a
    /// change.
    virtual QRectF boundingRectangle();

    /// The channel that this feature was last installed in; null before, and after that channel died. It
    /// stays when the channel gets another feature.
    ZrQtPlotChannel *parentChannel() const;

    /// Repaints the channel; to be called after a change of appearance. Does nothing without a channel.
    void update();

private:
    Q_DISABLE_COPY(ZrQtPlotFeature)
    Q_DECLARE_PRIVATE_D(m_d, ZrQtPlotFeature)
    friend class ZrQtPlotChannel;

    void setParentChannel(ZrQtPlotChannel *channel);

    QScopedPointer<ZrQtPlotFeaturePrivate> m_d;
};

#endif // ZRQTPLOTFEATURE_H
