#ifndef QUIETTEST_H
#define QUIETTEST_H

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>
#include <QtTest/QtTest>

/// Base of every test class: a Qt message that the test did not announce fails the test function that
/// provoked it. QTest::ignoreMessage cannot tell an unexpected message from none, so expected ones are
/// announced with expectMessage() instead.
class QuietTest : public QObject
{
    Q_OBJECT

public:
    /// Announces one message that must appear before the test function ends.
    static void expectMessage(const QString &pattern) { s_expected.append(QRegularExpression(pattern)); }

    /// Lets a message pass, in all tests and any number of times, that tells of the platform and not of us.
    static void tolerateMessages(const QString &pattern) { s_tolerated.append(QRegularExpression(pattern)); }

private Q_SLOTS:
    void init()
    {
        s_expected.clear();
        s_unexpected.clear();
        s_previous = qInstallMessageHandler(&QuietTest::handle);
    }

    void cleanup()
    {
        qInstallMessageHandler(s_previous);
        QVERIFY2(s_unexpected.isEmpty(), qPrintable(s_unexpected.join(QLatin1Char('\n'))));
        QVERIFY2(s_expected.isEmpty(), "an announced message did not appear");
    }

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        for (int i = 0; i < s_expected.size(); ++i) {
            if (s_expected.at(i).match(text).hasMatch()) {
                s_expected.removeAt(i);
                return;
            }
        }
        // The offscreen platform says so of every window that has a least size.
        if (text == QLatin1String("This plugin does not support propagateSizeHints()"))
            return;
        for (const QRegularExpression &tolerated : std::as_const(s_tolerated)) {
            if (tolerated.match(text).hasMatch())
                return;
        }
        if (type == QtWarningMsg || type == QtCriticalMsg)
            s_unexpected.append(text);
        s_previous(type, context, text);
    }

    static inline QtMessageHandler s_previous = nullptr;
    static inline QList<QRegularExpression> s_expected;
    static inline QList<QRegularExpression> s_tolerated;
    static inline QStringList s_unexpected;
};

#endif // QUIETTEST_H
