#ifndef VIEWERSCENE_H
#define VIEWERSCENE_H

#include "mainwindow.h"
#include "wallclock.h"

#include "shared/quiettest.h"

#include <QtGui/QWheelEvent>
#include <QtGui/QWindow>
#include <QtTest/qtestspontaneevent.h>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include <ZrQtPlotWidgets/zrqtaxis.h>
#include <ZrQtPlotWidgets/zrqtbufferedchannel.h>
#include <ZrQtPlotWidgets/zrqtplot.h>

// What the tests of the window share: a window with a file in it, and a hand on the mouse.

const QByteArray kNumbers = "t,a\n0,0\n10,100\n";

/// A window with a file, on the screen.
class Scene
{
public:
    explicit Scene(const QByteArray &csv, const Options &options = {})
        : window(options)
    {
        m_opened = open(csv);
        window.show();
    }

    /// Opens a file with this content.
    bool open(const QByteArray &csv)
    {
        QFile file(m_directory.filePath(QStringLiteral("f.csv")));
        file.open(QIODevice::WriteOnly);
        file.write(csv);
        file.close();
        QSignalSpy opened(&window, &MainWindow::opened);
        window.open({file.fileName()});
        return opened.wait(10000);
    }

    bool isReady() { return m_opened && QTest::qWaitForWindowActive(&window); }

    ZrQtPlot *plot() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return window.findChild<ZrQtPlot *>();
    }
    QAction *action(const char *text) const
    {
        for (QAction *candidate : window.findChildren<QAction *>()) {
            if (candidate->text().remove(QLatin1Char('&')) == QLatin1String(text))
                return candidate;
        }
        return nullptr;
    }
    QString reading() const { return window.findChild<QLabel *>(QStringLiteral("reading"))->text(); }
    QString tooltip() const
    {
        for (const QWidget *widget : QApplication::allWidgets()) {
            if (widget->objectName() == QLatin1String("toolTipLabel") && widget->isVisible())
                return static_cast<const QLabel *>(widget)->text();
        }
        return {};
    }

    /// Where the plot draws the value, in pixels of the window.
    QPoint pixel(double x, double y) const
    {
        const auto *channel = plot()->findChild<ZrQtBufferedChannel *>();
        const QRectF canvas = channel->canvas();
        const double partX = (x - canvas.left()) / canvas.width();
        const double partY = (canvas.bottom() - y) / canvas.height();
        const QPointF inChannel(partX * channel->width(), partY * channel->height());
        return channel->mapTo(&const_cast<MainWindow &>(window), inChannel.toPoint());
    }

    void point(const QPoint &position)
    {
        QCursor::setPos(window.mapToGlobal(position));
        QTest::mouseMove(window.windowHandle(), position);
        QCoreApplication::processEvents();
    }
    void press(const QPoint &position)
    {
        point(position);
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, position);
        QCoreApplication::processEvents();
    }
    void release(const QPoint &position)
    {
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, position);
        QCoreApplication::processEvents();
    }
    void drag(const QPoint &from, const QPoint &to)
    {
        press(from);
        point((from + to) / 2);
        point(to);
        release(to);
    }
    void wheel(const QPoint &position, int steps)
    {
        QWidget *target = window.childAt(position);
        const QPoint local = target->mapFrom(&window, position);
        QWheelEvent event(local, window.mapToGlobal(position), {}, QPoint(0, 120 * steps), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        // Only events of the window system travel to parents.
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(target, &event);
    }
    QPoint middleOf(const QWidget *widget) const
    {
        return widget->mapTo(&const_cast<MainWindow &>(window), widget->rect().center());
    }

    MainWindow window;

private:
    QTemporaryDir m_directory;
    bool m_opened = false;
};

/// The numbers in a text, without the signs before them.
inline QVector<double> numbersIn(const QString &text)
{
    QVector<double> numbers;
    QRegularExpressionMatchIterator matches
        = QRegularExpression(QStringLiteral("-?\\d+(\\.\\d+)?")).globalMatch(text);
    while (matches.hasNext())
        numbers.append(matches.next().captured().toDouble());
    return numbers;
}

inline bool areNear(const QVector<double> &actual, const QVector<double> &expected, double tolerance)
{
    return std::equal(actual.begin(), actual.end(), expected.begin(), expected.end(),
                      [tolerance](double a, double b) { return std::abs(a - b) <= tolerance; });
}

#endif // VIEWERSCENE_H
