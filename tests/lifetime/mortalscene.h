#ifndef MORTALSCENE_H
#define MORTALSCENE_H

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplot.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchanneledit.h"
#include "ZrQtPlotWidgets/zrqtplotfeature.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"
#include "shared/mouseprobe.h"

#include <QtCore/QPointer>

#include <functional>

/// What can die in a scene.
enum class Mortal { Plot, Axis, Buffered, Editable, Feature, Slider, Custom, Edit };

constexpr Mortal allMortals[] = {Mortal::Plot,    Mortal::Axis,   Mortal::Buffered, Mortal::Editable,
                                 Mortal::Feature, Mortal::Slider, Mortal::Custom,   Mortal::Edit};

inline const char *nameOf(Mortal mortal)
{
    static constexpr const char *names[]
        = {"plot", "axis", "buffered channel", "plot channel", "feature", "slider", "custom widget", "edit"};
    return names[int(mortal)];
}

/// How it leaves the plot.
enum class Way { Delete, DeleteLater, ByParent, Remove, Move };

constexpr Way allWays[] = {Way::Delete, Way::DeleteLater, Way::ByParent, Way::Remove, Way::Move};

inline const char *nameOf(Way way)
{
    static constexpr const char *names[]
        = {"deleted", "deleted later", "deleted by its parent", "removed", "moved to another plot"};
    return names[int(way)];
}

/// A feature whose end can be seen, and that runs code while it is painted.
class MortalFeature : public QObject, public ZrQtPlotFeature
{
public:
    void paint(QPainter &, QSizeF) override
    {
        if (onPaint)
            onPaint();
    }
    void translate(QPointF offset) override { m_extent.translate(offset); }
    QRectF boundingRectangle() override { return m_extent; }

    std::function<void()> onPaint;

private:
    QRectF m_extent{40, 40, 10, 10};
};

/// A window with a plot that has one of everything, and another plot that the first one's slider drives. All
/// of it may die at any time: whoever uses the scene looks at the pointers first.
class MortalScene
{
public:
    MortalScene();
    ~MortalScene();

    QObject *object(Mortal mortal) const;

    /// Lets \a mortal go. What has no parent dies with nobody.
    void end(Mortal mortal, Way way);

    /// Everything that walks the lists of the plots.
    void exercise();

    /// Events that go through the window, to whoever is there.
    void pressAt(const QPoint &inPlot) { sendToWindow(QEvent::MouseButtonPress, inPlot); }
    void moveMouseTo(const QPoint &inPlot) { sendToWindow(QEvent::MouseMove, inPlot); }
    void releaseAt(const QPoint &inPlot) { sendToWindow(QEvent::MouseButtonRelease, inPlot); }

    QPointer<QWidget> window;
    QPointer<QWidget> home; ///< parent of the plot
    QPointer<ZrQtPlot> plot;
    QPointer<ZrQtPlot> other;
    QPointer<ZrQtAxis> axis;
    QPointer<ZrQtBufferedChannel> buffered;
    QPointer<ZrQtPlotChannel> editable;
    QPointer<MortalFeature> feature;
    QPointer<ZrQtPlotSlider> slider;
    QPointer<QWidget> custom;
    QPointer<ZrQtPlotChannelEdit> edit;
    bool childDies = false; ///< the destructor of a child of the plot runs

private:
    void remove(Mortal mortal);
    void move(Mortal mortal);
    void sendToWindow(QEvent::Type type, const QPoint &inPlot);

    QPoint m_plotInWindow;
};

inline MortalScene::MortalScene()
    : window(new QWidget)
{
    window->resize(700, 300);
    home = new QWidget(window);
    home->resize(400, 300);
    plot = new ZrQtPlot(home);
    plot->resize(400, 300);
    plot->setMouseWheelZoom(true);
    other = new ZrQtPlot(window);
    other->setGeometry(400, 0, 300, 300);
    m_plotInWindow = plot->mapTo(window, QPoint());

    axis = new ZrQtAxis(plot);
    axis->setPosition(Qt::BottomEdge);
    axis->setUseForGrid(true);
    buffered = new ZrQtBufferedChannel(plot);
    buffered->setData({0, 50, 100}, {0, 100, 50});
    editable = new ZrQtPlotChannel(plot);
    editable->setVisible(true);
    editable->setEditable(true);
    feature = new MortalFeature;
    editable->setCustomFeature(feature);
    slider = new ZrQtPlotSlider(plot);
    slider->hide();
    other->connectSlider(slider);
    custom = new QWidget(plot);
    custom->setAttribute(Qt::WA_TransparentForMouseEvents);
    edit = new ZrQtPlotChannelEdit(window);
    edit->setPlotChannel(buffered);
    new ZrQtBufferedChannel(other);
    window->show();
    QApplication::processEvents();
}

inline MortalScene::~MortalScene()
{
    for (const Mortal mortal : allMortals)
        delete object(mortal);
    delete window;
}

inline QObject *MortalScene::object(Mortal mortal) const
{
    switch (mortal) {
    case Mortal::Plot:
        return plot;
    case Mortal::Axis:
        return axis;
    case Mortal::Buffered:
        return buffered;
    case Mortal::Editable:
        return editable;
    case Mortal::Feature:
        return feature;
    case Mortal::Slider:
        return slider;
    case Mortal::Custom:
        return custom;
    case Mortal::Edit:
        break;
    }
    return edit;
}

inline void MortalScene::end(Mortal mortal, Way way)
{
    QObject *ending = object(mortal);
    if (!ending)
        return;
    switch (way) {
    case Way::Delete:
        delete ending;
        break;
    case Way::DeleteLater:
        ending->deleteLater();
        break;
    case Way::ByParent:
        // The edit's parent is the window, whose end would be that of the whole scene.
        if (mortal != Mortal::Edit)
            delete ending->parent();
        break;
    case Way::Remove:
        remove(mortal);
        break;
    case Way::Move:
        move(mortal);
        break;
    }
}

inline void MortalScene::remove(Mortal mortal)
{
    if (mortal == Mortal::Plot)
        plot->setParent(nullptr);
    else if (mortal == Mortal::Feature && editable)
        editable->setCustomFeature(nullptr);
    else if (mortal == Mortal::Edit)
        edit->setPlotChannel(nullptr);
    if (!plot)
        return;
    if (mortal == Mortal::Axis)
        plot->removeAxis(axis);
    else if (mortal == Mortal::Buffered)
        plot->removeChannel(buffered);
    else if (mortal == Mortal::Editable)
        plot->removeChannel(editable);
    else if (mortal == Mortal::Slider)
        plot->removeSlider(slider);
    else if (mortal == Mortal::Custom)
        plot->removeCustomWidget(custom);
}

inline void MortalScene::move(Mortal mortal)
{
    if (mortal == Mortal::Plot)
        plot->setParent(window);
    else if (mortal == Mortal::Edit)
        edit->setPlotChannel(editable);
    if (!other)
        return;
    if (mortal == Mortal::Axis)
        other->addAxis(axis);
    else if (mortal == Mortal::Buffered)
        other->addChannel(buffered);
    else if (mortal == Mortal::Editable)
        other->addChannel(editable);
    else if (mortal == Mortal::Slider)
        other->addSlider(slider);
    else if (mortal == Mortal::Custom)
        other->addCustomWidget(custom);
    else if (mortal == Mortal::Feature)
        (new ZrQtPlotChannel(other))->setCustomFeature(feature);
}

inline void MortalScene::exercise()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const QPointer<ZrQtPlot> &each : {plot, other}) {
        if (!each)
            continue;
        each->setGridModeX(ZrQtPlot::TickGrid);
        each->setGenerateLegend(!each->generateLegend());
        each->resize(each->width() - 1, each->height());
        each->setCanvas(QRectF(1, 2, 30, 40), ZrQtPlot::COSY_0);
        each->setKeepAspectRatio(!each->keepAspectRatio());
        each->setUseEmptyBoundingRectsForAutoFitScaling(!each->useEmptyBoundingRectsForAutoFitScaling());
        each->setControlChannelUpdatesViaPlot(true);
        QVERIFY(!each->grab().isNull());
        each->setControlChannelUpdatesViaPlot(false);
        turnWheel(each, {100, 100}, awayFromUser);
    }
    if (axis)
        axis->setInverted(!axis->inverted());
    if (buffered)
        buffered->setData({-10, 200}, {-10, 200});
    if (editable)
        editable->setRectangle(QRectF(0, 0, 300, 300));
    if (feature)
        feature->update();
    if (slider)
        slider->onMasterCanvasChanged(QRectF(0, 0, 7, 7), slider->masterCosy());
    if (edit)
        edit->setChannelVisible(!edit->channelVisible());
    QApplication::processEvents();
}

inline void MortalScene::sendToWindow(QEvent::Type type, const QPoint &inPlot)
{
    if (!window)
        return;
    const QPoint position = m_plotInWindow + inPlot;
    QWindow *handle = window->windowHandle();
    if (type == QEvent::MouseButtonPress)
        QTest::mousePress(handle, Qt::LeftButton, {}, position);
    else if (type == QEvent::MouseMove)
        QTest::mouseMove(handle, position);
    else
        QTest::mouseRelease(handle, Qt::LeftButton, {}, position);
    QApplication::processEvents();
}

Q_DECLARE_METATYPE(Mortal)
Q_DECLARE_METATYPE(Way)

#endif // MORTALSCENE_H
