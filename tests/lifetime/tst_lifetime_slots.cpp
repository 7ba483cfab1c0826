#include "mortalscene.h"
#include "shared/quiettest.h"

#include <QtCore/QMetaMethod>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>

#include <memory>
#include <vector>

/// An end inside of a slot: of every kind, by every way, in a slot of every signal that anything sends, the
/// first and the last time that an action sends it.
class TestLifetimeSlots : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { tolerateMessages(platformExcuses()); }

    void everySignalIsSent();
    void endInASlot_data();
    void endInASlot();
};

namespace {

/// Something that makes signals. Between two calls anything may be gone.
struct Action
{
    const char *name;
    void (*run)(MortalScene &);
};

void drag(MortalScene &scene, const QPoint &from, const QPoint &to)
{
    scene.moveMouseTo(from);
    scene.pressAt(from);
    scene.moveMouseTo((from + to) / 2);
    scene.moveMouseTo(to);
    scene.releaseAt(to);
}

void dragInMode(MortalScene &scene, ZrQtPlot::Interaction mode)
{
    if (scene.plot)
        scene.plot->setInteraction(mode);
    drag(scene, {100, 100}, {200, 150});
}

/// Pixel of the plot where the content around (50, 50) lies.
QPoint middle(MortalScene &scene)
{
    return scene.editable && scene.plot && scene.plot->isAncestorOf(scene.editable)
               ? scene.editable->mapTo(scene.plot, scene.editable->mapToPixel({50, 50}))
               : QPoint();
}

void dragContent(MortalScene &scene)
{
    if (scene.editable)
        scene.editable->setEditingNotification(ZrQtPlotChannel::NotifyAlways);
    const QPoint from = middle(scene);
    drag(scene, from, from + QPoint(20, 20));
}

void typeIntoAxis(MortalScene &scene)
{
    if (scene.axis)
        scene.axis->setLabelFormat(ZrQtAxis::FloatingPoint);
    if (scene.axis)
        scene.axis->setMinMaxEditable(true);
    if (!scene.axis)
        return;
    const QGraphicsScene *field = scene.axis->findChild<QGraphicsScene *>();
    const QList<QGraphicsItem *> items = field->items();
    for (QGraphicsItem *item : items) {
        const auto *proxy = qgraphicsitem_cast<QGraphicsProxyWidget *>(item);
        auto *box = proxy ? qobject_cast<QDoubleSpinBox *>(proxy->widget()) : nullptr;
        if (!box)
            continue;
        box->setValue(-3.0);
        Q_EMIT box->editingFinished();
        return;
    }
}

using S = MortalScene;
// clang-format off
const Action actions[] = {
    {"setCanvas()", [](S &s) { if (s.plot) s.plot->setCanvas(QRectF(1, 2, 3, 4), ZrQtPlot::COSY_0); }},
    {"setMinX()", [](S &s) { if (s.plot) s.plot->setMinX(-50, ZrQtPlot::COSY_0); }},
    {"setMaxY()", [](S &s) { if (s.plot) s.plot->setMaxY(500, ZrQtPlot::COSY_0); }},
    {"setScaling()", [](S &s) { if (s.plot) s.plot->setScaling(ZrQtPlot::KeepAtHead, ZrQtPlot::COSY_0); }},
    {"setDefaultScalingX()", [](S &s) { if (s.plot) s.plot->setDefaultScalingX(ZrQtPlot::Manual); }},
    {"setInitialCanvas()", [](S &s) { if (s.plot) s.plot->setInitialCanvas(QRectF(1, 2, 3, 4)); }},
    {"setKeepAspectRatio()", [](S &s) { if (s.plot) s.plot->setKeepAspectRatio(true); }},
    {"resize() with a fixed aspect ratio", [](S &s) {
        if (s.plot) s.plot->setKeepAspectRatio(true);
        if (s.plot) s.plot->resize(300, 300); }},
    {"a canvas margin after new data", [](S &s) {
        if (s.editable) s.editable->setUseForScaling(false);
        if (s.editable) s.editable->setRectangle(QRectF(-500, -500, 1, 1));
        if (s.plot) s.plot->setCanvasMarginLeft(0.3); }},
    {"setUseEmptyBoundingRectsForAutoFitScaling()", [](S &s) {
        if (s.buffered) s.buffered->setData(QVector<QPointF>{{500, 500}});
        if (s.plot) s.plot->setUseEmptyBoundingRectsForAutoFitScaling(true); }},
    {"setGenerateLegend()", [](S &s) {
        if (s.buffered) s.buffered->setName(QStringLiteral("name"));
        if (s.plot) s.plot->setGenerateLegend(true); }},
    {"setMinMarginLeft()", [](S &s) { if (s.plot) s.plot->setMinMarginLeft(90); }},
    {"addSlider()", [](S &s) { if (s.plot) s.plot->addSlider(new ZrQtPlotSlider); }},
    {"connectSlider()", [](S &s) { if (s.other && s.slider) s.other->connectSlider(s.slider); }},
    {"removeChannel()", [](S &s) {
        if (s.plot) s.plot->setScaling(ZrQtPlot::Custom, ZrQtPlot::COSY_0);
        if (s.plot && s.buffered) s.plot->removeChannel(s.buffered); }},
    {"addChannel()", [](S &s) {
        if (s.plot && s.buffered) s.plot->removeChannel(s.buffered);
        if (s.plot && s.buffered) s.plot->addChannel(s.buffered); }},
    {"addAxis()", [](S &s) {
        if (s.plot && s.axis) s.plot->removeAxis(s.axis);
        if (s.axis) s.axis->setInverted(true);
        if (s.plot && s.axis) s.plot->addAxis(s.axis);
        if (s.axis) s.axis->show(); }},
    {"the death of a channel", [](S &s) {
        const QObject *dying = s.buffered;
        s.buffered.clear();
        s.childDies = true;
        delete dying;
        s.childDies = false; }},
    {"wheel on the plot", [](S &s) { if (s.plot) turnWheel(s.plot, {100, 100}, towardsUser); }},
    {"wheel on the axis", [](S &s) { if (s.axis) turnWheel(s.axis, {100, 5}, towardsUser); }},
    {"click", [](S &s) {
        if (s.plot) QCursor::setPos(s.plot->mapToGlobal({100, 100}));
        s.pressAt({100, 100});
        s.releaseAt({100, 100}); }},
    {"panning", [](S &s) { dragInMode(s, ZrQtPlot::PanAndScan); }},
    {"panning with the newest data", [](S &s) {
        if (s.plot) s.plot->setDefaultScalingX(ZrQtPlot::KeepAtHead);
        dragInMode(s, ZrQtPlot::PanAndScan); }},
    {"zooming to a rectangle", [](S &s) { dragInMode(s, ZrQtPlot::RectangleZoom); }},
    {"selecting a rectangle", [](S &s) { dragInMode(s, ZrQtPlot::SelectRoi); }},
    {"selecting a line", [](S &s) { dragInMode(s, ZrQtPlot::SelectLine); }},
    {"dragging the axis", [](S &s) {
        if (s.plot) s.plot->setInteraction(ZrQtPlot::PanAndScan);
        if (s.plot) drag(s, {150, s.plot->height() - 5}, {200, s.plot->height() - 5}); }},
    {"a tooltip", [](S &s) {
        if (s.plot) s.plot->setTooltipMode(ZrQtPlot::SHOW_WHILE_PRESSED);
        if (s.plot) s.plot->registerHoverCallback([&s](double, double) {
            if (s.plot) s.plot->setCanvas(QRectF(5, 5, 5, 5), ZrQtPlot::COSY_0);
            return QStringLiteral("text"); });
        if (s.plot) QCursor::setPos(s.plot->mapToGlobal({100, 100}));
        drag(s, {100, 100}, {120, 120});
        if (s.plot) leave(s.plot); }},
    {"points", [](S &s) { if (s.editable) s.editable->setPoints({{50, 50}}); dragContent(s); }},
    {"lines", [](S &s) { if (s.editable) s.editable->setLine({0, 50, 100, 50}); dragContent(s); }},
    {"line segments", [](S &s) { if (s.editable) s.editable->setLineSegment({0, 50, 100, 50}); dragContent(s); }},
    {"rectangles", [](S &s) { if (s.editable) s.editable->setRectangle({40, 40, 20, 20}); dragContent(s); }},
    {"circles", [](S &s) { if (s.editable) s.editable->setCircle({40, 40, 20, 20}); dragContent(s); }},
    {"the whole content", [](S &s) {
        if (s.editable) s.editable->setEditable(false);
        if (s.editable) s.editable->setMovable(true);
        if (s.editable) s.editable->setRectangle({40, 40, 20, 20});
        dragContent(s); }},
    {"setCustomFeature()", [](S &s) { if (s.editable) s.editable->setCustomFeature(nullptr); }},
    {"clearing plot channel content", [](S &s) { if (s.editable) s.editable->clear(); }},
    {"dragging the slider", [](S &s) {
        if (s.slider) s.slider->show();
        if (s.slider) s.slider->onMasterCanvasChanged(QRectF(0, 0, 100, 1), ZrQtPlot::COSY_0);
        if (s.slider) s.slider->onSlaveCanvasChanged(QRectF(0, 0, 50, 1), ZrQtPlot::COSY_0);
        drag(s, {100, 50}, {160, 50}); }},
    {"setMasterCosy()", [](S &s) { if (s.slider) s.slider->setMasterCosy(ZrQtPlot::COSY_3); }},
    {"setSlaveCosy()", [](S &s) { if (s.slider) s.slider->setSlaveCosy(ZrQtPlot::COSY_3); }},
    {"new data", [](S &s) { if (s.buffered) s.buffered->setData({-900, 900}, {-900, 900}); }},
    {"new data of known extent", [](S &s) {
        if (s.buffered) s.buffered->setData({-900, 900}, {-900, 900}, QRectF(-900, -900, 1800, 1800)); }},
    {"clear()", [](S &s) { if (s.buffered) s.buffered->clear(); }},
    {"hiding a channel", [](S &s) { if (s.buffered) s.buffered->setVisible(false); }},
    {"showing a channel", [](S &s) {
        if (s.editable) s.editable->setVisible(false);
        if (s.editable) s.editable->setRectangle({0, 0, 900, 900});
        if (s.editable) s.editable->setVisible(true); }},
    {"setCosyX()", [](S &s) { if (s.buffered) s.buffered->setCosyX(ZrQtPlot::COSY_2); }},
    {"setCosyY()", [](S &s) { if (s.buffered) s.buffered->setCosyY(ZrQtPlot::COSY_2); }},
    {"setAntialiasing()", [](S &s) { if (s.buffered) s.buffered->setAntialiasing(true); }},
    {"setDataReduction()", [](S &s) { if (s.buffered) s.buffered->setDataReduction(true); }},
    {"setUseForScaling()", [](S &s) { if (s.buffered) s.buffered->setUseForScaling(false); }},
    {"setInverted()", [](S &s) { if (s.axis) s.axis->setInverted(true); }},
    {"setPosition()", [](S &s) { if (s.axis) s.axis->setPosition(Qt::LeftEdge); }},
    {"setTickSize()", [](S &s) { if (s.axis) s.axis->setTickSize(25); }},
    {"setMinMax()", [](S &s) { if (s.axis) s.axis->setMinMax(1e-7, 2e-7); }},
    {"setLogarithmic()", [](S &s) { if (s.axis) s.axis->setLogarithmic(true); }},
    {"an empty canvas", [](S &s) {
        if (s.axis) s.axis->setCosy(ZrQtPlot::CoordinateSystem(0));
        if (s.plot) s.plot->resize(350, 250); }},
    {"hiding the axis", [](S &s) { if (s.axis) s.axis->hide(); }},
    {"typing into the axis", typeIntoAxis},
    {"hiding the plot", [](S &s) { if (s.plot) s.plot->hide(); }},
    // The library declares these for applications and sends none of them itself.
    {"signals for applications", [](S &s) {
        if (s.buffered) Q_EMIT s.buffered->showInLegendChanged(false);
        if (s.slider) Q_EMIT s.slider->posChanged(1.0);
        if (s.slider) Q_EMIT s.slider->sizeChanged(1.0);
        if (s.edit) Q_EMIT s.edit->channelNameChanged(QString()); }},
};
// clang-format on

/// One of the signals of one of the objects.
struct Sent
{
    Mortal sender = Mortal::Plot;
    int signal = 0; ///< index in the sender's meta-object
};

QVector<Sent> signalsOf(const MortalScene &scene)
{
    QVector<Sent> all;
    for (const Mortal mortal : allMortals) {
        const QObject *sender = scene.object(mortal);
        const QMetaObject *meta = sender->metaObject();
        for (int i = QWidget::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            const QByteArray owner = method.enclosingMetaObject()->className();
            if (method.methodType() == QMetaMethod::Signal && owner.startsWith("ZrQt"))
                all.append({mortal, i});
        }
    }
    return all;
}

/// Knows which events are being delivered.
class Deliveries : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        s_open.append({receiver, event->type()});
        const bool handled = QApplication::notify(receiver, event);
        s_open.removeLast();
        return handled;
    }

    /// Whether Qt is about to do more with \a object than any slot may interrupt: moving, resizing, showing
    /// and hiding send events without a look at what became of the widget.
    static bool holds(const QObject *object)
    {
        return std::any_of(s_open.cbegin(), s_open.cend(), [object](const Open &open) {
            return object && open.receiver && isWithin(open.receiver, object) && isUninterruptible(open.type);
        });
    }

private:
    struct Open
    {
        QPointer<QObject> receiver;
        QEvent::Type type;
    };

    static bool isWithin(const QObject *inner, const QObject *outer)
    {
        while (inner && inner != outer)
            inner = inner->parent();
        return inner;
    }

    static bool isUninterruptible(QEvent::Type type)
    {
        return type == QEvent::Move || type == QEvent::Resize || type == QEvent::Show || type == QEvent::Hide
               || type == QEvent::ChildRemoved || type == QEvent::ChildAdded;
    }

    static inline QVector<Open> s_open;
};

/// Hears signals of any kind.
class Ear : public QObject
{
    Q_OBJECT

public:
    Ear(const MortalScene &scene, const Sent &sent)
    {
        const QObject *sender = scene.object(sent.sender);
        connect(sender, sender->metaObject()->method(sent.signal), this,
                staticMetaObject.method(staticMetaObject.indexOfSlot("hear()")));
    }

    int heard = 0;
    std::function<void(int)> onHeard;

public Q_SLOTS:
    void hear()
    {
        ++heard;
        if (onHeard)
            onHeard(heard);
    }
};

/// How often \a action sends each of \a all signals.
QVector<int> countSent(const Action &action, const QVector<Sent> &all)
{
    MortalScene scene;
    std::vector<std::unique_ptr<Ear>> ears;
    for (const Sent &sent : all)
        ears.push_back(std::make_unique<Ear>(scene, sent));
    action.run(scene);
    QVector<int> counts;
    for (const std::unique_ptr<Ear> &ear : ears)
        counts.append(ear->heard);
    return counts;
}

QByteArray nameOf(const Sent &sent)
{
    return QByteArray(nameOf(sent.sender)) + ' '
           + MortalScene().object(sent.sender)->metaObject()->method(sent.signal).name();
}

/// As the documentation says: what Qt is moving, showing or taking apart is deleted later.
bool waits(const MortalScene &scene, Mortal victim, Way way)
{
    const bool losesChild = scene.childDies && victim == Mortal::Plot;
    return way == Way::Delete && (losesChild || Deliveries::holds(scene.object(victim)));
}

} // namespace

Q_DECLARE_METATYPE(Sent)

/// The table below has no hole.
void TestLifetimeSlots::everySignalIsSent()
{
    const QVector<Sent> all = signalsOf(MortalScene());
    QVector<int> sums(all.size(), 0);
    for (const Action &action : actions) {
        const QVector<int> counts = countSent(action, all);
        for (int i = 0; i < all.size(); ++i)
            sums[i] += counts.at(i);
    }
    QSet<QByteArray> silent;
    for (int i = 0; i < all.size(); ++i) {
        if (sums.at(i) == 0)
            silent.insert(nameOf(all.at(i)));
    }
    // Of what both kinds of channels inherit, one sends what the other does not.
    const QSet<QByteArray> inherited = {"plot channel antialiasingChanged", "plot channel cosyXChanged",
                                        "plot channel cosyYChanged", "plot channel showInLegendChanged"};
    const QSet<QByteArray> missing = silent - inherited;
    QVERIFY2(missing.isEmpty(), QByteArrayList(missing.cbegin(), missing.cend()).join(", "));
}

void TestLifetimeSlots::endInASlot_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<Sent>("sent");
    QTest::addColumn<int>("last");

    const QVector<Sent> all = signalsOf(MortalScene());
    for (int a = 0; a < int(std::size(actions)); ++a) {
        const QVector<int> counts = countSent(actions[a], all);
        for (int i = 0; i < all.size(); ++i) {
            if (counts.at(i) > 0)
                QTest::addRow("%s: %s", actions[a].name, nameOf(all.at(i)).constData())
                    << a << all.at(i) << counts.at(i);
        }
    }
}

void TestLifetimeSlots::endInASlot()
{
    QFETCH(const int, action);
    QFETCH(const Sent, sent);
    QFETCH(const int, last);
    for (const Mortal victim : allMortals) {
        for (const Way way : {Way::Delete, Way::Remove, Way::Move}) {
            for (const int turn : {1, last}) {
                MortalScene scene;
                Ear ear(scene, sent);
                ear.onHeard = [&](int heard) {
                    if (heard == turn)
                        scene.end(victim, waits(scene, victim, way) ? Way::DeleteLater : way);
                };
                actions[action].run(scene);
                QVERIFY(ear.heard >= turn);
                scene.exercise();
                if (last == 1 || way != Way::Delete)
                    break;
            }
        }
    }
}

int main(int argc, char **argv)
{
    Deliveries application(argc, argv);
    TestLifetimeSlots test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_lifetime_slots.moc"
