#include "ZrQtPlotWidgets/zrqtplot.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"
#include "driver.h"

QString judge(QWidget &window)
{
    auto *slider = window.findChild<ZrQtPlotSlider *>();
    auto *overview = qobject_cast<ZrQtPlot *>(slider->parentWidget());
    ZrQtPlot *detail = nullptr;
    const auto plots = window.findChildren<ZrQtPlot *>();
    for (ZrQtPlot *plot : plots)
        detail = plot == overview ? detail : plot;
    const auto pixelOf = [&](double x) {
        const QRectF all = overview->canvas(ZrQtPlot::COSY_0);
        return QPoint(int((x - all.left()) / all.width() * slider->width()), slider->height() / 2);
    };

    const QRectF atFirst = detail->canvas(ZrQtPlot::COSY_0);
    drag(slider, pixelOf(24.0), pixelOf(34.0));
    const QRectF later = detail->canvas(ZrQtPlot::COSY_0);
    if (!(later.left() > atFirst.left() + 9.0) || !qFuzzyCompare(later.width(), atFirst.width()))
        return QStringLiteral("dragging the slider does not move the detail");
    if (later.top() != atFirst.top() || later.height() != atFirst.height())
        return QStringLiteral("dragging the slider changes the height of the detail");

    QTest::mouseMove(window.windowHandle(), QPoint(1, 1));
    const QImage before = slider->grab().toImage();
    drag(detail, detail->rect().center(), detail->rect().center() - QPoint(100, 0));
    if (!(detail->canvas(ZrQtPlot::COSY_0).left() > later.left()) || slider->grab().toImage() == before)
        return QStringLiteral("panning the detail does not move the slider");
    return QString();
}
