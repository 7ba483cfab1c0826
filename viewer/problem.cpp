#include "problem.h"

QString Problem::sentence(const QString &file) const
{
    QString place = file;
    if (line > 0)
        place += QStringLiteral(", line %1").arg(line);
    if (column > 0)
        place += QStringLiteral(", column %1").arg(column);
    return place + QStringLiteral(": ") + text + QLatin1Char('.');
}
