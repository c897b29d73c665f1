#include "engine/ui/bellwick_app.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("bellwick"));
    QApplication::setApplicationVersion(QStringLiteral(BELLWICK_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    return BellwickApp::run();
}
