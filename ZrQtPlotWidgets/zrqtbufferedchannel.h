#ifndef ZRQTBUFFEREDCHANNEL_H
#define ZRQTBUFFEREDCHANNEL_H

#include "zrqtbasechannel.h"

class ZrQtBufferedChannelPrivate;

/// A channel for sampled data: one series of points, drawn as a polyline through all of them in their order,
/// with optional markers.
///
/// \code
/// auto *channel = new ZrQtBufferedChannel(plot);
/// channel->setLineColor(Qt::blue);
/// channel->setData({0.0, 0.5, 1.0}, {2.0, 3.0, 2.5});
/// \endcode
///
/// Points are in data units of cosyX() and cosyY(). Each setData() replaces the whole series. Coordinates
/// beyond ±1e300, infinities included, are stored as ±1e300; NaN is stored as NaN.
///
/// The bounding rectangle that a setter computes is that of the numbers as they are given, with its edges
/// limited to ±1e300. If NaN or infinities among them leave it without a usable edge, it is the extent of the
/// numbers after limiting them. A form with a rectangle takes it as it is and costs no look at the points.
///
/// A new channel is selected for display; without a parent it is a window of its own, as with any widget that
/// is shown. fillColor() and fillStyle() are not used.
class ZRQTPLOTWIDGETS_EXPORT ZrQtBufferedChannel : public ZrQtBaseChannel
{
    Q_OBJECT
    Q_PROPERTY(int channelNr READ channelNr WRITE setChannelNr)
    Q_PROPERTY(bool dataReduction READ dataReduction WRITE setDataReduction NOTIFY dataReductionChanged)

public:
    explicit ZrQtBufferedChannel(QWidget *parent = nullptr);
    ~ZrQtBufferedChannel() override;

    /// The rectangle that was last set or computed, in data units; null at first.
    QRectF boundingRect() override;

    /// Draws the polyline, if lineWidth() is at least 1, and the markers, if pointSize() is at least 1.
    /// Nothing while the widget is hidden.
    ///
    /// Without dataReduction(), a line that is one pixel wide is interrupted at points with NaN. What Qt
    /// makes of them in wider lines is not defined, and may smear across the plot: split the series at the
    /// gap into several channels.
    ///
    /// The polyline is moved to whole pixels, so that a series that scrolls in small steps does not shimmer.
    /// On purpose this counts from the left edge of the canvas also while the x axis is inverted; markers are
    /// not moved.
    void paint(QPainter &painter) override;

    /// A number that the application may attach to the channel; 0 at first. The library does not use it.
    int channelNr() const;

    bool dataReduction() const;

    /// Whether paint() draws only what makes a difference on the screen; false at first. Sends
    /// dataReductionChanged() and repaints.
    ///
    /// If x ascends (NaN and equal neighbours allowed), a picture then costs about as much for ten million
    /// samples as for ten thousand: of many samples in one column of pixels of the device, those are drawn
    /// that can be seen, with the first, lowest, highest and last among them, so that no spike is lost. An
    /// opaque, solid line that is one pixel wide and not antialiased is the plain line, but for single pixels
    /// at the tips of dense zigzags; other lines look like it. If x does not ascend, every sample is drawn,
    /// but opaque and solid lines that are wide or antialiased in short pieces, which does not take minutes.
    ///
    /// The first picture of new points looks at all of them once, and makes an index that speeds up all
    /// pictures that follow. It takes some 7 % of the memory of the points, more if there are many gaps,
    /// until they change or the property is switched off.
    ///
    /// A coordinate that is NaN, infinite, or stored as ±1e300, is a gap, whatever the width of the line. A
    /// sample between two gaps has no line, but its marker. More than eight gaps in one column of pixels are
    /// not told apart: the line goes from the lowest to the highest sample.
    ///
    /// Markers that fall on the same pixel are drawn once, and translucent ones as often as it shows; where
    /// there are many, crosses are moved by up to a quarter of a pixel.
    ///
    /// The plain line is the right choice for as many samples as there are columns of pixels; for translucent
    /// lines one pixel wide, which grow darker where many samples lie above each other only if all are drawn;
    /// for dashed ones: the dashes begin at the first sample that is drawn, and wide ones anew after each
    /// column that is filled because it holds many samples; and where the joints of wide or the greys of
    /// antialiased lines matter. All of them are reduced as well, but differ from the plain line where a
    /// column holds many samples. Wider translucent lines are mixed with the picture once, as the plain ones
    /// are. On a printer, in a PDF or QPicture, and under a painter that is turned or sheared, every sample
    /// is drawn in any case, with the same gaps. Wide lines may take long where a QPicture is played, and
    /// with composition modes that change what the line does not cover.
    void setDataReduction(bool on);

    /// The number of pixel columns that the channel covers: its width, and 0 if it is narrower than a pixel.
    /// For callers that want to thin their data; the channel itself draws every point unless dataReduction()
    /// is on.
    int reduceTo() const;

public Q_SLOTS:
    /// Sets the points (dataX[i], dataY[i]) and their bounding rectangle. Vectors of different length change
    /// nothing and print the warning "dataX and dataY have different sizes". Otherwise as the form with
    /// points and rectangle.
    void setData(const QVector<double> &dataX, const QVector<double> &dataY);

    /// Sets the points (dataX[i], dataY[i]) and the bounding rectangle. Vectors of different length change
    /// nothing, on purpose without a warning. The points are not compared with the old ones: every call sends
    /// boundingRectChanged() if the rectangle changed, then dataChanged(), and repaints.
    void setData(const QVector<double> &dataX, const QVector<double> &dataY, const QRectF &boundingRect);

    /// Sets the points and their bounding rectangle, as the form with points and rectangle.
    void setData(const QVector<QPointF> &points);

    /// Sets the points and the bounding rectangle. Points that differ from the old ones (Qt's fuzzy
    /// comparison of QPointF; points beyond ±1e300 and with NaN always differ) send dataChanged() and
    /// repaint. Then, in any case, setBoundingRect() follows. The vector is shared, and copied only to limit
    /// its coordinates.
    void setData(const QVector<QPointF> &points, const QRectF &boundingRect);

    /// Sets the points (startIdx, dataY[0]), (startIdx + step, dataY[1]), … and their bounding rectangle, as
    /// the form with points and rectangle. Each x is the one before plus `step`.
    void setData(const QVector<double> &dataY, double startIdx = 0.0, double step = 1.0);

    /// Limits the edges of `boundingRect` to ±1e300, and stores it and sends boundingRectChanged() if it
    /// differs from the old one (Qt's fuzzy comparison of QRectF, some twelve digits).
    void setBoundingRect(const QRectF &boundingRect);

    void setChannelNr(int arg);

    /// Removes all points and sets a null bounding rectangle.
    void clear() override;

Q_SIGNALS:
    /// After setDataReduction() changed the property.
    void dataReductionChanged(bool on);

private:
    Q_DISABLE_COPY(ZrQtBufferedChannel)
    Q_DECLARE_PRIVATE_D(m_d, ZrQtBufferedChannel)
};

#endif // ZRQTBUFFEREDCHANNEL_H
