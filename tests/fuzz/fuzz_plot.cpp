#include "plotstage.h"

#include <QtCore/QRegularExpression>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

void failOnMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    static const QRegularExpression expected(
        QStringLiteral("^This plugin does not support|^dataX and dataY have different sizes$"));
    if (type == QtDebugMsg || type == QtInfoMsg || expected.match(text).hasMatch())
        return;
    std::fprintf(stderr, "message: %s\n", qPrintable(text));
    require(false, "wrong input is taken in silence");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "Europe/Berlin");
    // Never deleted: the end of the program is too late for it.
    static const auto *const application = new QApplication(*argc, *argv);
    Q_UNUSED(application)
    qInstallMessageHandler(failOnMessage);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ByteInput input(data, size);
    PlotStage(input).play();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
