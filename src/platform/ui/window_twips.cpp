#include "platform/ui/window_twips.h"

#include "platform/numeric.h"
#include "platform/twips.h"
#include "platform/ui/front.h"
#include "platform/ui/window_place.h"

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
    window->setFixedSize(px(window, width), px(window, height));
    const double perPixel = twipsPerPixel(window);
    window_place::centre(*window, QSize(twips::toPixels(width, perPixel), twips::toPixels(height, perPixel)));
}

void moveTo(QWidget* window, double left, double top) {
    const double perPixel = twipsPerPixel(window);
    window_place::move(*window, QPoint(twips::toPixels(left, perPixel), twips::toPixels(top, perPixel)));
}

QPointF placeOf(const QWidget* window) {
    const double perPixel = twipsPerPixel(window);
    const QPoint device = window_place::topLeft(*window);
    return QPointF(twips::toTwips(device.x(), perPixel), twips::toTwips(device.y(), perPixel));
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
    Front::keepSystemBoxOnTop();
}

} // namespace window_twips
