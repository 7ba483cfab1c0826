#ifndef ZRQTPLOTWIDGETS_GLOBAL_H
#define ZRQTPLOTWIDGETS_GLOBAL_H

#include <QtCore/qglobal.h>

/// Version of these headers, for example `"0.1.0"`.
#define ZRQTPLOTWIDGETS_VERSION_STR "0.1.0"
/// Version of these headers as a number that can be compared with QT_VERSION_CHECK(0, 1, 0).
#define ZRQTPLOTWIDGETS_VERSION QT_VERSION_CHECK(0, 1, 0)

/// Marks the classes of the library as exported (while the library itself is
/// built) or imported (in every other translation unit). A static build defines
/// ZRQTPLOTWIDGETS_STATIC for itself and its users.
#if defined(ZRQTPLOTWIDGETS_STATIC)
#define ZRQTPLOTWIDGETS_EXPORT
#elif defined(ZRQTPLOTWIDGETS_BUILD)
#define ZRQTPLOTWIDGETS_EXPORT Q_DECL_EXPORT
#else
#define ZRQTPLOTWIDGETS_EXPORT Q_DECL_IMPORT
#endif

#endif // ZRQTPLOTWIDGETS_GLOBAL_H
