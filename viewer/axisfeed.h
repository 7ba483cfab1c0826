#ifndef VIEWER_AXISFEED_H
#define VIEWER_AXISFEED_H

#include "axisnumbers.h"
#include "commandline.h"

#include <QtCore/QObject>
#include <QtCore/QRectF>

#include <ZrQtPlotWidgets/zrqtplot.h>

class ZrQtAxis;

/// What the values of a canvas mean to the reader of an axis.
enum class AxisScale {
    Numbers,
    Logarithms, ///< the canvas is in decadic logarithms; the axis shows the numbers
    Dates,      ///< milliseconds, see WallClock
    TimesOfDay
};

/// Below this span, in milliseconds, a date axis writes times only.
constexpr double kHoursOnly = 129600000.0;

/// Stands between a plot and one of its axes, where the plot would hand its canvas over as it is:
///
/// - Channels draw linearly, also beside a logarithmic axis. So the channels hold logarithms, and the axis is
///   given the numbers that these stand for.
/// - A date axis writes no dates before 1970, and knows years only as 365 days. So for years on end, and
/// before
///   1970, the axis is given years, which it writes as numbers.
/// - The decimals of an axis limit its ticks. So they follow the range, as does a power of ten for large and
///   small numbers.
///
/// The axis stays in its coordinate system: inverting it, and dragging on it, concern the right channels.
class AxisFeed : public QObject
{
    Q_OBJECT

public:
    /// Takes over from the plot's own connection to \a axis, which has been added to \a plot and owns the
    /// feed.
    AxisFeed(ZrQtPlot *plot, ZrQtAxis *axis, AxisScale scale, const QString &label);

    void setNumberFormat(NumberFormat format) { m_numberFormat = format; }
    /// Ticks between those that are labelled; none at first. In the interval before the end of its range, an
    /// axis crowds them as if the interval were complete, so they are only for those who ask for them.
    void setSubTicks(bool on);
    /// A format for dates and times instead of the viewer's own. Empty: the viewer's.
    void setTimeFormat(const QString &format);

    /// Lets the user type the ends of the range, as long as the axis shows the numbers or times of the
    /// canvas: not years and powers, which a canvas does not count in, not dates, for which an axis has no
    /// field, and not where the fields would leave no room for labels.
    void setEditable(bool on) { m_editable = on; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void onCanvasChanged(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy);
    void refresh();
    AxisNumbers chooseNumbers(double low, double high);
    void showNumbers(double low, double high, const QString &label);
    void showLogarithms(double low, double high);
    void showTime(double low, double high);
    void showEditableNumbers(double low, double high, int decimals);
    bool showEditableTime(double low, double high);
    QString timeLabel(double low, double high) const;

    ZrQtAxis *m_axis;
    AxisScale m_scale;
    QString m_label;
    QString m_timeFormat;
    QRectF m_canvas;
    NumberFormat m_numberFormat = NumberFormat::Compact;
    bool m_hasCanvas = false;
    bool m_refreshing = false;
    bool m_ownTimeFormat = true;
    bool m_editable = false;
};

#endif // VIEWER_AXISFEED_H
