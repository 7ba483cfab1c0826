#include <QtCore/QTimer>
#include <QtGui/QImage>
#include <QtWidgets/QApplication>

#include "ZrQtPlotWidgets/zrqtplot.h"

#include <cstdio>

// Linked into the quick start program. It looks at the window that the program shows, and ends the program
// with 0 if the plot, the line and the axes are in it and Qt had nothing to say.
namespace {

int messages = 0;

void countMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &text)
{
    // The offscreen platform says so of every window.
    if (text.startsWith(QLatin1String("This plugin does not support")))
        return;
    ++messages;
    std::fprintf(stderr, "%s\n", qPrintable(text));
}

int countPixels(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

int fail(const char *sentence)
{
    std::fprintf(stderr, "%s\n", sentence);
    return 1;
}

int judgeWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    ZrQtPlot *plot = nullptr;
    for (QWidget *window : windows) {
        if (!plot)
            plot = qobject_cast<ZrQtPlot *>(window);
    }
    if (!plot || !plot->isVisible())
        return fail("no plot is shown");

    const QImage image = plot->grab().toImage();
    const int shortLine = plot->width() / 2;
    if (countPixels(image, Qt::darkBlue) < shortLine)
        return fail("the channel's line is missing");
    if (countPixels(image, Qt::black) < plot->width() + plot->height() - 200)
        return fail("the axes are missing");
    if (countPixels(image, Qt::white) < image.width() * image.height() / 2)
        return fail("the plot area is missing");
    return messages == 0 ? 0 : fail("Qt reported something");
}

void driveQuickstart()
{
    qInstallMessageHandler(countMessage);
    QTimer::singleShot(300, qApp, [] { QCoreApplication::exit(judgeWindow()); });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(driveQuickstart)
