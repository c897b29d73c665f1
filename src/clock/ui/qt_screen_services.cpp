#include "clock/ui/qt_screen_services.h"

#include "platform/numeric.h"
#include "platform/twips.h"
#include "platform/ui/x11_desktop.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace {
int32_t toDevice(double logical, double ratio) {
    return static_cast<int32_t>(roundHalfEven(logical * ratio));
}
} // namespace

QScreen* QtScreenServices::screen() {
    return QGuiApplication::primaryScreen();
}

int32_t QtScreenServices::logPixelsX() const {
    const QScreen* s = screen();
    return s ? twips::logPixels(s->logicalDotsPerInchX(), s->devicePixelRatio()) : 96;
}

float QtScreenServices::twipsPerPixelX() const {
    return static_cast<float>(twips::twipsPerPixel(logPixelsX()));
}

float QtScreenServices::twipsPerPixelY() const {
    const QScreen* s = screen();
    if (!s)
        return 15.0f;
    return static_cast<float>(twips::twipsPerPixel(twips::logPixels(s->logicalDotsPerInchY(), s->devicePixelRatio())));
}

int32_t QtScreenServices::screenWidth() const {
    if (const std::optional<QRect> whole = x11_desktop::screenGeometry())
        return whole->width();
    const QScreen* s = screen();
    return s ? toDevice(s->geometry().width(), s->devicePixelRatio()) : 0;
}

bool QtScreenServices::getWorkArea(PixelRect& area) const {
    if (const std::optional<QRect> work = x11_desktop::workArea()) {
        area = {work->left(), work->top(), work->left() + work->width(), work->top() + work->height()};
        return true;
    }
    const QScreen* s = screen();
    if (!s)
        return false;
    const QRect g = s->availableGeometry();
    const double ratio = s->devicePixelRatio();
    area.left = toDevice(g.x(), ratio);
    area.top = toDevice(g.y(), ratio);
    area.right = toDevice(g.x() + g.width(), ratio);
    area.bottom = toDevice(g.y() + g.height(), ratio);
    return true;
}

QPoint QtScreenServices::cursorPos() const {
    if (const std::optional<QPoint> at = x11_desktop::pointer())
        return *at;
    QScreen* s = screen();
    const QPoint p = s ? QCursor::pos(s) : QCursor::pos();
    const double ratio = s ? s->devicePixelRatio() : 1.0;
    return QPoint(toDevice(p.x(), ratio), toDevice(p.y(), ratio));
}

void QtScreenServices::setCursorPos(int32_t x, int32_t y) {
    if (x11_desktop::warpPointer(QPoint(x, y)))
        return;
    QScreen* s = screen();
    const double ratio = s ? s->devicePixelRatio() : 1.0;
    const QPoint logical(static_cast<int>(roundHalfEven(x / ratio)), static_cast<int>(roundHalfEven(y / ratio)));
    if (s)
        QCursor::setPos(s, logical);
    else
        QCursor::setPos(logical);
}

bool QtScreenServices::moveWindow(const QWindow& window, const QPoint& place) {
    return x11_desktop::moveWindow(window, place);
}

std::optional<QPoint> QtScreenServices::windowPlace(const QWindow& window) const {
    return x11_desktop::windowPlace(window);
}
