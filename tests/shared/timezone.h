#ifndef TIMEZONE_H
#define TIMEZONE_H

#include <QtCore/QByteArray>

#include <ctime>

/// Puts the process into a time zone for the life of this object.
class TimeZone
{
public:
    explicit TimeZone(const char *name)
        : m_wasSet(qEnvironmentVariableIsSet("TZ"))
        , m_previous(qgetenv("TZ"))
    {
        qputenv("TZ", name);
        tzset();
    }

    ~TimeZone()
    {
        if (m_wasSet)
            qputenv("TZ", m_previous);
        else
            qunsetenv("TZ");
        tzset();
    }

private:
    Q_DISABLE_COPY(TimeZone)

    const bool m_wasSet;
    const QByteArray m_previous;
};

#endif // TIMEZONE_H
