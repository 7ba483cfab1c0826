#ifndef ZRQTPLOTFEATURE_P_H
#define ZRQTPLOTFEATURE_P_H

//
// This file is not part of the API. It exists for the convenience of the library's own sources and may change
// from version to version without notice, or even be removed.
//

#include "zrqtplotfeature.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

class ZrQtPlotFeaturePrivate
{
public:
    explicit ZrQtPlotFeaturePrivate(ZrQtPlotFeature *owner)
        : q(owner)
    {
    }
    virtual ~ZrQtPlotFeaturePrivate() = default;

    ZrQtPlotFeature *q;
    // The channel, not owned. Held as a widget, so that a cast tells whether it still is a channel: a feature
    // that lives among the children of its channel dies when the channel is but a widget.
    QPointer<QWidget> parentChannel;
};

#endif // ZRQTPLOTFEATURE_P_H
