#ifndef ZRQTAXIS_H
#define ZRQTAXIS_H

#include "zrqtplot.h"
#include "zrqtplotwidgets_global.h"

#include <QtCore/QScopedPointer>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtWidgets/QWidget>

class ZrQtAxisPrivate;

/// One scale: an axis line with ticks, sub-ticks, tick labels and an axis label.
///
/// As a child of a ZrQtPlot an axis stands on one side of the plot area and follows the canvas of one
/// coordinate system in one direction: y on the left and right, x at the top and bottom. It also works alone,
/// beside any widget; then the application sets its range with setMinMax().
///
/// \code
/// auto *axis = new ZrQtAxis(plot);
/// axis->setPosition(Qt::BottomEdge);
/// axis->setAxisLabel(tr("time in s"));
/// \endcode
///
/// **Size.** The axis fixes its own width (left, right) or height (top, bottom) to what its labels need and
/// leaves the other direction free. The *low* end of a vertical axis is its lower end, that of a horizontal
/// one its left end, also if the axis is inverted.
///
/// **Values.** minimum, maximum and drawing range are in data units of the coordinate system; milliseconds
/// since the epoch with a date/time format. A range that holds NaN or an infinity, one that is empty or
/// reversed, and a logarithmic one that is not positive show no ticks.
///
/// **Setters** that receive the value already stored do nothing, unless their comment says otherwise. All
/// other changes compute ticks and size anew and repaint.
///
/// **Thread.** Like all widgets, only to be used in the GUI thread.
class ZRQTPLOTWIDGETS_EXPORT ZrQtAxis : public QWidget
{
    Q_OBJECT

    Q_PROPERTY(double min READ min WRITE setMin)
    Q_PROPERTY(double max READ max WRITE setMax)
    Q_PROPERTY(double unitFactor READ unitFactor WRITE setUnitFactor)
    Q_PROPERTY(double axisOffset READ axisOffset WRITE setAxisOffset)
    Q_PROPERTY(bool drawingRangeLimited READ drawingRangeLimited WRITE setDrawingRangeLimited)
    Q_PROPERTY(double drawMin READ drawMin WRITE setDrawMin)
    Q_PROPERTY(double drawMax READ drawMax WRITE setDrawMax)

    Q_PROPERTY(Qt::Edge position READ position WRITE setPosition)
    Q_PROPERTY(ZrQtPlot::CoordinateSystem cosy READ cosy WRITE setCosy)
    Q_PROPERTY(bool inverted READ inverted WRITE setInverted)
    Q_PROPERTY(bool logarithmic READ logarithmic WRITE setLogarithmic)
    Q_PROPERTY(bool useForGrid READ useForGrid WRITE setUseForGrid)
    Q_PROPERTY(int minMarginLow READ minMarginLow)
    Q_PROPERTY(int minMarginHigh READ minMarginHigh)
    Q_PROPERTY(int marginLow READ marginLow WRITE setMarginLow)
    Q_PROPERTY(int marginHigh READ marginHigh WRITE setMarginHigh)

    Q_PROPERTY(int maxTicks READ maxTicks WRITE setMaxTicks)
    Q_PROPERTY(int maxSubTicks READ maxSubTicks WRITE setMaxSubTicks)
    Q_PROPERTY(bool equalSpaced READ equalSpaced WRITE setEqualSpaced)
    Q_PROPERTY(double tickDistance READ tickDistance WRITE setTickDistance)
    Q_PROPERTY(double subTickDistance READ subTickDistance WRITE setSubTickDistance)
    Q_PROPERTY(int tickSize READ tickSize WRITE setTickSize)
    Q_PROPERTY(int subTickSize READ subTickSize WRITE setSubTickSize)
    Q_PROPERTY(bool drawAxisLine READ drawAxisLine WRITE setDrawAxisLine)

    Q_PROPERTY(LabelFormat labelFormat READ labelFormat WRITE setLabelFormat)
    Q_PROPERTY(int precision READ precision WRITE setPrecision)
    Q_PROPERTY(bool allowIncreasedPrecision READ increasedPrecisionAllowed WRITE setAllowIncreasedPrecision)
    Q_PROPERTY(bool showBoundLabels READ showBoundLabels WRITE setShowBoundLabels)
    Q_PROPERTY(bool scientificExponent READ scientificExponent WRITE setScientificExponent)
    Q_PROPERTY(bool equalExponent READ equalExponent WRITE setEqualExponent)
    Q_PROPERTY(QString timeFormat READ timeFormat WRITE setTimeFormat)
    Q_PROPERTY(bool verticalXTickTexts READ verticalXTickTexts WRITE setVerticalXTickTexts)

    Q_PROPERTY(bool minMaxEditable READ minMaxEditable WRITE setMinMaxEditable DESIGNABLE
                   minMaxEditablePropertyDesignable)

    Q_PROPERTY(QString axisLabel READ axisLabel WRITE setAxisLabel)
    Q_PROPERTY(QFont axisLabelFont READ axisLabelFont WRITE setAxisLabelFont)
    Q_PROPERTY(bool verticalYLabel READ verticalYLabel WRITE setVerticalYLabel)
    Q_PROPERTY(QColor labelColor READ labelColor WRITE setLabelColor)

public:
    /// How tick values are written.
    enum LabelFormat : int {
        FloatingPoint = 0, ///< 1500.0
        Exponential = 1,   ///< 1.5e+03
        Compact = 2,       ///< plain up to an exponent of 5, then with exponent
        DateTime = 3,      ///< date and time, written with timeFormat()
        TimePlusMs = 4     ///< time of day with milliseconds
    };
    Q_ENUM(LabelFormat)

    /// An axis on the left, from 0 to 1, in `COSY_0`. A parent that is a ZrQtPlot registers it.
    explicit ZrQtAxis(QWidget *parent = nullptr);
    ~ZrQtAxis() override;

    /// \name Range
    /// \{

    /// Visible range in data units, 0 to 1 by default; axisOffset() is contained.
    double min() const;
    double max() const;

    /// Shows \a minimum to \a maximum, each with axisOffset() added to it. Computes everything anew, and
    /// repaints, only if one of the bounds changes.
    void setMinMax(double minimum, double maximum);
    /// The same with the other bound as it is stored. On purpose the offset, which that bound holds already,
    /// is added to it once more: with an axisOffset() of 5, setMin() moves max() up by 5.
    void setMin(double minimum);
    void setMax(double maximum);

    /// Factor by which tick values are multiplied before they are chosen and written, for a unit other than
    /// that of the data; 1 by default. With 0, a negative factor, an infinity or NaN there are no ticks.
    /// Ignored by `DateTime` and `TimePlusMs`.
    double unitFactor() const;
    void setUnitFactor(double factor);

    /// Added to every range that setMinMax() receives; 0 by default. The current range stays as it is; the
    /// ticks are computed anew, also if the offset is the same.
    double axisOffset() const;
    void setAxisOffset(double offset);

    /// Whether only the part of the range from drawMin() to drawMax() gets a line and ticks; off by default.
    /// Switching it on ends minMaxEditable(). Computes everything anew also if the value is the same.
    bool drawingRangeLimited() const;
    void setDrawingRangeLimited(bool limited);

    /// The limits, as they were set, in data units; 0 and 1 by default. What lies outside min() to max() has
    /// no effect. Computes everything anew also if the value is the same.
    double drawMin() const;
    void setDrawMin(double minimum);
    double drawMax() const;
    void setDrawMax(double maximum);
    void setDrawMinMax(double minimum, double maximum);
    /// \}

    /// \name Place
    /// \{

    /// The side of the plot on which the axis stands; `Qt::LeftEdge` by default. Always emits requestUpdate()
    /// when it changes. A combination of edges is stored, but is no place: the axis then keeps its width and
    /// height. One that joins a vertical with a horizontal edge also sets the size policy: width `Fixed`,
    /// height `MinimumExpanding`; a single edge does not set it back.
    Qt::Edge position() const;
    void setPosition(Qt::Edge edge);

    /// The system whose canvas the axis follows, `COSY_0` by default. A change has no effect before the next
    /// canvas arrives.
    ZrQtPlot::CoordinateSystem cosy() const;
    void setCosy(ZrQtPlot::CoordinateSystem cosy);

    /// Whether the values grow from right to left or downwards; off by default. A change emits axisInverted()
    /// after the axis is laid out.
    bool inverted() const;
    void setInverted(bool inverted);

    /// Whether the scale is logarithmic; off by default.
    bool logarithmic() const;
    void setLogarithmic(bool logarithmic);

    /// Whether the grid of the plot takes its lines from this axis; off by default. Neither the axis nor the
    /// plot is repainted.
    bool useForGrid() const;
    void setUseForGrid(bool use);

    /// Pixels that the labels at the ends of the axis need beyond these ends.
    int minMarginLow() const;
    int minMarginHigh() const;

    /// Pixels left free at the low and high end, half of the font's height by default. A value below
    /// minMarginLow() (minMarginHigh()) is raised to it; on purpose, repeating such a value lays the axis out
    /// again. On purpose, ticks are chosen for the new length only when the axis is resized.
    int marginLow() const;
    void setMarginLow(int margin);
    int marginHigh() const;
    void setMarginHigh(int margin);

    /// True unless the parent is a ZrQtPlot. On purpose the exact class is asked for: in a subclass of
    /// ZrQtPlot an axis counts as standing alone, although what the user types in it moves the canvas there,
    /// too; see setMinMaxEditable(). An axis without parent stands alone.
    bool isStandalone() const;
    /// \}

    /// \name Ticks
    /// \{

    /// Most ticks, 10 by default; less than 2 gives the two ends of the range only, and more than 100000 are
    /// never made.
    int maxTicks() const;
    void setMaxTicks(int count);

    /// Most sub-ticks between two ticks, 4 by default; a negative number counts as 0. A logarithmic axis has
    /// 8 in each decade (when 8 or more are allowed) or none. There are never more than 100000 in a range.
    int maxSubTicks() const;
    void setMaxSubTicks(int count);

    /// Whether ticks divide the range into equal parts instead of standing at round values; off by default.
    /// Ignored on a logarithmic axis.
    bool equalSpaced() const;
    void setEqualSpaced(bool equal);

    /// Least distance of ticks and of sub-ticks in pixels; 60 and 20 by default. 0 means no limit; negative
    /// numbers and NaN count as 0. The distance of ticks counts as half of the length of the axis at most, so
    /// that both ends find room, that of sub-ticks as the whole length.
    double tickDistance() const;
    void setTickDistance(double distance);
    double subTickDistance() const;
    void setSubTickDistance(double distance);

    /// Length of ticks and sub-ticks in pixels, 10 and 5 by default; 0 or less draws none.
    int tickSize() const;
    void setTickSize(int size);
    int subTickSize() const;
    void setSubTickSize(int size);

    /// Whether the axis line is drawn; on by default. On purpose a change does not repaint.
    bool drawAxisLine() const;
    void setDrawAxisLine(bool draw);

    /// Pixels of the ticks and sub-ticks along the widget, from its left side or its top.
    QVector<double> tickPositions() const;
    QVector<double> subTickPositions() const;
    /// \}

    /// \name Tick labels
    /// Tick labels are written in the font of the widget.
    /// \{

    /// `Compact` by default. Choosing `TimePlusMs` also sets timeFormat() to "%hh:%mm:%ss.%Ms".
    LabelFormat labelFormat() const;
    void setLabelFormat(LabelFormat format);
    bool isLabelFormatNonDateTime() const;               ///< plain number, with exponent, or compact
    bool isLabelFormatFloatingPointOrTimePlusMs() const; ///< one of the formats that can be edited in place

    /// Decimals of tick labels and of the edit fields; 1 by default. The value is stored as it is set; labels
    /// limit it to -1 (tens) ... 15, edit fields to what QDoubleSpinBox takes. Where a rounded label would
    /// stand too far from its value it gets more decimals, up to 17.
    int precision() const;
    void setPrecision(int decimals);

    /// Whether the ends of the range may be written with more decimals than precision(); on by default. While
    /// it is off:
    /// - sub-ticks at and beyond the ends of the range are left out;
    /// - an axis whose minMaxEditable() is on writes the labels of its two outer ticks itself, with exactly
    ///   precision() decimals, or as a time with milliseconds; and
    /// - where there would be no ticks, such an axis has one at either end, so that its edit fields stay.
    ///
    /// Labels between the ends get the decimals that they need in either case. Switching it off sets the
    /// decimals of both edit fields back to precision().
    bool increasedPrecisionAllowed() const;
    void setAllowIncreasedPrecision(bool allow);

    /// Whether the ends of the range get a tick and a label; on by default.
    bool showBoundLabels() const;
    void setShowBoundLabels(bool show);

    /// Whether exponents are multiples of three; off by default. Without effect on `FloatingPoint` and on a
    /// logarithmic axis.
    bool scientificExponent() const;
    void setScientificExponent(bool scientific);

    /// Whether all labels share one exponent, which they do not show; off by default. Only for `Exponential`;
    /// ignored on a logarithmic axis.
    bool equalExponent() const;
    void setEqualExponent(bool equal);

    /// Placeholders for date and time such as "%dd.%MM.%yyyy", "%hh:%mm:%ss" (the default) or "%Ms";
    /// ZrQtMakeAxis::setTimeFormat() lists them all. Several lines, separated by "\r\n", serve different zoom
    /// levels: a line that begins with a number of milliseconds and a tab is used for shorter ranges only.
    /// Characters outside Latin-1 are lost.
    QString timeFormat() const;
    void setTimeFormat(const QString &format);

    /// Whether the tick labels of a horizontal axis are turned to read upwards; off by default.
    bool verticalXTickTexts() const;
    void setVerticalXTickTexts(bool vertical);
    /// \}

    /// \name Editing in place
    /// \{

    /// Whether the first and the last tick label are edit fields in which the user types a new minimum and
    /// maximum; off by default. Only `FloatingPoint` (a number) and `TimePlusMs` (a time of day) have such
    /// fields: with another format the property stays off, and choosing one switches it off. It excludes
    /// drawingRangeLimited(): of these two, what is switched on last switches the other one off. Computes
    /// everything anew also if the value is the same.
    ///
    /// A value is taken over when the user presses Return or leaves the field. In a ZrQtPlot, also in a
    /// subclass where isStandalone() is true, it moves the edge of the canvas; elsewhere it is handed to
    /// setMinMax(), which adds axisOffset() to it and to the other bound. Numbers are written with a decimal
    /// point whatever the locale. On purpose unitFactor() is not applied to what is typed. The fields are
    /// hidden while there are no ticks.
    bool minMaxEditable() const;
    void setMinMaxEditable(bool editable);
    bool minMaxNonEditable() const;
    /// Whether Qt Designer offers the property: for the formats that can be edited.
    bool minMaxEditablePropertyDesignable() const;
    /// \}

    /// \name Axis label
    /// \{

    /// Plain text beside the scale; empty by default.
    QString axisLabel() const;
    void setAxisLabel(const QString &label);

    /// Font of the axis label; QFont() by default. What it leaves open is painted as in the font of the
    /// widget but measured as in that of the application: where these differ, set a complete font.
    QFont axisLabelFont() const;
    void setAxisLabelFont(const QFont &font);

    /// Whether the axis label of a vertical axis is turned to read upwards; off by default.
    bool verticalYLabel() const;
    void setVerticalYLabel(bool vertical);

    /// Colour of tick labels, edit fields and axis label; black by default. Line and ticks are always black.
    QColor labelColor() const;
    void setLabelColor(const QColor &color);
    /// \}

    /// Computes ticks and size anew, without requestUpdate().
    void updateAxis();

    /// The width (left, right) or height (top, bottom) that the axis needs; the other dimension, and both
    /// before the axis is laid out for the first time, are invalid (-1).
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// Shows the range of \a canvas in the direction of this axis. A canvas of another system than cosy() is
    /// ignored.
    void onCanvasChanged(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy);

Q_SIGNALS:
    /// The plot is to lay itself out again: position() changed, the axis is shown, or it got another width
    /// (left, right) or height (top, bottom). Any setter, a new font and a resize event can bring the last of
    /// these; updateAxis() and setAxisOffset() never emit the signal. It is the last thing that an update
    /// does: the axis is up to date, and a receiver may delete it.
    void requestUpdate();
    /// inverted() changed. \a axis is the direction of the axis in the plot. Comes after requestUpdate().
    void axisInverted(ZrQtPlot::PlotAxis axis, ZrQtPlot::CoordinateSystem cosy, bool inverted);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

    QScopedPointer<ZrQtAxisPrivate> m_d;

private:
    Q_DISABLE_COPY(ZrQtAxis)
    Q_DECLARE_PRIVATE_D(m_d, ZrQtAxis)
    friend class ZrQtPlot;
    friend class ZrQtPlotPrivate;
};

#endif // ZRQTAXIS_H
