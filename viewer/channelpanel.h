#ifndef VIEWER_CHANNELPANEL_H
#define VIEWER_CHANNELPANEL_H

#include <QtCore/QVector>
#include <QtWidgets/QDockWidget>

struct PlottedSeries;

/// Lists the channels of a plot, each with a button that hides and shows it and one that opens a choice of
/// colours.
class ChannelPanel : public QDockWidget
{
    Q_OBJECT

public:
    explicit ChannelPanel(QWidget *parent = nullptr);

    void setSeries(const QVector<PlottedSeries> &series);

Q_SIGNALS:
    /// The user chose a colour for the series number \a index.
    void colorChosen(int index, const QColor &color);

private:
    QWidget *makeRow(int index, const PlottedSeries &series);
};

#endif // VIEWER_CHANNELPANEL_H
