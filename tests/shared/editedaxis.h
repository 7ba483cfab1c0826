#ifndef EDITEDAXIS_H
#define EDITEDAXIS_H

#include "ZrQtPlotWidgets/zrqtaxis.h"

#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QLineEdit>

/// What the tests of the edit fields share: an axis whose bounds can be typed, and its fields.

constexpr double Hour = 3600e3;
inline const double Morning = double(QDateTime(QDate(2020, 5, 4), QTime(8, 0)).toMSecsSinceEpoch());

inline bool isVertical(Qt::Edge edge)
{
    return edge == Qt::LeftEdge || edge == Qt::RightEdge;
}

/// The edit field of one bound, as the user sees it.
struct Field
{
    explicit Field(QGraphicsView *shownBy)
        : view(shownBy)
    {
        for (QGraphicsItem *item : view->scene()->items()) {
            auto *proxy = qgraphicsitem_cast<QGraphicsProxyWidget *>(item);
            if (auto *box = qobject_cast<QDoubleSpinBox *>(proxy->widget())) {
                spinBox = box;
                spinBoxProxy = proxy;
            } else {
                timeEditor = qobject_cast<QDateTimeEdit *>(proxy->widget());
                timeEditorProxy = proxy;
            }
        }
    }

    QAbstractSpinBox *editor() const
    {
        return spinBoxProxy->isVisible() ? static_cast<QAbstractSpinBox *>(spinBox) : timeEditor;
    }

    QString text() const { return editor()->text(); }

    /// A click into the middle gives the field the focus.
    void click() const
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          view->viewport()->rect().center());
    }

    /// Clicks, selects everything and types \a text.
    void type(const QString &text) const
    {
        click();
        QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(view, text);
    }

    void pressReturn() const { QTest::keyClick(view, Qt::Key_Return); }

    QGraphicsView *view;
    QDoubleSpinBox *spinBox = nullptr;
    QDateTimeEdit *timeEditor = nullptr;
    QGraphicsProxyWidget *spinBoxProxy = nullptr;
    QGraphicsProxyWidget *timeEditorProxy = nullptr;
};

/// An editable axis from 0 to 10 in an active window, with another widget that can take the focus.
struct EditedAxis
{
    explicit EditedAxis(Qt::Edge edge = Qt::LeftEdge)
        : axis(new ZrQtAxis(&window))
        , other(new QLineEdit(&window))
        , min(axis->findChildren<QGraphicsView *>().at(0))
        , max(axis->findChildren<QGraphicsView *>().at(1))
    {
        window.resize(600, 500);
        other->setGeometry(500, 450, 50, 20);
        axis->setLabelFormat(ZrQtAxis::FloatingPoint);
        axis->setMinMax(0.0, 10.0);
        setPosition(edge);
        axis->setMinMaxEditable(true);
        window.show();
        QApplication::setActiveWindow(&window);
        active = QTest::qWaitForWindowActive(&window);
    }

    void setPosition(Qt::Edge edge)
    {
        axis->setPosition(edge);
        axis->resize(isVertical(edge) ? QSize(axis->width(), 400) : QSize(400, axis->height()));
        axis->setMarginLow(40);
        axis->setMarginHigh(40);
    }

    void showTimes(double from, double to)
    {
        axis->setLabelFormat(ZrQtAxis::TimePlusMs);
        axis->setMinMax(from, to);
    }

    QWidget window;
    ZrQtAxis *axis;
    QLineEdit *other;
    Field min;
    Field max;
    bool active = false;
};

inline void addEdges()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::newRow("top") << Qt::TopEdge;
    QTest::newRow("left") << Qt::LeftEdge;
    QTest::newRow("right") << Qt::RightEdge;
    QTest::newRow("bottom") << Qt::BottomEdge;
}

#endif // EDITEDAXIS_H
