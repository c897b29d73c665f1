#include "platform/ui/window_place.h"

#include "platform/numeric.h"
#include "platform/twips.h"
#include "platform/ui/window_twips.h"
#include "platform/ui/x11_desktop.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace window_place {

namespace {

bool moveNatively(QWidget& window, const QPoint& device, bool frameKnown = false) {
    return window.isVisible() && window.windowHandle() &&
           x11_desktop::moveFrame(*window.windowHandle(), device, frameKnown);
}

// A window just shown is framed by the manager a little later; its place may depend on that frame.
void moveWhenFramed(QWidget& window, const QPoint& device, int triesLeft = 25) {
    if (!x11_desktop::available() || moveNatively(window, device, triesLeft > 0) || triesLeft <= 0 ||
        !window.isVisible())
        return;
    QTimer::singleShot(20, &window, [&window, device, triesLeft] { moveWhenFramed(window, device, triesLeft - 1); });
}

// Takes a hidden window from the place Qt showed it at to its device pixel.
class ShowPlacer : public QObject {
public:
    explicit ShowPlacer(QWidget& window) : QObject(&window), m_window(window) { window.installEventFilter(this); }
    void arm(const QPoint& device) {
        m_place = device;
        m_armed = true;
    }
    void disarm() { m_armed = false; }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Show && m_armed) {
            m_armed = false;
            // Sent before Qt maps the window at its logical place: the native move follows that.
            QTimer::singleShot(0, this, [this, place = m_place] { moveWhenFramed(m_window, place); });
        }
        return false;
    }

private:
    QWidget& m_window;
    QPoint m_place;
    bool m_armed = false;
};

} // namespace

void move(QWidget& window, const QPoint& device) {
    const double ratio = window.devicePixelRatioF();
    window.move(static_cast<int>(roundHalfEven(device.x() / ratio)),
                static_cast<int>(roundHalfEven(device.y() / ratio)));
    // No meta-object of its own, so no findChild.
    ShowPlacer* placer = nullptr;
    for (QObject* child : window.children())
        if (auto* p = dynamic_cast<ShowPlacer*>(child))
            placer = p;
    if (placer)
        placer->disarm();
    if (!window.isVisible()) {
        if (!placer)
            placer = new ShowPlacer(window);
        placer->arm(device);
    } else if (window.windowHandle() && window.windowHandle()->isExposed()) {
        moveNatively(window, device);
    } else {
        // Being shown: the manager takes a move before the map for a first placing of its own.
        QTimer::singleShot(0, &window, [&window, device] { moveWhenFramed(window, device); });
    }
}

std::optional<QPoint> nativeTopLeft(const QWidget& window) {
    const QWindow* handle = window.windowHandle();
    if (!handle || !window.isVisible())
        return std::nullopt;
    const std::optional<QPoint> client = x11_desktop::windowPlace(*handle);
    if (!client)
        return std::nullopt;
    const QMargins frame = x11_desktop::frameExtents(*handle).value_or(QMargins());
    return *client - QPoint(frame.left(), frame.top());
}

QPoint topLeft(const QWidget& window) {
    if (const std::optional<QPoint> native = nativeTopLeft(window))
        return *native;
    // A window's logical place includes its frame.
    const double ratio = window.devicePixelRatioF();
    return QPoint(static_cast<int>(roundHalfEven(window.x() * ratio)),
                  static_cast<int>(roundHalfEven(window.y() * ratio)));
}

void moveTwips(QWidget& window, double left, double top) {
    const double perPixel = window_twips::twipsPerPixel(&window);
    move(window, QPoint(twips::toPixels(left, perPixel), twips::toPixels(top, perPixel)));
}

QPointF topLeftTwips(const QWidget& window) {
    const double perPixel = window_twips::twipsPerPixel(&window);
    const QPoint device = topLeft(window);
    return QPointF(twips::toTwips(device.x(), perPixel), twips::toTwips(device.y(), perPixel));
}

} // namespace window_place
