#ifndef SHOWNAXIS_H
#define SHOWNAXIS_H

#include "ZrQtPlotWidgets/zrqtaxis.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QImage>

#include <functional>
#include <utility>

/// What the tests of the axis share: an axis in a shown window, and ways to set one up.

using Setup = std::function<void(ZrQtAxis &)>;
Q_DECLARE_METATYPE(Setup)

/// Counts its repaints.
class CountingAxis : public ZrQtAxis
{
public:
    using ZrQtAxis::ZrQtAxis;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        ZrQtAxis::paintEvent(event);
    }
};

/// A window on which an axis of a given size stands, all pending paint events done.
struct ShownAxis
{
    ShownAxis()
    {
        window.resize(600, 500);
        axis.setParent(&window);
        axis.resize(100, 400);
        window.show();
        settle();
    }

    int settle()
    {
        QCoreApplication::processEvents();
        return std::exchange(axis.paints, 0);
    }

    QImage picture()
    {
        QImage image(axis.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        axis.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        settle();
        return image;
    }

    QWidget window;
    CountingAxis axis;
};

inline void withFloatingPoint(ZrQtAxis &axis)
{
    axis.setLabelFormat(ZrQtAxis::FloatingPoint);
}

inline void withDay(ZrQtAxis &axis)
{
    axis.setLabelFormat(ZrQtAxis::DateTime);
    axis.setMinMax(1.6e12, 1.6e12 + 3600e3);
}

inline void atBottom(ZrQtAxis &axis)
{
    axis.setPosition(Qt::BottomEdge);
    axis.resize(400, axis.height());
}

#endif // SHOWNAXIS_H
