#include "channelpanel.h"

#include "plottedseries.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QVBoxLayout>

#include <ZrQtPlotWidgets/zrqtplotchanneledit.h>

namespace {

constexpr int kLongestName = 160;
constexpr QSize kColorBoxSize(36, 24);

} // namespace

ChannelPanel::ChannelPanel(QWidget *parent)
    : QDockWidget(tr("Channels"), parent)
{
    setObjectName(QStringLiteral("channelPanel"));
    setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
}

void ChannelPanel::setSeries(const QVector<PlottedSeries> &series)
{
    auto *rows = new QWidget;
    auto *layout = new QVBoxLayout(rows);
    for (int i = 0; i < series.size(); ++i)
        layout->addWidget(makeRow(i, series[i]));
    layout->addStretch();

    auto *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setWidget(rows);
    delete widget();
    setWidget(area);
}

QWidget *ChannelPanel::makeRow(int index, const PlottedSeries &series)
{
    ZrQtBufferedChannel *channel = series.channel;
    auto *row = new ZrQtPlotChannelEdit;
    // A long name must not take the room of the plot.
    row->setChannelName(row->fontMetrics().elidedText(channel->name(), Qt::ElideMiddle, kLongestName));
    row->setToolTip(channel->name());
    row->setPlotChannel(channel);
    auto *box = row->findChild<QPushButton *>(QStringLiteral("colorBox"));
    box->show();
    // Beside the name instead of below the other button, where it would look like a second channel.
    auto *grid = static_cast<QGridLayout *>(row->layout());
    grid->addWidget(box, 0, 2);
    grid->setColumnStretch(1, 1);
    box->setFixedSize(kColorBoxSize);
    box->setToolTip(tr("Choose the colour of %1").arg(channel->name()));
    // The row answers the click first; a dialog that was cancelled leaves no valid colour.
    connect(box, &QPushButton::clicked, this,
            [this, row, index, shown = series.channel, color = channel->lineColor()]() mutable {
                if (!shown)
                    return;
                if (shown->lineColor().isValid()) {
                    color = shown->lineColor();
                    Q_EMIT colorChosen(index, color);
                } else {
                    shown->setLineColor(color);
                    row->setChannelColor(color);
                }
            });
    return row;
}
