#ifndef VIEWER_HINTWITHKEY_H
#define VIEWER_HINTWITHKEY_H

#include <QtWidgets/QAction>

/// The tool tip of \a action: what it does, and its key.
inline QString hintWithKey(const QString &hint, const QAction &action)
{
    return QStringLiteral("%1 (%2)").arg(hint, action.shortcut().toString(QKeySequence::NativeText));
}

#endif // VIEWER_HINTWITHKEY_H
