#include "platform/ui/window_twips.h"

#include "platform/numeric.h"
#include "platform/twips.h"

#include <QFont>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace window_twips {

namespace {
const QScreen* screenOf(const QWidget* widget) {
    const QScreen* screen = widget ? widget->screen() : nullptr;
    return screen ? screen : QGuiApplication::primaryScreen();
}
} // namespace

double twipsPerPixel(const QWidget* widget) {
    const QScreen* screen = screenOf(widget);
    if (!screen)
        return 15.0;
    return twips::twipsPerPixel(twips::logPixels(screen->logicalDotsPerInchX(), screen->devicePixelRatio()));
}

int px(const QWidget* widget, double twipValue) {
    const QScreen* screen = screenOf(widget);
    const double ratio = screen ? screen->devicePixelRatio() : 1.0;
    // Twips to device pixels, then to the logical pixels Qt lays out in.
    const int device = twips::toPixels(twipValue, twipsPerPixel(widget));
    return static_cast<int>(roundHalfEven(device / ratio));
}

void place(QWidget* child, double left, double top, double width, double height) {
    child->setGeometry(px(child, left), px(child, top), px(child, width), px(child, height));
}

void sizeAndCentre(QWidget* window, double width, double height) {
    const QSize size(px(window, width), px(window, height));
    window->setFixedSize(size);
    if (const QScreen* screen = screenOf(window)) {
        const QRect area = screen->availableGeometry();
        window->move(area.center() - QPoint(size.width() / 2, size.height() / 2));
    }
}

QFont designFont(const QFont& base) {
    QFont design = base;
    design.setFamilies({QStringLiteral("MS Sans Serif"), QStringLiteral("Liberation Sans"), QStringLiteral("Arial")});
    design.setPointSize(8);
    return design;
}

void makeTopmost(QWidget* window) {
    if (!(window->windowFlags() & Qt::WindowStaysOnTopHint)) {
        const bool visible = window->isVisible();
        window->setWindowFlag(Qt::WindowStaysOnTopHint, true);
        if (visible)
            window->show();
    }
    window->raise();
}

} // namespace window_twips
