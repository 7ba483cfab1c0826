#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtplot.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"

QString textOf(const QPointF &point)
{
    return QStringLiteral("(%1, %2)").arg(point.x(), 0, 'f', 2).arg(point.y(), 0, 'f', 2);
}

QString textOf(const QLineF &line)
{
    return QStringLiteral("%1 to %2").arg(textOf(line.p1()), textOf(line.p2()));
}

QString textOf(const QRectF &rect)
{
    return QStringLiteral("%1 to %2").arg(textOf(rect.topLeft()), textOf(rect.bottomRight()));
}

template <typename Item> QString textOf(const QVector<Item> &items)
{
    QStringList texts;
    for (const Item &item : items)
        texts.append(textOf(item));
    return texts.join(QStringLiteral(",   "));
}

ZrQtPlot *createPlot()
{
    auto *plot = new ZrQtPlot;
    plot->setInitialCanvas(QRectF(0.0, 0.0, 20.0, 10.0));
    plot->setDefaultScalingX(ZrQtPlot::Manual); // the canvas stays when content is edited
    plot->setDefaultScalingY(ZrQtPlot::Manual);
    plot->setInteraction(ZrQtPlot::PanAndScan); // a drag beside the content moves the canvas
    plot->setMouseWheelZoom(true);
    for (Qt::Edge edge : {Qt::LeftEdge, Qt::BottomEdge}) {
        auto *axis = new ZrQtAxis(plot);
        axis->setPosition(edge);
    }
    return plot;
}

ZrQtPlotChannel *createChannel(ZrQtPlot *plot)
{
    auto *channel = new ZrQtPlotChannel(plot);
    channel->setLineColor(QColor(0x00, 0x72, 0xb2));
    channel->setFillColor(QColor(0x00, 0x72, 0xb2, 40));
    channel->setAntialiasing(true);

    channel->setPoints({{1.0, 5.5}, {2.0, 8.0}, {3.5, 6.0}, {5.0, 8.5}});
    channel->setLines({{0.0, 9.4, 1.0, 9.4}, {19.2, 0.0, 19.2, 1.0}}); // without end, through two points each
    channel->setLineSegments({{1.0, 1.0, 4.0, 3.5}, {2.5, 0.8, 5.0, 2.0}});
    channel->setRectangles({{7.8, 0.8, 2.7, 2.2}, {13.8, 1.5, 3.2, 1.8}});
    channel->setCircles({{7.8, 5.8, 2.6, 2.6}, {14.6, 6.1, 2.0, 2.0}}); // the rectangles around them

    channel->setEditable(true);
    channel->setMovable(true);       // all content together, by the cross in the middle of the plot,
    channel->setLinesMovable(false); // where that of the lines would be
    channel->setEditingNotification(ZrQtPlotChannel::NotifyAlways); // at each step of a drag
    return channel;
}

/// A row of the form that shows what the signal last reported, and at first what the channel holds.
template <typename Item>
void addReadOut(QFormLayout *form, const QString &title, ZrQtPlotChannel *channel, const QVector<Item> &items,
                void (ZrQtPlotChannel::*edited)(QVector<Item>))
{
    auto *label = new QLabel(textOf(items));
    form->addRow(title, label);
    QObject::connect(channel, edited, label,
                     [label](const QVector<Item> &changed) { label->setText(textOf(changed)); });
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    ZrQtPlot *plot = createPlot();
    ZrQtPlotChannel *channel = createChannel(plot);
    layout->addWidget(plot, 1);
    auto *form = new QFormLayout;
    layout->addLayout(form);

    addReadOut(form, QStringLiteral("Points"), channel, channel->points(), &ZrQtPlotChannel::pointsEdited);
    addReadOut(form, QStringLiteral("Lines"), channel, channel->lines(), &ZrQtPlotChannel::linesEdited);
    addReadOut(form, QStringLiteral("Segments"), channel, channel->lineSegments(),
               &ZrQtPlotChannel::lineSegmentsEdited);
    addReadOut(form, QStringLiteral("Rectangles"), channel, channel->rectangles(),
               &ZrQtPlotChannel::rectanglesEdited);
    addReadOut(form, QStringLiteral("Circles"), channel, channel->circles(), &ZrQtPlotChannel::circlesEdited);

    auto *keepCenter = new QCheckBox(QStringLiteral("Resize about the centre"));
    QObject::connect(keepCenter, &QCheckBox::toggled, channel, &ZrQtPlotChannel::setKeepCenterAtResize);
    form->addRow(keepCenter);

    window.resize(640, 480);
    window.show();
    return QApplication::exec();
}
