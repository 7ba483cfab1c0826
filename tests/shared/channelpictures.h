#ifndef CHANNELPICTURES_H
#define CHANNELPICTURES_H

#include "ZrQtPlotWidgets/zrqtbufferedchannel.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <algorithm>
#include <cstdlib>

/// Pictures of a channel, and what can be said about them.
namespace ChannelPictures {

enum class Painting { Plain, Reduced };

/// How a channel is painted on a white image.
struct Setup
{
    QTransform transform;
    double pixelRatio = 1.0;
    double opacity = 1.0;
    QPainter::CompositionMode mode = QPainter::CompositionMode_SourceOver;
};

inline QImage picture(ZrQtBufferedChannel &channel, Painting painting, const Setup &setup = {})
{
    channel.setDataReduction(painting == Painting::Reduced);
    QImage image(channel.size() * setup.pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(setup.pixelRatio);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setWorldTransform(setup.transform);
    painter.setOpacity(setup.opacity);
    painter.setCompositionMode(setup.mode);
    channel.paint(painter);
    return image;
}

/// How much darker than white a pixel is.
inline int darkness(QRgb pixel)
{
    return 255 - qGray(pixel);
}

inline double ink(const QImage &image)
{
    double sum = 0.0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += darkness(image.pixel(x, y));
    }
    return sum;
}

/// The ink that is in only one of the pictures, as a share of the ink in the first one; infinite if the first
/// one is blank and the other is not.
inline double strayInk(const QImage &expected, const QImage &actual)
{
    double sum = 0.0;
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x)
            sum += std::abs(darkness(expected.pixel(x, y)) - darkness(actual.pixel(x, y)));
    }
    return sum == 0.0 ? 0.0 : sum / ink(expected);
}

/// The picture as it is seen from far away, where single pixels melt.
inline QImage fromAfar(const QImage &image)
{
    return image.scaled(image.size() / 6, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

inline int inkedPixels(const QImage &image, const QRect &part)
{
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            count += image.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
    }
    return count;
}

inline int inkedPixels(const QImage &image)
{
    return inkedPixels(image, image.rect());
}

/// The greatest difference of a red, green or blue value.
inline int greatestDifference(const QImage &one, const QImage &other)
{
    int greatest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            greatest = std::max({greatest, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                 std::abs(qBlue(a) - qBlue(b))});
        }
    }
    return greatest;
}

} // namespace ChannelPictures

#endif // CHANNELPICTURES_H
