#include "engine/command_line.h"
#include "engine/ui/bellwick_app.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    // Answered before the display, the lock or any file is touched.
    if (const auto answer = command_line::answer(arguments, QStringLiteral(BELLWICK_VERSION))) {
        std::fputs(answer->out.toLocal8Bit().constData(), stdout);
        std::fputs(answer->err.toLocal8Bit().constData(), stderr);
        return std::fflush(stdout) == 0 ? answer->exitCode : 1;
    }
    // Our windows are small: shared-memory images would wake Qt's X thread at every face change of the clock.
    if (!qEnvironmentVariableIsSet("QT_XCB_NO_MITSHM"))
        qputenv("QT_XCB_NO_MITSHM", "1");
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("bellwick"));
    QApplication::setApplicationVersion(QStringLiteral(BELLWICK_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    return BellwickApp::run();
}
