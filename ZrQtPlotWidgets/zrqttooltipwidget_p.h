#ifndef ZRQTTOOLTIPWIDGET_P_H
#define ZRQTTOOLTIPWIDGET_P_H

//
// This file is not part of the API. It exists for the convenience of the library's own sources and may change
// from version to version without notice.
//

#include <QtWidgets/QWidget>

class QLabel;

/// The floating text next to the mouse: a window of its own that takes no focus and no input.
class ToolTipWidget : public QWidget
{
    Q_OBJECT

public:
    /// The plot makes it without a parent: it must know the tooltip before it hears of a new child.
    explicit ToolTipWidget(QWidget *parent = nullptr);

    QString text() const;
    /// Shows \a text, as rich text where it looks like that, and takes its size.
    void setText(const QString &text);
    const QFont &textFont() const;

private:
    QLabel *m_label;
};

#endif // ZRQTTOOLTIPWIDGET_P_H
