#include "zrqtplotchanneledit.h"

#include "zrqtplotchanneledit_p.h"

#include <QtCore/QEvent>
#include <QtGui/QFontMetrics>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>

void ZrQtPlotChannelEditPrivate::init(const QString &name)
{
    buildChildren();
    nameLabel->setText(name);
    QObject::connect(visibilityButton, &QPushButton::clicked, q, [this] {
        if (channel)
            channel->setVisible(visibilityButton->isChecked());
    });
    QObject::connect(colorBox, &QPushButton::clicked, q, [this] { chooseColor(); });
    q->setChannelColor(QColor(0, 0, 0, 255));
    q->update();
}

void ZrQtPlotChannelEditPrivate::buildChildren()
{
    gridLayout = new QGridLayout(q);
    gridLayout->setContentsMargins(0, 0, 0, 0);

    visibilityButton = new QPushButton(q);
    visibilityButton->setCheckable(true);
    gridLayout->addWidget(visibilityButton, 0, 0);

    nameLabel = new QLabel(q);
    nameLabel->setObjectName(QStringLiteral("label"));
    gridLayout->addWidget(nameLabel, 0, 1);

    colorBox = new QPushButton(q);
    colorBox->setObjectName(QStringLiteral("colorBox"));
    colorBox->setCheckable(true);
    colorBox->hide();
    gridLayout->addWidget(colorBox, 1, 0);

    auto *boxLayout = new QGridLayout(colorBox);
    boxLayout->setContentsMargins(6, 6, 6, 6);
    boxLayout->setSpacing(0);
    colorSwatch = new QWidget(colorBox);
    boxLayout->addWidget(colorSwatch);

    QFont font = nameLabel->font();
    font.setPointSize(14);
    const int side = QFontMetrics(font).height();
    visibilityButton->setMaximumSize(side, side);
}

void ZrQtPlotChannelEditPrivate::chooseColor()
{
    // The box is checked while the channel is seen; a click is not to change that.
    colorBox->toggle();
    // Control and channel may be deleted while the dialog is open.
    const QPointer<ZrQtPlotChannelEdit> edit(q);
    const QColor color = QColorDialog::getColor(Qt::white, nullptr, QString());
    if (!edit)
        return;
    // On purpose not asked whether it is valid.
    q->setChannelColor(color);
    if (channel)
        channel->setLineColor(color);
}

void ZrQtPlotChannelEditPrivate::setBothChecked(bool checked)
{
    colorBox->setChecked(checked);
    visibilityButton->setChecked(checked);
}

ZrQtPlotChannelEdit::ZrQtPlotChannelEdit(const QString &name, QWidget *parent)
    : QFrame(parent)
    , m_d(new ZrQtPlotChannelEditPrivate(this))
{
    Q_D(ZrQtPlotChannelEdit);
    d->init(name);
}

ZrQtPlotChannelEdit::ZrQtPlotChannelEdit(QWidget *parent)
    : ZrQtPlotChannelEdit(QStringLiteral("Unnamed Channel"), parent)
{
}

ZrQtPlotChannelEdit::~ZrQtPlotChannelEdit() = default;

QString ZrQtPlotChannelEdit::channelName() const
{
    Q_D(const ZrQtPlotChannelEdit);
    return d->nameLabel->text();
}

void ZrQtPlotChannelEdit::setChannelName(const QString &channelName)
{
    Q_D(ZrQtPlotChannelEdit);
    d->nameLabel->setText(channelName);
}

QColor ZrQtPlotChannelEdit::channelColor() const
{
    Q_D(const ZrQtPlotChannelEdit);
    return d->channelColor;
}

void ZrQtPlotChannelEdit::setChannelColor(const QColor &color)
{
    Q_D(ZrQtPlotChannelEdit);
    d->channelColor = color;
    d->colorText = QStringLiteral("rgb(%1, %2, %3)").arg(color.red()).arg(color.green()).arg(color.blue());
    d->visibilityButton->setStyleSheet(
        QStringLiteral("QPushButton {background-color: %1;border-width: 2px;border-radius: 5px;"
                       "border-color: %1;border-style: solid;padding: 6px;margin: 1px}"
                       "QPushButton:!checked {background-color: white;}")
            .arg(d->colorText));
    d->colorSwatch->setStyleSheet(QStringLiteral("QWidget {background: %1;}").arg(d->colorText));
    QStyle *style = d->colorSwatch->style();
    style->unpolish(d->colorSwatch);
    style->polish(d->colorSwatch);
    update();
}

bool ZrQtPlotChannelEdit::channelVisible() const
{
    Q_D(const ZrQtPlotChannelEdit);
    return d->visibilityButton->isChecked();
}

void ZrQtPlotChannelEdit::setChannelVisible(bool visible)
{
    Q_D(ZrQtPlotChannelEdit);
    d->visibilityButton->setChecked(visible);
}

void ZrQtPlotChannelEdit::setPlotChannel(ZrQtBaseChannel *channel)
{
    Q_D(ZrQtPlotChannelEdit);
    if (d->channel)
        d->channel->removeEventFilter(this);
    if (channel) {
        setChannelColor(channel->lineColor());
        d->visibilityButton->setChecked(channel->isSelectedForDisplay());
        channel->installEventFilter(this);
    }
    d->channel = channel;
}

bool ZrQtPlotChannelEdit::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(ZrQtPlotChannelEdit);
    const bool shown = event->type() == QEvent::Show;
    if ((shown || event->type() == QEvent::Hide) && qobject_cast<ZrQtBaseChannel *>(watched)) {
        d->setBothChecked(shown);
        update();
    }
    return QFrame::eventFilter(watched, event);
}

void ZrQtPlotChannelEdit::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
}
