#pragma once

#include "clock/clock_face.h"
#include "clock/docking_handler.h"

#include <QImage>
#include <QRegion>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <vector>

class Context;
class QAction;
class ClockTextLabel;
class QMenu;
class QMouseEvent;
class QTimer;
class ScreenServices;

// The desktop clock: a borderless, always-on-top pill that shows the time or the date, snaps to the edges
// of the work area and rolls up behind the top of the screen. Where windows cannot place themselves
// (Wayland) it is a plain borderless window that the compositor moves when its face is dragged. Closing it
// ends only the clock; it is deleted on close and built afresh by the next show.
class DesktopClock : public QWidget, public DockWindow {
    Q_OBJECT
public:
    // On the real screen, with the docking handler that all clocks of this run share.
    explicit DesktopClock(Context& ctx, QWidget* parent = nullptr);
    DesktopClock(Context& ctx, ScreenServices& screen, DockingHandler& dock, QWidget* parent = nullptr,
                 bool placeable = true);
    ~DesktopClock() override;

    // Made on first use and kept when the clock is closed, so its edge flags survive a reopen.
    static DockingHandler& sharedDock();

    // Shows the Alarm Set window (un-minimised); connected at start-up.
    std::function<void()> showAlarmSet;

    // What the tray's show entry does: shown, normal state, and back on the screen if above its top.
    void showFromTray();

    // Window place and size in twips.
    float leftTwips() const override;
    float topTwips() const override;
    float widthTwips() const override;
    float heightTwips() const override;
    void setWindowPos(int32_t insertAfter, int32_t x, int32_t y, int32_t cx, int32_t cy) override;
    void setLeft(float twipValue);
    void setTop(float twipValue);

    bool hour24() const { return m_hour24; }
    bool rolledUp() const { return m_rolledUp; }
    bool placeable() const { return m_placeable; }
    int32_t logPixelsX() const { return m_logPixelsX; }
    const ClockFace& face() const { return m_face; }

    ClockTextLabel* timeLabel = nullptr;
    QWidget* menuEnd = nullptr;
    QWidget* closeEnd = nullptr;
    QTimer* timer = nullptr;
    QMenu* settingsMenu = nullptr;
    QAction* hour24Action = nullptr;
    QAction* secondsAction = nullptr;
    QAction* size8Action = nullptr;
    QAction* size9Action = nullptr;
    QAction* size10Action = nullptr;
    QAction* size11Action = nullptr;
    // Ticked: the next start opens the clock. Start-up ticks it after showing the clock.
    QAction* showAtStartAction = nullptr;

    void onTick();

protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int msToNextChange(const QTime& now) const;
    void showFormatChange();
    void load();
    void buildMenu();
    void applyFace();
    void chooseSize(int32_t size);
    void switchTimeDate();
    void handOverToAlarmSet();
    void rollUpTest();
    void unrollTest();
    void onTimeLabelMouse(QEvent* event);
    void onCloseEndPressed(Qt::MouseButton button);
    void onMenuEndClicked();
    void setTopmost(bool on);
    // Puts the window's top left corner at this place in device pixels.
    void place(const QPoint& device);
    bool placeNatively();
    QPoint devicePlace() const;
    QPoint toLogical(const QPoint& device) const;
    QPoint toDevice(const QPoint& logical) const;
    // Twips to this window's logical pixels, through the screen's device pixels.
    int toLogicalX(double twipValue) const;
    int toLogicalY(double twipValue) const;
    // Where the pointer stands in the time label, in twips.
    QPointF pointerInLabel(const QMouseEvent& mouse) const;

    Context& ctx;
    ScreenServices& m_screen;
    DockingHandler& dock;
    const bool m_placeable;
    ClockFace m_face;
    QImage m_picture;
    QRegion m_outline; // device pixels
    bool m_hour24 = false;
    bool m_rolledUp = false;
    int32_t m_logPixelsX = 96;
    int32_t m_dpiOffset = 0;
    bool m_settingPressed = false;
    // Where the window stands in device pixels. Qt's logical place, rounded, cannot tell every device pixel at a
    // fractional scale factor, so it is only believed when the window could not be moved natively.
    QPoint m_place;
    bool m_native = false; // m_place was reached natively: Qt's own idea lags behind and is not asked
    bool m_placing = false;
    std::vector<QPoint> m_requested; // native moves whose news may still be on the way
    bool m_settling = false;         // just mapped (see moveEvent)
};
