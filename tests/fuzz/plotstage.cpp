#include "plotstage.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"

PlotStage::PlotStage(ByteInput &input)
    : m_input(input)
    , m_beginning(input.below(4))
    , m_tame(m_beginning % 2 == 1)
{
    m_windows[0].resize(500, 400);
    m_windows[1].resize(300, 200);
    for (int i = 0; i < 2; ++i) {
        m_plots[i] = makePlot();
        m_plots[i]->setParent(&m_windows[i]);
        m_plots[i]->resize(m_windows[i].size());
        if (m_beginning >= 2)
            furnish(m_plots[i]);
        m_windows[i].show();
    }
}

PlotStage::~PlotStage()
{
    for (const QPointer<QWidget> &thing : std::as_const(m_things))
        delete thing;
}

OpenPlot *PlotStage::makePlot()
{
    auto *made = new OpenPlot;
    made->setMouseWheelZoom(true);
    made->setInteraction(ZrQtPlot::PanAndScan);
    return made;
}

void PlotStage::stageThing(QWidget *widget)
{
    widget->show();
    m_things.append(widget);
}

/// Something of everything, because an input seldom lives to see a plot that is worth a look.
void PlotStage::furnish(OpenPlot *plot)
{
    for (const Qt::Edge edge : {Qt::LeftEdge, Qt::BottomEdge}) {
        auto *axis = new ZrQtAxis(plot);
        axis->setPosition(edge);
        axis->setUseForGrid(true);
        stageThing(axis);
    }
    auto *curve = new ZrQtBufferedChannel(plot);
    curve->setName(QStringLiteral("curve"));
    curve->setData({0.0, 10.0, 20.0, 40.0}, {5.0, -5.0, 20.0, 0.0});
    stageThing(curve);

    auto *content = new ZrQtPlotChannel(plot);
    content->setPoints({{5, 5}, {8, 12}, {30, 2}});
    content->setRectangles({{10, 0, 5, 5}});
    content->setCircles({{20, 5, 6, 6}});
    content->setLines({{30, 10, 35, 15}});
    content->setLineSegments({{2, 15, 6, 18}});
    content->setEditable(true);
    stageThing(content);
    plot->setGenerateLegend(true);
}

void PlotStage::play()
{
    for (int i = 0; i < mostSteps && !m_input.isAtEnd(); ++i) {
        step();
        check();
    }
    processEvents();
    letGo();
    check();
}

void PlotStage::step()
{
    static constexpr void (PlotStage::*acts[])()
        = {&PlotStage::createThing,      &PlotStage::addThing,         &PlotStage::removeThing,
           &PlotStage::deleteThing,      &PlotStage::setPlotProperty,  &PlotStage::dragContent,
           &PlotStage::setThingProperty, &PlotStage::styleChannel,     &PlotStage::setCanvas,
           &PlotStage::setScaling,       &PlotStage::setPlotSwitches,  &PlotStage::connectSliders,
           &PlotStage::feedChannel,      &PlotStage::feedLongSeries,   &PlotStage::changeAxis,
           &PlotStage::typeIntoAxis,     &PlotStage::changeChannel,    &PlotStage::moveMouse,
           &PlotStage::moveMouse,        &PlotStage::pressMouse,       &PlotStage::turnTheWheel,
           &PlotStage::pressKey,         &PlotStage::changePlotWidget, &PlotStage::processEvents};
    (this->*m_input.anyOf(acts))();
    m_things.removeAll(nullptr);
}

QWidget *PlotStage::thing()
{
    return m_things.isEmpty() ? nullptr : m_things.at(m_input.below(m_things.size()));
}
