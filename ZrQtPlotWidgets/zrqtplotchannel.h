#ifndef ZRQTPLOTCHANNEL_H
#define ZRQTPLOTCHANNEL_H

#include "zrqtbasechannel.h"

#include <QtCore/QLineF>
#include <QtCore/Qt>

class ZrQtPlotChannelPrivate;
class ZrQtPlotFeature;

/// A channel for geometry that the user may edit with the mouse: points, infinite lines, line segments,
/// rectangles, circles and one feature of the application's own.
///
/// \code
/// auto *channel = new ZrQtPlotChannel(plot);
/// channel->setRectangle(QRectF(2.0, 1.0, 3.0, 4.0));
/// channel->setEditable(true);
/// QObject::connect(channel, &ZrQtPlotChannel::rectanglesEdited, window, &Window::showStatistics);
/// \endcode
///
/// **Content** is in data units of cosyX() and cosyY(); top is the smaller y. Coordinates beyond ±1e300 are
/// stored as ±1e300. Setting content repaints and, where the extent changes, sends boundingRectChanged(). It
/// sends neither dataChanged() nor an edited signal. If the user is editing the content that is set, and the
/// mouse no longer points at it, the editing ends with editingActiveChanged(false).
///
/// **Editing.** While editable() is on, the user may drag single items and, per type, all items at the centre
/// of their extent; while movable() is on, the whole content at the centre of boundingRect(). Events that hit
/// no content are left to the plot. While the user drags, editingActive() is true; the edited signals follow
/// editingNotification(). At the release boundingRectChanged() comes first, then the edited signals, then
/// editingActiveChanged(false). Hiding the channel during a drag ends it in the same way, as soon as control
/// returns to the event loop.
///
/// A new channel is selected for display; without a parent it is a window of its own.
class ZRQTPLOTWIDGETS_EXPORT ZrQtPlotChannel : public ZrQtBaseChannel
{
    Q_OBJECT
    // Designer has no editor for lists of shapes.
    Q_PROPERTY(QVector<QPointF> points READ points WRITE setPoints DESIGNABLE false)
    Q_PROPERTY(QVector<QRectF> rectangles READ rectangles WRITE setRectangles DESIGNABLE false)
    Q_PROPERTY(QVector<QRectF> circles READ circles WRITE setCircles DESIGNABLE false)
    Q_PROPERTY(QVector<QLineF> lines READ lines WRITE setLines DESIGNABLE false)
    Q_PROPERTY(QVector<QLineF> lineSegments READ lineSegments WRITE setLineSegments DESIGNABLE false)
    Q_PROPERTY(bool editingActive READ editingActive NOTIFY editingActiveChanged)
    Q_PROPERTY(Qt::Orientations movementDirections READ movementDirections WRITE setMovementDirections)
    Q_PROPERTY(bool editable READ editable WRITE setEditable)
    Q_PROPERTY(bool pointsEditable READ pointsEditable WRITE setPointsEditable)
    Q_PROPERTY(bool circlesEditable READ circlesEditable WRITE setCirclesEditable)
    Q_PROPERTY(bool rectanglesEditable READ rectanglesEditable WRITE setRectanglesEditable)
    Q_PROPERTY(bool linesEditable READ linesEditable WRITE setLinesEditable)
    Q_PROPERTY(bool lineSegmentsEditable READ lineSegmentsEditable WRITE setLineSegmentsEditable)
    Q_PROPERTY(bool keepCenterAtResize READ keepCenterAtResize WRITE setKeepCenterAtResize)
    Q_PROPERTY(bool resizableFeatures READ resizableFeatures WRITE setResizableFeatures)
    Q_PROPERTY(bool movable READ movable WRITE setMovable)
    Q_PROPERTY(bool connectFirstAndLastPoint READ connectFirstAndLastPoint WRITE setConnectFirstAndLastPoint)
    Q_PROPERTY(bool pointsMovable READ pointsMovable WRITE setPointsMovable)
    Q_PROPERTY(bool circlesMovable READ circlesMovable WRITE setCirclesMovable)
    Q_PROPERTY(bool rectanglesMovable READ rectanglesMovable WRITE setRectanglesMovable)
    Q_PROPERTY(bool linesMovable READ linesMovable WRITE setLinesMovable)
    Q_PROPERTY(bool lineSegmentsMovable READ lineSegmentsMovable WRITE setLineSegmentsMovable)
    Q_PROPERTY(EditingNotification editingNotification READ editingNotification WRITE setEditingNotification)

public:
    /// The kinds of content.
    enum ContentType : int {
        None = 0,
        Points = 1,       ///< drawn as a polyline or polygon
        Lines = 2,        ///< infinite lines, drawn to the border of the canvas
        LineSegments = 4, ///< lines between two points
        Rectangles = 8,
        Circles = 0x10, ///< ellipses, given by the rectangles around them
        Custom = 0x20   ///< the application's own feature
    };
    Q_FLAG(ContentType)
    Q_DECLARE_FLAGS(ContentTypes, ContentType)
    Q_FLAG(ContentTypes)

    /// When the edited signals are sent while the user drags content.
    enum EditingNotification : int {
        NotifyNever = 0,
        NotifyAlways = 1,      ///< at every step of the drag, and once more at the release
        NotifyWhenFinished = 2 ///< at the release
    };
    Q_ENUM(EditingNotification)

    explicit ZrQtPlotChannel(QWidget *parent = nullptr);
    ~ZrQtPlotChannel() override;

    /// The union of the extents of all types of content, in data units. Infinite lines count with their part
    /// within the canvas. On purpose it does not shrink by clear() or by removing the feature, and follows a
    /// drag only at its end.
    QRectF boundingRect() override;

    /// Draws points, rectangles, circles, line segments, lines and the feature, in this order; while
    /// editable() is on also the handles and, where something can be moved, a cross. Nothing while the widget
    /// is hidden.
    ///
    /// The outline has lineColor(), lineStyle() and lineWidth(); content is filled solidly with fillColor()
    /// unless that is transparent (fillStyle() is not used). Whether the items of a type get a cross for
    /// moving them all is decided once per process, by the flags of the channel that is painted first.
    void paint(QPainter &painter) override;

    /// The points, drawn as a polyline in their order, or as a closed polygon if connectFirstAndLastPoint()
    /// is on or the last point equals the first.
    QVector<QPointF> points() const;
    void setPoints(const QVector<QPointF> &points);

    /// Rectangles. One that the user turns inside out is normalized at the release.
    QVector<QRectF> rectangles() const;
    void setRectangles(const QVector<QRectF> &rectangles);
    /// Replaces all rectangles by `rectangle`.
    void setRectangle(const QRectF &rectangle);

    /// Circles and ellipses, each given by the rectangle around it.
    QVector<QRectF> circles() const;
    void setCircles(const QVector<QRectF> &circles);
    /// Replaces all circles by `circle`.
    void setCircle(const QRectF &circle);

    /// Infinite lines, each given by two different points on it.
    QVector<QLineF> lines() const;
    void setLines(const QVector<QLineF> &lines);
    /// Replaces all lines by `line`.
    void setLine(const QLineF &line);

    /// Lines between two points.
    QVector<QLineF> lineSegments() const;
    void setLineSegments(const QVector<QLineF> &segments);
    /// Replaces all line segments by `segment`.
    void setLineSegment(const QLineF &segment);

    /// The application's own content; null by default. Not owned: see ZrQtPlotFeature. Setting a feature
    /// reads its extent, also if it is the same one, and takes it out of any other channel. Null removes the
    /// feature; its extent on purpose stays part of boundingRect().
    ZrQtPlotFeature *customFeature() const;
    void setCustomFeature(ZrQtPlotFeature *feature);

    /// Whether the user is editing: from the press of a button on content to its release.
    bool editingActive() const;

    /// Whether a drag of content is in progress.
    bool isDraggingFeature() const;

    /// The directions in which the user may drag; both by default. An outline that is dragged in a single
    /// direction keeps its size in the other one.
    Qt::Orientations movementDirections() const;
    void setMovementDirections(Qt::Orientations directions);

    /// Whether the user may change content at all, and handles are drawn; false by default. A change
    /// repaints.
    bool editable() const;
    void setEditable(bool editable);

    /// Whether the user may drag single points, while editable() is on; true by default. A change repaints.
    bool pointsEditable() const;
    void setPointsEditable(bool editable);
    /// Whether the user may drag single circles; as pointsEditable().
    bool circlesEditable() const;
    void setCirclesEditable(bool editable);
    /// Whether the user may drag single rectangles; as pointsEditable().
    bool rectanglesEditable() const;
    void setRectanglesEditable(bool editable);
    /// Whether the user may drag single infinite lines; as pointsEditable().
    bool linesEditable() const;
    void setLinesEditable(bool editable);
    /// Whether the user may drag single line segments and their ends; as pointsEditable().
    bool lineSegmentsEditable() const;
    void setLineSegmentsEditable(bool editable);

    /// Whether rectangles and circles are resized about their centre; false by default.
    bool keepCenterAtResize() const;
    void setKeepCenterAtResize(bool keep);

    /// Whether the user may resize items, not only move them; true by default. The ends of a line segment are
    /// dragged only then. A circle is then resized at
    /// its outline about its centre; otherwise it is moved there.
    bool resizableFeatures() const;
    void setResizableFeatures(bool resizable);

    /// Whether the user may move the whole content by the centre of boundingRect(), also while editable() is
    /// off; false by default. On purpose a change does not repaint.
    bool movable() const;
    void setMovable(bool movable);

    /// Whether the points are drawn as a closed polygon; false by default. A change repaints.
    bool connectFirstAndLastPoint() const;
    void setConnectFirstAndLastPoint(bool connectPoints);

    /// Whether the user may move all points together by the centre of their extent, while editable() is on;
    /// true by default. On purpose a change does not repaint.
    bool pointsMovable() const;
    void setPointsMovable(bool movable);
    /// Whether the user may move all circles together; as pointsMovable().
    bool circlesMovable() const;
    void setCirclesMovable(bool movable);
    /// Whether the user may move all rectangles together; as pointsMovable().
    bool rectanglesMovable() const;
    void setRectanglesMovable(bool movable);
    /// Whether the user may move all infinite lines together; as pointsMovable().
    bool linesMovable() const;
    void setLinesMovable(bool movable);
    /// Whether the user may move all line segments together; as pointsMovable().
    bool lineSegmentsMovable() const;
    void setLineSegmentsMovable(bool movable);

    /// When the edited signals are sent; `NotifyWhenFinished` by default.
    EditingNotification editingNotification() const;
    void setEditingNotification(EditingNotification notification);

public Q_SLOTS:
    /// Removes all content and repaints; the feature is not deleted. On purpose boundingRect() stays, and so
    /// does the extent of each type, until content of that type is set. Sends no edited signal. A drag goes
    /// on until its release.
    void clear() override;

Q_SIGNALS:
    /// The user changed points; sent with all of them, see editingNotification().
    ///
    /// If the whole content is moved, an edited signal follows for each type that has items, in the order
    /// points, lines, line segments, rectangles, circles, feature.
    void pointsEdited(QVector<QPointF> points);

    /// The user changed rectangles; sent with all of them. During a drag one may be turned inside out.
    void rectanglesEdited(QVector<QRectF> rectangles);

    /// The user changed circles; sent with the rectangles around all of them. As rectanglesEdited().
    void circlesEdited(QVector<QRectF> circles);

    /// The user moved the whole content, the feature with it.
    void customFeatureChanged();

    /// The user changed infinite lines; sent with all of them.
    void linesEdited(QVector<QLineF> lines);

    /// The user changed line segments; sent with all of them.
    void lineSegmentsEdited(QVector<QLineF> lineSegments);

    /// The user began (true) or ended (false) editing.
    void editingActiveChanged(bool editingActive);

protected:
    void updateTransform() override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    Q_DISABLE_COPY(ZrQtPlotChannel)
    Q_DECLARE_PRIVATE_D(m_d, ZrQtPlotChannel)
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ZrQtPlotChannel::ContentTypes)

#endif // ZRQTPLOTCHANNEL_H
