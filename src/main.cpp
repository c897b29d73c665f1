#include "app/bellwick_app.h"
#include "engine/command_client.h"
#include "engine/command_line.h"
#include "engine/command_protocol.h"
#include "engine/show_request.h"
#include "platform/display_choice.h"
#include "platform/session_bus.h"

#include <QApplication>
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QProcessEnvironment>

#include <cstdio>
#include <vector>

int main(int argc, char** argv) {
    QList<QByteArray> rawArguments;
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        rawArguments << QByteArray(argv[i]);
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    auto print = [](const command_line::Answer& answer) {
        std::fputs(answer.out.toLocal8Bit().constData(), stdout);
        std::fputs(answer.err.toLocal8Bit().constData(), stderr);
        return std::fflush(stdout) == 0 ? answer.exitCode : 1;
    };
    if (command_protocol::isSubCommand(arguments)) {
        if (const auto refused = command_line::notUtf8(rawArguments))
            return print(*refused);
    }
    // Answered before the display, the lock or any file is touched.
    if (const auto answer = command_line::answer(arguments, QStringLiteral(BELLWICK_VERSION)))
        return print(*answer);
    // The sub-commands talk to the running program and need no display.
    if (command_protocol::isSubCommand(arguments)) {
        QCoreApplication app(argc, argv);
        const auto request = command_protocol::parse(arguments).request;
        if (const auto refused = command_client::refusedHere(*request))
            return print(*refused);
        return print(
            command_client::run(*request, command_client::userChannel(QCoreApplication::applicationFilePath())));
    }
    if (show_request::isShow(arguments)) {
        QCoreApplication app(argc, argv);
        const QString window = show_request::parse(arguments).window;
        return print(command_client::run(show_request::request(window),
                                         command_client::userChannel(QCoreApplication::applicationFilePath())));
    }
    // The platform goes on the command line, not into the environment the programs we start inherit.
    QByteArray platformOption("-platform");
    QByteArray platform =
        display_choice::platformToAsk(QProcessEnvironment::systemEnvironment(), arguments).toLocal8Bit();
    std::vector<char*> qtArguments(argv, argv + argc);
    if (!platform.isEmpty())
        qtArguments.insert(qtArguments.end(), {platformOption.data(), platform.data()});
    int qtCount = static_cast<int>(qtArguments.size());
    qtArguments.push_back(nullptr);
    // Without a session bus nothing may start one: it would outlive us.
    session_bus::switchOffWhenAbsent();
    // Our windows are small: shared-memory images would wake Qt's X thread at every face change of the clock.
    const bool sharedImages = !qEnvironmentVariableIsSet("QT_XCB_NO_MITSHM");
    if (sharedImages)
        qputenv("QT_XCB_NO_MITSHM", "1");
    QApplication app(qtCount, qtArguments.data());
    if (sharedImages)
        qunsetenv("QT_XCB_NO_MITSHM"); // read once at the connection; programs we start keep their own choice
    const QString notice = display_choice::limitsNotice(QGuiApplication::platformName());
    if (!notice.isEmpty()) {
        std::fputs(notice.toLocal8Bit().constData(), stderr);
        // Qt's tray looks for an X11-only signal there and says so; nothing is lost by it.
        QLoggingCategory::setFilterRules(QStringLiteral("qt.core.qobject.connect.warning=false"));
    }
    QApplication::setApplicationName(QStringLiteral("bellwick"));
    QApplication::setApplicationVersion(QStringLiteral(BELLWICK_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    return BellwickApp::run();
}
