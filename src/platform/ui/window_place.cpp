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

// The frame's corner, once the manager has told the frame.
std::optional<QPoint> nativeTopLeftFramed(const QWidget& window) {
    const QWindow* handle = window.windowHandle();
    const std::optional<QMargins> frame = handle ? x11_desktop::frameExtents(*handle) : std::nullopt;
    const std::optional<QPoint> client = frame ? x11_desktop::windowPlace(*handle) : std::nullopt;
    if (!client)
        return std::nullopt;
    return *client - QPoint(frame->left(), frame->top());
}

bool moveNatively(QWidget& window, const QPoint& device, bool frameKnown = false) {
    return window.isVisible() && window.windowHandle() &&
           x11_desktop::moveFrame(*window.windowHandle(), device, frameKnown);
}

// A window just shown is framed by the manager a little later, and its place may depend on that frame; the
// manager and Qt may also place it once more while they map it. So the place is checked, and set again, until it
// has held for a few looks.
void moveWhenFramed(QWidget& window, const QPoint& device, int looksLeft = 30, int held = 0) {
    if (!x11_desktop::available() || !window.isVisible() || looksLeft <= 0 || held >= 3)
        return;
    const std::optional<QPoint> now = nativeTopLeftFramed(window);
    if (now == device) {
        ++held;
    } else {
        held = 0;
        // The last look takes the window without its frame, if the manager never tells it.
        moveNatively(window, device, looksLeft > 1);
    }
    QTimer::singleShot(20, &window,
                       [&window, device, looksLeft, held] { moveWhenFramed(window, device, looksLeft - 1, held); });
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
