#ifdef QT_GUI_LIB
#include <QGuiApplication>
#else
#include <QCoreApplication>
#endif

namespace {

#ifdef QT_GUI_LIB
using Application = QGuiApplication;
#else
using Application = QCoreApplication;
#endif

// Damaged input is complained of, which would slow the fuzzer down.
void dropMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

// Before the first input: what a program has that decodes pictures and watches files.
extern "C" int LLVMFuzzerInitialize(int* argumentCount, char*** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const Application application(*argumentCount, *arguments);
    qInstallMessageHandler(dropMessage);
    return 0;
}
