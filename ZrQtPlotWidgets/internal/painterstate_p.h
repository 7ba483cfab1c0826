#ifndef PAINTERSTATE_P_H
#define PAINTERSTATE_P_H

#include <QtGui/QPainter>

/// Saves a painter's state for the life of this object, so that a function leaves the painter as it found it.
class PainterState
{
public:
    explicit PainterState(QPainter &painter)
        : m_painter(painter)
    {
        m_painter.save();
    }

    ~PainterState() { m_painter.restore(); }

private:
    Q_DISABLE_COPY(PainterState)

    QPainter &m_painter;
};

#endif // PAINTERSTATE_P_H
