#include <ZrQtPlotWidgets/ZrQtAxis>
#include <ZrQtPlotWidgets/zrqtbufferedchannel.h>
#include <ZrQtPlotWidgets/zrqtplot.h>

#include <QtWidgets/QApplication>

// Uses what is installed: classes, their signals and their enums in the meta-object system.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    ZrQtPlot plot;
    auto *axis = new ZrQtAxis(&plot);
    axis->setPosition(Qt::BottomEdge);

    int fits = 0;
    QObject::connect(&plot, &ZrQtPlot::canvasChanged, axis,
                     [&fits](const QRectF &, ZrQtPlot::CoordinateSystem) { ++fits; });
    auto *channel = new ZrQtBufferedChannel(&plot);
    channel->setData(QVector<double>({1.0, 4.0, 9.0, 16.0}));
    plot.resize(320, 200);
    plot.show();

    const QRectF canvas = plot.canvas(ZrQtPlot::COSY_0);
    const bool fitted = fits > 0 && canvas.left() <= 0.0 && canvas.right() >= 3.0 && canvas.top() <= 1.0
                        && canvas.bottom() >= 16.0;
    const bool drawn = !plot.grab().isNull();
    const bool known = qstrcmp(axis->metaObject()->className(), "ZrQtAxis") == 0;
    return fitted && drawn && known ? 0 : 1;
}
