#include "platform/ui/window_place.h"

#include "platform/numeric.h"
#include "platform/ui/x11_desktop.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
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

QPoint toLogical(const QWidget& window, const QPoint& device) {
    const double ratio = window.devicePixelRatioF();
    return QPoint(static_cast<int>(roundHalfEven(device.x() / ratio)),
                  static_cast<int>(roundHalfEven(device.y() / ratio)));
}

// One a window: takes it to its device pixel when it is shown, and remembers where it stood when it is hidden.
class Placer : public QObject {
public:
    static Placer& of(QWidget& window) {
        // No meta-object of its own, so no findChild.
        for (QObject* child : window.children())
            if (auto* placer = dynamic_cast<Placer*>(child))
                return *placer;
        return *new Placer(window);
    }

    void arm(const QPoint& device) {
        m_place = device;
        m_armed = true;
    }
    void disarm() { m_armed = false; }
    void keep() { m_keep = true; }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Move && m_keep && m_window.isVisible() && !m_window.isMinimized()) {
            // Read while the window is framed: once hidden, the manager has taken its frame away.
            if (const std::optional<QPoint> corner = nativeTopLeft(m_window))
                arm(*corner);
        } else if (event->type() == QEvent::Hide && m_keep && !m_window.isVisible() && !m_window.isMinimized()) {
            m_logical = m_window.geometry().topLeft();
            m_logicalKnown = !m_armed;
        } else if (event->type() == QEvent::Show) {
            // Sent before Qt maps the window at its logical place: the native move follows that.
            const bool native = m_armed && x11_desktop::available();
            if (native)
                QTimer::singleShot(0, this, [this, place = m_place] { moveWhenFramed(m_window, place); });
            else if (m_logicalKnown && m_window.windowHandle())
                // Through the native window: a move to where Qt already thinks the window stands would be
                // dropped, and the window manager would place it anew.
                m_window.windowHandle()->setPosition(m_logical);
            m_armed = native && m_keep;
            m_logicalKnown = false;
        }
        return false;
    }

private:
    explicit Placer(QWidget& window) : QObject(&window), m_window(window) { window.installEventFilter(this); }

    QWidget& m_window;
    QPoint m_place;
    bool m_armed = false;
    bool m_keep = false;
    // Where only Qt's logical place is known.
    QPoint m_logical;
    bool m_logicalKnown = false;
};

} // namespace

void move(QWidget& window, const QPoint& device) {
    window.move(toLogical(window, device));
    Placer& placer = Placer::of(window);
    placer.disarm();
    if (!window.isVisible())
        placer.arm(device);
    else if (window.windowHandle() && window.windowHandle()->isExposed())
        moveNatively(window, device);
    else
        // Being shown: the manager takes a move before the map for a first placing of its own.
        QTimer::singleShot(0, &window, [&window, device] { moveWhenFramed(window, device); });
}

void centre(QWidget& window, const QSize& device) {
    std::optional<QRect> area = x11_desktop::workArea();
    if (!area) {
        const QScreen* screen = window.screen() ? window.screen() : QGuiApplication::primaryScreen();
        if (!screen)
            return;
        const QRect logical = screen->availableGeometry();
        const double ratio = screen->devicePixelRatio();
        area = QRect(QPoint(static_cast<int>(roundHalfEven(logical.x() * ratio)),
                            static_cast<int>(roundHalfEven(logical.y() * ratio))),
                     logical.size() * ratio);
    }
    move(window,
         area->topLeft() + QPoint((area->width() - device.width()) / 2, (area->height() - device.height()) / 2));
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

void keep(QWidget& window) {
    Placer::of(window).keep();
}

} // namespace window_place
