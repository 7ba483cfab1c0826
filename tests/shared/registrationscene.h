#ifndef REGISTRATIONSCENE_H
#define REGISTRATIONSCENE_H

#include "shared/plotprobe.h"

/// What the tests of taking in and letting go share: a plot that tells whether it is painted.

inline constexpr Cosy C0 = ZrQtPlot::COSY_0;
inline constexpr Cosy C1 = ZrQtPlot::COSY_1;

/// Counts its paintings.
class CountingPlot : public ZrQtPlot
{
public:
    void paint(QPainter *painter) override
    {
        ++paintCount;
        ZrQtPlot::paint(painter);
    }

    int paintCount = 0;
};

/// A plot without margins.
struct Scene : ShownPlot
{
    Scene()
        : ShownPlot(QSize(400, 200), new CountingPlot)
    {
        plot->setCanvasMarginLeft(0);
        plot->setCanvasMarginRight(0);
        plot->setCanvasMarginTop(0);
        plot->setCanvasMarginBottom(0);
    }

    /// Whether a painting follows by itself.
    bool repaints()
    {
        auto *counting = static_cast<CountingPlot *>(plot);
        const int before = counting->paintCount;
        QApplication::processEvents();
        return counting->paintCount > before;
    }
};

#endif // REGISTRATIONSCENE_H
