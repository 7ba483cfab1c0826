#include "ZrQtPlotWidgets/zrqtaxis.h"
#include "driver.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsView>

namespace {

/// The field of the maximum is the second one.
QGraphicsView *maximumField(ZrQtAxis *axis)
{
    return axis->findChildren<QGraphicsView *>().at(1);
}

void selectHours(QGraphicsView *field)
{
    const auto items = field->scene()->items();
    for (QGraphicsItem *item : items) {
        if (auto *proxy = qgraphicsitem_cast<QGraphicsProxyWidget *>(item)) {
            if (auto *editor = qobject_cast<QDateTimeEdit *>(proxy->widget()))
                editor->setSelectedSection(QDateTimeEdit::HourSection);
        }
    }
}

void typeMaximum(ZrQtAxis *axis, double number, const QString &hours)
{
    QGraphicsView *field = maximumField(axis);
    QTest::mouseClick(field->viewport(), Qt::LeftButton);
    if (axis->labelFormat() == ZrQtAxis::TimePlusMs) {
        selectHours(field);
        QTest::keyClicks(field, hours);
    } else {
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, QString::number(number));
    }
    QTest::keyClick(field, Qt::Key_Return);
}

} // namespace

QString judge(QWidget &window)
{
    const auto boxes = window.findChildren<QCheckBox *>();
    const auto axes = window.findChildren<ZrQtAxis *>();
    for (const QString &hours : {QStringLiteral("13"), QStringLiteral("14")}) {
        for (ZrQtAxis *axis : axes) {
            const double maximum = axis->max();
            typeMaximum(axis, maximum + 1.0, hours);
            if (!(axis->max() > maximum))
                return QStringLiteral("the maximum at edge %1 cannot be typed").arg(axis->position());
        }
        for (QCheckBox *box : boxes)
            box->toggle(); // and now with the other horizontal axis turned
        QCoreApplication::processEvents();
    }
    return QString();
}
