#include "zrqttooltipwidget_p.h"

#include <QtWidgets/QGraphicsDropShadowEffect>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolTip>

ToolTipWidget::ToolTipWidget(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowFlags(Qt::FramelessWindowHint | Qt::SplashScreen | Qt::WindowTransparentForInput);
    setAutoFillBackground(false);
    setMinimumSize(0, 0);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);

    m_label->setObjectName(QStringLiteral("toolTipLabel"));
    m_label->setStyleSheet(
        QStringLiteral("#toolTipLabel { background-color: white;  padding: 3px; border: 1px "
                       "solid black; color: #5b5b5b}"));
    m_label->setFont(QToolTip::font());
    m_label->setMinimumSize(0, 0);
    m_label->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    m_label->setMouseTracking(true);

    auto *shadow = new QGraphicsDropShadowEffect(m_label);
    shadow->setBlurRadius(5.0);
    shadow->setOffset(2.0, 2.0);
    m_label->setGraphicsEffect(shadow);

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_label);
}

QString ToolTipWidget::text() const
{
    return m_label->text();
}

void ToolTipWidget::setText(const QString &text)
{
    if (m_label->text() == text)
        return;
    m_label->setText(text);
    m_label->adjustSize();
    adjustSize();
}

const QFont &ToolTipWidget::textFont() const
{
    return m_label->font();
}
