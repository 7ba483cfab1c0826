#include "driver.h"

#include <QtGui/QImage>

namespace {

int countPixels(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

} // namespace

QString judge(QWidget &window)
{
    const QImage image = window.grab().toImage();
    if (countPixels(image, Qt::darkBlue) < window.width() / 2)
        return QStringLiteral("the channel's line is missing");
    if (countPixels(image, Qt::black) < window.width() + window.height() - 200)
        return QStringLiteral("the axes are missing");
    if (countPixels(image, Qt::white) < image.width() * image.height() / 2)
        return QStringLiteral("the plot area is missing");
    return QString();
}
