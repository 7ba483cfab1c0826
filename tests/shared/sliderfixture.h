#ifndef SLIDERFIXTURE_H
#define SLIDERFIXTURE_H

#include "ZrQtPlotWidgets/zrqtplotslider.h"
#include "quiettest.h"

#include <QtCore/QPointer>
#include <QtCore/QScopedPointer>
#include <QtGui/QCursor>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

/// Counts the paint events of a widget from now on.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget)
    {
        QApplication::processEvents();
        widget->installEventFilter(this);
    }

    int count()
    {
        QApplication::processEvents();
        return m_count;
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int m_count = 0;
};

/// Base of the tests of the slider: one slider in a window, real mouse events, and eyes for the picture.
class SliderFixture : public QuietTest
{
protected:
    /// A slider of 200 x 40 pixels in the middle of a window, with the handles at 50 and 100, and the mouse
    /// elsewhere.
    void build();
    /// Through the window, as the real mouse does it: pressing and releasing elsewhere than at the last place
    /// moves there first.
    void press(int x, Qt::MouseButton button = Qt::LeftButton);
    void move(int x, int y = 20);
    void release(int x, Qt::MouseButton button = Qt::LeftButton);
    void hover(const QPoint &pos);
    void leave();
    void setMaster(double left, double right);
    void setSlave(double left, double right);
    /// Reads the handles off the picture, as the user does: the first and the last column of handle colour.
    int leftPosition();
    int rightPosition();
    /// The slider after the mouse went away.
    QImage restingPicture();
    /// The slider on white.
    QImage picture();
    static QColor over(const QColor &above, const QColor &below);
    QWindow *window() const { return m_window->windowHandle(); }

    static constexpr QPoint Elsewhere{700, 500};

    QScopedPointer<QWidget> m_window;
    QPointer<ZrQtPlotSlider> m_slider;
};

inline void SliderFixture::build()
{
    QCursor::setPos(Elsewhere);
    m_window.reset(new QWidget);
    m_window->setGeometry(0, 0, 600, 300);
    m_slider = new ZrQtPlotSlider(m_window.data());
    m_slider->setGeometry(100, 100, 200, 40);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
    setMaster(0.0, 100.0);
    setSlave(25.0, 50.0);
    QApplication::processEvents();
}

inline void SliderFixture::press(int x, Qt::MouseButton button)
{
    QTest::mousePress(window(), button, {}, m_slider->mapTo(m_window.data(), {x, 20}));
}

inline void SliderFixture::move(int x, int y)
{
    QTest::mouseMove(window(), m_slider->mapTo(m_window.data(), {x, y}));
}

inline void SliderFixture::release(int x, Qt::MouseButton button)
{
    QTest::mouseRelease(window(), button, {}, m_slider->mapTo(m_window.data(), {x, 20}));
}

inline void SliderFixture::hover(const QPoint &pos)
{
    QCursor::setPos(m_slider->mapToGlobal(pos));
    QApplication::processEvents();
}

inline void SliderFixture::leave()
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(m_slider, &event);
}

inline void SliderFixture::setMaster(double left, double right)
{
    m_slider->onMasterCanvasChanged(QRectF(left, 0.0, right - left, 10.0), ZrQtPlot::COSY_0);
}

inline void SliderFixture::setSlave(double left, double right)
{
    m_slider->onSlaveCanvasChanged(QRectF(left, 2.0, right - left, 5.0), ZrQtPlot::COSY_0);
}

inline int SliderFixture::leftPosition()
{
    const QImage image = restingPicture();
    for (int x = 1; x < image.width(); ++x) {
        if (image.pixelColor(x, 20) == QColor(Qt::gray))
            return x - 1;
    }
    return -1;
}

inline int SliderFixture::rightPosition()
{
    const QImage image = restingPicture();
    for (int x = image.width() - 1; x >= 0; --x) {
        if (image.pixelColor(x, 20) == QColor(Qt::gray))
            return x;
    }
    return -1;
}

inline QImage SliderFixture::restingPicture()
{
    QCursor::setPos(Elsewhere);
    QApplication::processEvents();
    return picture();
}

inline QImage SliderFixture::picture()
{
    QImage image(m_slider->size(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    m_slider->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

inline QColor SliderFixture::over(const QColor &above, const QColor &below)
{
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(below);
    QPainter painter(&image);
    painter.fillRect(image.rect(), above);
    return image.pixelColor(0, 0);
}

#endif // SLIDERFIXTURE_H
