#include "plotstage.h"

#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "ZrQtPlotWidgets/zrqtplotchannel.h"
#include "ZrQtPlotWidgets/zrqtplotslider.h"
#include "shared/mouseprobe.h"

#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>

#include <algorithm>

/// A value of an edit field, and the end of the editing.
void PlotStage::typeIntoAxis()
{
    auto *axis = m_tame ? nullptr : anyThing<ZrQtAxis>();
    if (!axis)
        return;
    axis->setLabelFormat(m_input.flag() ? ZrQtAxis::FloatingPoint : ZrQtAxis::TimePlusMs);
    axis->setMinMaxEditable(true);
    const QList<QGraphicsScene *> scenes = axis->findChildren<QGraphicsScene *>();
    const QPointer<QGraphicsScene> scene = scenes.at(m_input.below(scenes.size()));
    const QList<QGraphicsItem *> items = scene->items();
    for (QGraphicsItem *item : items) {
        const auto *proxy = qgraphicsitem_cast<QGraphicsProxyWidget *>(item);
        if (auto *number = proxy ? qobject_cast<QDoubleSpinBox *>(proxy->widget()) : nullptr) {
            number->setValue(m_input.real());
            Q_EMIT number->editingFinished();
        } else if (auto *time = proxy ? qobject_cast<QDateTimeEdit *>(proxy->widget()) : nullptr) {
            time->setTime(QTime::fromMSecsSinceStartOfDay(m_input.raw<std::uint16_t>() * 1000));
            Q_EMIT time->editingFinished();
        }
    }
}

void PlotStage::moveMouse()
{
    OpenPlot *over = plot();
    const QPoint position{m_input.below(256) * 2 - 20, m_input.below(256) * 2 - 20};
    if (m_input.flag())
        QCursor::setPos(over->mapToGlobal(position));
    const Qt::MouseButtons held = m_input.flag() ? Qt::LeftButton : Qt::NoButton;
    QWidget *child = over->childAt(position);
    if (child)
        moveTo(child, child->mapFrom(over, position), held);
    else
        moveTo(over, position, held);
}

void PlotStage::pressMouse()
{
    OpenPlot *over = plot();
    const QPoint position{m_input.below(256) * 2 - 20, m_input.below(256) * 2 - 20};
    const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton};
    const QEvent::Type types[] = {QEvent::MouseButtonPress, QEvent::MouseButtonPress,
                                  QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick};
    const QEvent::Type type = m_input.anyOf(types);
    const Qt::MouseButton button = m_input.anyOf(buttons);
    QWidget *child = over->childAt(position);
    QWidget *target = QWidget::mouseGrabber() ? QWidget::mouseGrabber() : child ? child : over;
    sendMouse(target, type, target->mapFromGlobal(over->mapToGlobal(position)), button,
              type == QEvent::MouseButtonRelease ? Qt::NoButton : button);
}

/// At the content of a channel, or at a handle of a slider, where a random pixel would hardly hit.
void PlotStage::dragContent()
{
    QWidget *target = thing();
    const QPoint by(m_input.raw<std::int8_t>(), m_input.raw<std::int8_t>());
    QPoint from{m_input.below(256) * 2, m_input.below(256) * 2};
    if (auto *channel = qobject_cast<ZrQtPlotChannel *>(target)) {
        QVector<QPointF> places = channel->points();
        for (const QRectF &each : channel->rectangles() + channel->circles())
            places << each.topLeft() << each.center() << QPointF(each.right(), each.center().y());
        for (const QLineF &each : channel->lines() + channel->lineSegments())
            places << each.p1() << each.center() << each.p2();
        places << channel->boundingRect().center();
        from = channel->mapToPixel(places.at(m_input.below(std::min(places.size(), 256))));
    }
    if (!target || !target->rect().contains(from))
        return;
    // In a plot a channel hears of the mouse from it alone.
    QWidget *receiver = target->parentWidget() && qobject_cast<ZrQtBaseChannel *>(target)
                            ? target->parentWidget()->childAt(target->mapToParent(from))
                            : target;
    if (!receiver)
        return;
    const QPointer<QWidget> alive(receiver);
    const QPoint local = receiver->mapFrom(target->window(), target->mapTo(target->window(), from));
    moveTo(receiver, local, Qt::NoButton);
    if (alive)
        press(receiver, local);
    if (alive)
        moveTo(receiver, local + by);
    if (alive && m_input.flag())
        release(receiver, local + by);
}

void PlotStage::turnTheWheel()
{
    OpenPlot *over = plot();
    const QPoint position{m_input.below(256) * 2, m_input.below(256) * 2};
    QWidget *child = over->childAt(position);
    QWidget *target = child ? child : over;
    turnWheel(target, target->mapFrom(over, position), {m_input.integer(), m_input.integer()});
}

void PlotStage::pressKey()
{
    const Qt::Key keys[] = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab, Qt::Key_1, Qt::Key_Left};
    QWidget *target = m_input.flag() ? thing() : nullptr;
    QTest::keyClick(target ? target : plot(), m_input.anyOf(keys));
}
