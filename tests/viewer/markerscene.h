#ifndef MARKERSCENE_H
#define MARKERSCENE_H

#include "viewerscene.h"

#include <QtWidgets/QDockWidget>
#include <QtWidgets/QTextBrowser>

#include <ZrQtPlotWidgets/zrqtplotchannel.h>

/// A window whose markers are added, dragged and read.
class MarkerScene : public Scene
{
public:
    using Scene::Scene;

    void add(const char *text)
    {
        action(text)->trigger();
        // The panel comes up and the plot gives room.
        for (int round = 0; round < 3; ++round)
            QCoreApplication::processEvents();
    }

    ZrQtPlotChannel *marker(ZrQtPlotChannel::ContentType type) const
    {
        for (auto *channel : plot()->findChildren<ZrQtPlotChannel *>()) {
            const bool found = type == ZrQtPlotChannel::Lines        ? !channel->lines().isEmpty()
                               : type == ZrQtPlotChannel::Rectangles ? !channel->rectangles().isEmpty()
                                                                     : !channel->circles().isEmpty();
            if (found)
                return channel;
        }
        return nullptr;
    }

    /// A point of a marker, given in its own units, in pixels of the window.
    QPoint at(const ZrQtPlotChannel *channel, const QPointF &point) const
    {
        const QPoint inChannel(qRound(point.x()), qRound(channel->height() - point.y()));
        return channel->mapTo(&const_cast<MainWindow &>(window), inChannel);
    }
    /// Where line A or B can be taken.
    QPoint line(int index) const
    {
        const ZrQtPlotChannel *lines = marker(ZrQtPlotChannel::Lines);
        const QPointF onLine(lines->lines()[index].x1(), lines->height() / 4.0);
        return at(lines, onLine);
    }
    /// Where the first marker of any kind can be taken to move it; null if there is none.
    QPoint handle() const
    {
        if (marker(ZrQtPlotChannel::Lines))
            return line(0);
        if (const auto *box = marker(ZrQtPlotChannel::Rectangles))
            return at(box, region().center());
        const auto *ring = marker(ZrQtPlotChannel::Circles);
        return ring ? at(ring, circle().center()) : QPoint();
    }
    QRectF region() const { return marker(ZrQtPlotChannel::Rectangles)->rectangles().first(); }
    QRectF circle() const { return marker(ZrQtPlotChannel::Circles)->circles().first(); }

    /// The texts in the row \a head of the part \a title of the panel.
    QStringList row(const char *title, const QString &head, int count) const
    {
        QCoreApplication::processEvents();
        const auto *panel = window.findChild<QTextBrowser *>(QStringLiteral("markerReadout"));
        QStringList cells = panel->toPlainText().split(QLatin1Char('\n'));
        for (QString &cell : cells)
            cell = cell.trimmed();
        const int from = cells.indexOf(QLatin1String(title));
        const int at = from < 0 ? -1 : cells.indexOf(head, from);
        return at < 0 ? QStringList() : cells.mid(at + 1, count);
    }
    QVector<double> numbers(const char *title, const QString &head, int count) const
    {
        QVector<double> numbers;
        for (const QString &text : row(title, head, count))
            numbers.append(text.toDouble());
        return numbers;
    }
    bool panelIsOpen() const
    {
        return window.findChild<QDockWidget *>(QStringLiteral("markerPanel"))->isVisible();
    }
};

#endif // MARKERSCENE_H
