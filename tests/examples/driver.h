#ifndef DRIVER_H
#define DRIVER_H

#include <QtCore/QString>
#include <QtTest/QtTest>
#include <QtWidgets/QWidget>

/// Uses the window of an example as its user would. Returns the sentence that says what is wrong, or an empty
/// one. Each example has its own. driver.cpp calls it once the window is shown, and ends the program: with 0
/// if nothing is wrong and Qt had nothing to say.
QString judge(QWidget &window);

/// Drags with the left button, in a few steps, from one place on `widget` to another.
inline void drag(QWidget *widget, const QPoint &from, const QPoint &to)
{
    QWindow *window = widget->window()->windowHandle();
    const auto inWindow = [widget](const QPoint &place) { return widget->mapTo(widget->window(), place); };
    QTest::mouseMove(window, inWindow(from));
    QTest::mousePress(window, Qt::LeftButton, {}, inWindow(from));
    for (int step = 1; step <= 4; ++step)
        QTest::mouseMove(window, inWindow(from + (to - from) * step / 4));
    QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(to));
}

#endif // DRIVER_H
