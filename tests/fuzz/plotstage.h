#ifndef PLOTSTAGE_H
#define PLOTSTAGE_H

#include "byteinput.h"

#include "ZrQtPlotWidgets/zrqtplot_p.h"
#include "ZrQtPlotWidgets/zrqtplotfeature.h"
#include "shared/plotprobe.h"

#include <QtCore/QPair>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

#include <memory>

class ZrQtAxis;
class ZrQtPlotChannel;

/// A plot that lets its state be looked at.
class OpenPlot : public ZrQtPlot
{
public:
    using ZrQtPlot::ZrQtPlot;
    const ZrQtPlotPrivate &state() const { return *m_d; }
};

class Feature : public ZrQtPlotFeature
{
public:
    explicit Feature(const QRectF &extent)
        : m_extent(extent)
    {
    }
    void paint(QPainter &painter, QSizeF) override { painter.drawRect(m_extent); }
    void translate(QPointF offset) override { m_extent.translate(offset); }
    QRectF boundingRectangle() override { return m_extent; }

private:
    QRectF m_extent;
};

/// Two windows with a plot each, and whatever an application may put into them. Everything that happens comes
/// from the input.
class PlotStage
{
public:
    explicit PlotStage(ByteInput &input);
    ~PlotStage();

    void play();

private:
    void step();

    OpenPlot *makePlot();
    void furnish(OpenPlot *plot);
    void stageThing(QWidget *widget);
    OpenPlot *plot() { return m_plots[m_input.below(2)]; }
    QWidget *thing();
    template <typename Widget> Widget *anyThing();
    Cosy system() { return m_input.anyOf(systems); }
    double value() { return m_tame ? m_input.tameReal() : m_input.real(); }
    QPointF point() { return {value(), value()}; }
    QRectF rect() { return {value(), value(), value(), value()}; }
    template <typename T, typename Make> QVector<T> several(Make make);

    // What holds after each step and in the end (plotstage_checks.cpp)
    void check();
    void checkLists(const OpenPlot &plot) const;
    void checkGeometry(const OpenPlot &plot) const;
    void checkTicks(const ZrQtAxis &axis) const;
    bool keepsTrack(const OpenPlot &plot, Cosy cosy);
    void checkCanvases(const OpenPlot &plot);
    void checkExtent(const OpenPlot &plot, Cosy cosy, ZrQtPlot::PlotAxis direction) const;
    void letGo();

    // What an application does (plotstage_application.cpp)
    void createThing();
    QWidget *newThing(QWidget *parent);
    void addThing();
    void removeThing();
    void deleteThing();
    void setPlotProperty();
    void setThingProperty();
    void setCanvas();
    void setScaling();
    void setPlotSwitches();
    void connectSliders();
    void feedChannel();
    void feedLongSeries();
    void feedPlotChannel(ZrQtPlotChannel *channel);
    void styleChannel();
    void changeAxis();
    void changeChannel();
    void changePlotWidget();
    void processEvents();

    // What a user does (plotstage_user.cpp)
    void typeIntoAxis();
    void moveMouse();
    void pressMouse();
    void dragContent();
    void turnTheWheel();
    void pressKey();

    static constexpr int mostSteps = 200;
    static constexpr int mostThings = 16;
    static constexpr Cosy systems[] = {ZrQtPlot::COSY_0,
                                       ZrQtPlot::COSY_1,
                                       ZrQtPlot::COSY_2,
                                       ZrQtPlot::COSY_15,
                                       Cosy(ZrQtPlot::COSY_0 | ZrQtPlot::COSY_1),
                                       Cosy(0)};

    ByteInput &m_input;
    const int m_beginning;
    const bool m_tame;
    QWidget m_windows[2];
    QPointer<OpenPlot> m_plots[2];
    QList<QPointer<QWidget>> m_things;
    std::unique_ptr<Feature> m_feature;
    QSet<QPair<const OpenPlot *, int>> m_systemsThatLetGo; // see keepsTrack()
};

template <typename Widget> Widget *PlotStage::anyThing()
{
    QVector<Widget *> all;
    for (const QPointer<QWidget> &each : std::as_const(m_things)) {
        if (auto *widget = qobject_cast<Widget *>(each))
            all.append(widget);
    }
    return all.isEmpty() ? nullptr : all.at(m_input.below(all.size()));
}

template <typename T, typename Make> QVector<T> PlotStage::several(Make make)
{
    QVector<T> items;
    for (int count = m_input.below(8); count > 0; --count)
        items.append(make());
    return items;
}

#endif // PLOTSTAGE_H
