#ifndef ZRQTAXIS_P_H
#define ZRQTAXIS_P_H

//
// This file is not part of the API. It exists for the convenience of the implementation and may change or
// vanish in any version.
//

#include "internal/axisgeometry_p.h"
#include "zrqtaxis.h"

#include <QtCore/QRectF>
#include <QtCore/QSharedPointer>
#include <QtCore/QStringList>
#include <QtGui/QStaticText>

#include <array>

QT_BEGIN_NAMESPACE
class QAbstractSpinBox;
class QDateTimeEdit;
class QDoubleSpinBox;
class QGraphicsProxyWidget;
class QGraphicsScene;
class QGraphicsView;
class QPainter;
QT_END_NAMESPACE
class ZrQtMakeAxis;

/// The edit field of one bound: a scene, so that it can be turned, with one editor for each format.
/// Everything is a descendant of the axis and deleted with it.
struct ZrQtAxisEditField
{
    QGraphicsScene *scene = nullptr;
    QGraphicsView *view = nullptr;
    QDoubleSpinBox *spinBox = nullptr;
    QDateTimeEdit *timeEditor = nullptr;
    QGraphicsProxyWidget *spinBoxProxy = nullptr;
    QGraphicsProxyWidget *timeEditorProxy = nullptr;
};

/// State of an axis and the chain that keeps it together:
///
///     range → engine → ticks in pixels → label texts → size → requestUpdate()
///
/// Every change enters the chain in updatePositions(), directly or by way of updateParameters(),
/// updateDrawMinMax() or onResize().
///
/// A copy holds the same values and *shares* the tick engine; the last owner deletes it. What `q` and the
/// edit fields point to belongs to the axis, never to this object or a copy.
class ZrQtAxisPrivate
{
public:
    explicit ZrQtAxisPrivate(ZrQtAxis *axis);
    ZrQtAxisPrivate(const ZrQtAxisPrivate &other);
    ~ZrQtAxisPrivate();

    /// What follows when the size of the axis has been computed.
    enum class Relayout {
        None,        ///< the caller lays the plot out itself
        WhenResized, ///< requestUpdate() if width or height changed
        Always       ///< requestUpdate() in any case
    };

    /// \name Update chain (zrqtaxis_update.cpp)
    /// \{
    void init();
    void handOverLength();
    void handOverParameters();
    void updateParameters();
    void updateDrawMinMax();
    void updatePositions(Relayout relayout);
    bool computePositions();
    void updateTicks();
    void updateTickLabels();
    void updateMinMargins();
    bool updateSize();
    bool fixExtent(int extent);
    void updateAxisLabelRect();
    void onResize();
    /// \}

    /// \name Painting (zrqtaxis_painting.cpp)
    /// \{
    void paint(QPainter *painter) const;
    void paintAxisLine(QPainter *painter) const;
    void paintTicks(QPainter *painter, const QVector<double> &positions, int size) const;
    void paintTickLabels(QPainter *painter) const;
    QTransform turnedTickText(int pixel, int textWidth) const;
    void paintAxisLabel(QPainter *painter) const;
    /// \}

    /// \name Editing in place (zrqtaxis_edit.cpp)
    /// \{
    void initMinMaxEditFields();
    ZrQtAxisEditField makeEditField();
    void releaseEditFields();
    std::array<QAbstractSpinBox *, 4> editors() const;
    bool editFieldsAreTurned() const;

    void updateSpinBoxDimensions();
    void updateSpinBoxAlignment();
    void updateEditFields();
    void placeEditField(const ZrQtAxisEditField &field, double tick);
    void keepEditFieldRanges();

    bool writesBoundLabels() const;
    QString boundLabel(bool isMin);
    void applyValueToEditBoxes(bool isMin, const QString &text);
    void applyNumber(QDoubleSpinBox *spinBox, double value);
    void applyTime(QDateTimeEdit *timeEditor, double value);
    void applyPrecisionToEditFields();
    void adaptPrecisionFromTickText(QDoubleSpinBox *spinBox, const QString &text);

    void applyMinFromEditField(bool timeEditor);
    void applyMaxFromEditField(bool timeEditor);
    void applyFromEditField(bool isMin, bool timeEditor);
    void handOverBound(bool isMin, double value);

    void appendStyle(const QString &piece);
    bool setFontForMinMaxSpinBox(QAbstractSpinBox *spinBox, const QFont &font);
    bool setFontForEditFields(const QFont &font);
    void clearFocusFromAbstractSpinBox(QAbstractSpinBox *spinBox);
    bool cursorAboveEditField(const QPoint &globalPos) const;
    /// \}

    bool isVertical() const { return AxisGeometry::isVertical(position); }
    bool showsTime() const
    {
        return labelFormat == ZrQtAxis::DateTime || labelFormat == ZrQtAxis::TimePlusMs;
    }
    AxisGeometry::Along along() const;
    int fontHeight() const;

    /// A tick label as it is painted.
    struct TickLabel
    {
        QStaticText text;
        int width = 0; ///< advance in the widget font
    };

    ZrQtAxis *q;
    QStaticText axisLabel;
    QColor labelColor = Qt::black;
    int minMarginLow = 0;
    int minMarginHigh = 0;
    QStringList tickTexts;         ///< texts of the current ticks
    QVector<TickLabel> tickLabels; ///< the same, laid out in tickLabelFont
    QFont tickLabelFont;
    double min = 0.0; ///< visible range, with axisOffset
    double max = 1.0;
    double unitFactor = 1.0;
    bool minMaxEditable = false;
    bool drawingRangeLimited = false;
    double drawMin = 0.0;          ///< requested drawing limit
    double effectiveDrawMin = 0.0; ///< end of the range that is ticked
    double drawMax = 1.0;
    double effectiveDrawMax = 1.0;
    Qt::Edge position = Qt::LeftEdge;
    int marginLow = 0; ///< half of the font's height at first
    int marginHigh = 0;
    int maxTicks = 10;
    int maxSubTicks = 4;
    bool equalSpaced = false;
    double tickDistance = 60.0;
    double subTickDistance = 20.0;
    int precision = 1;
    bool allowIncreasedPrecision = true;
    bool showBoundLabels = true;
    double axisLength = 0.0; ///< pixels, as the engine knows them: as of the last resize
    QSharedPointer<ZrQtMakeAxis> engine;
    QFont axisLabelFont;
    QRectF axisLabelRect;
    int axisLinePos = 0;
    QRectF tickTextRect; ///< widest tick text, font height
    int tickTextPos = 0;
    int axisLabelPos = 0;
    ZrQtPlot::CoordinateSystem cosy = ZrQtPlot::COSY_0;
    bool logarithmic = false;
    int tickSize = 10;
    int subTickSize = 5;
    bool inverted = false;
    QSize sizeHint;
    bool verticalYLabel = false;
    bool verticalXTickTexts = false;
    bool drawAxisLine = true;
    ZrQtAxis::LabelFormat labelFormat = ZrQtAxis::Compact;
    bool scientificExponent = false;
    bool equalExponent = false;
    QString timeFormat = QStringLiteral("%hh:%mm:%ss");
    QVector<double> tickPositions; ///< pixels along the axis
    QVector<double> subTickPositions;
    bool useForGrid = false;
    double axisOffset = 0.0;
    ZrQtAxisEditField minEdit;
    ZrQtAxisEditField maxEdit;
    int editMargin = 0;        ///< frame of the edit fields around a tick text; 0 while there are none
    bool applyingEdit = false; ///< a bound that the user typed is being handed over
    bool updating = false;     ///< updatePositions() is at work
    bool updateAgain = false;  ///< something changed meanwhile

private:
    ZrQtAxisPrivate &operator=(const ZrQtAxisPrivate &) = delete;
};

#endif // ZRQTAXIS_P_H
