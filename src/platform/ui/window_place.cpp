#include "platform/ui/window_place.h"

#include "platform/numeric.h"
#include "platform/ui/x11_desktop.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <optional>

namespace window_place {

namespace {

// Nothing where only Qt's logical place is known, or while the window manager has not framed the window.
std::optional<QPoint> nativeTopLeft(const QWidget& window) {
    const QWindow* handle = window.windowHandle();
    if (!handle || !window.isVisible())
        return std::nullopt;
    return x11_desktop::frameCorner(*handle);
}

bool moveNatively(QWidget& window, const QPoint& device, bool frameKnown = false) {
    return window.isVisible() && window.windowHandle() &&
           x11_desktop::moveFrame(*window.windowHandle(), device, frameKnown);
}

// A window just shown is framed by the manager a little later, and its place may depend on that frame; the
// manager may also place it once more while it maps it. So the place is looked at, and asked for again, until it
// has held for a few looks. One never framed, as where no window manager runs, is left where Qt put it.
void moveWhenFramed(QWidget& window, const QPoint& device, int looksLeft = 250, int held = 0) {
    if (!x11_desktop::available() || !window.isVisible() || looksLeft <= 0 || held >= 10)
        return;
    if (nativeTopLeft(window) == device) {
        ++held;
    } else {
        held = 0;
        moveNatively(window, device, true);
    }
    QTimer::singleShot(20, &window,
                       [&window, device, looksLeft, held] { moveWhenFramed(window, device, looksLeft - 1, held); });
}

QPoint scaled(const QPoint& point, double factor) {
    return QPoint(static_cast<int>(roundHalfEven(point.x() * factor)),
                  static_cast<int>(roundHalfEven(point.y() * factor)));
}

// One per window: takes it to its device pixel when it is shown, and remembers where it stood when it is hidden.
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
    // The program places the window itself from here on.
    void forget() {
        m_armed = false;
        m_logicalKnown = false;
    }
    void keep() { m_keep = true; }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Move && m_keep && m_window.isVisible() && !m_window.isMinimized()) {
            // Read while the window is framed: once hidden, the manager has taken its frame away.
            const std::optional<QPoint> corner = nativeTopLeft(m_window);
            const std::optional<QPoint> client = corner ? x11_desktop::windowPlace(*m_window.windowHandle()) : corner;
            if (client) {
                arm(*corner);
                m_frameOffset = *client - *corner;
                m_frameOffsetKnown = true;
            }
        } else if (event->type() == QEvent::Hide && m_keep && !m_window.isVisible() && !m_window.isMinimized()) {
            m_logical = m_window.geometry().topLeft();
            m_logicalKnown = true;
        } else if (event->type() == QEvent::Show) {
            // Sent before Qt maps the window. Through the native window, as a move to where Qt already thinks the
            // window stands would be dropped, and the window manager would place it anew.
            QWindow* handle = m_window.windowHandle();
            if (m_logicalKnown && handle)
                handle->setPosition(m_logical);
            const bool native = m_armed && x11_desktop::available();
            // A window framed before goes out at its own device pixel; the manager frames it around that. Else
            // the move follows the framing.
            if (native && m_frameOffsetKnown && handle)
                x11_desktop::moveWindow(*handle, m_place + m_frameOffset);
            if (native)
                QTimer::singleShot(0, this, [this, place = m_place] { moveWhenFramed(m_window, place); });
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
    // The window's own corner less its frame's, when it was last framed.
    QPoint m_frameOffset;
    bool m_frameOffsetKnown = false;
};

} // namespace

void move(QWidget& window, const QPoint& device) {
    window.move(scaled(device, 1.0 / window.devicePixelRatioF()));
    Placer& placer = Placer::of(window);
    placer.forget();
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
        area =
            QRect(scaled(logical.topLeft(), screen->devicePixelRatio()), logical.size() * screen->devicePixelRatio());
    }
    move(window,
         area->topLeft() + QPoint((area->width() - device.width()) / 2, (area->height() - device.height()) / 2));
}

QPoint topLeft(const QWidget& window) {
    if (const std::optional<QPoint> native = nativeTopLeft(window))
        return *native;
    // A window's logical place includes its frame.
    return scaled(window.pos(), window.devicePixelRatioF());
}

void keep(QWidget& window) {
    Placer::of(window).keep();
}

} // namespace window_place
