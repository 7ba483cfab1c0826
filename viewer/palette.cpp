#include "palette.h"

#include <array>

namespace {

constexpr std::array<QRgb, 16> kColors = {
    0xff0072b2, // blue
    0xffd55e00, // vermilion
    0xff009e73, // bluish green
    0xffcc79a7, // reddish purple
    0xff882255, // wine
    0xffe69f00, // orange
    0xff332288, // indigo
    0xff56b4e9, // sky blue
    0xff000000, // black
    0xff999933, // olive
    0xffcc6677, // rose
    0xff117733, // green
    0xff44aa99, // teal
    0xffaa4499, // purple
    0xff661100, // brown
    0xff888888, // grey
};

} // namespace

QColor seriesColor(int index)
{
    return QColor(kColors[static_cast<size_t>(index) % kColors.size()]);
}

QColor markerColor()
{
    return QColor(0xff, 0x00, 0x9e);
}
