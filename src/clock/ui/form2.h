#pragma once

#include "clock/clock_face.h"
#include "clock/docking_handler.h"

#include <QImage>
#include <QRegion>
#include <QWidget>

#include <cstdint>
#include <functional>

class Context;
class QAction;
class QLabel;
class QMenu;
class QTimer;
class ScreenServices;

// The desktop clock: a borderless, always-on-top pill that shows the time or the date, snaps to the edges
// of the work area and rolls up behind the top of the screen. Closing it ends only the clock; it is deleted
// on close and built afresh by the next show.
class Form2 : public QWidget, public DockWindow {
    Q_OBJECT
public:
    // On the real screen, with the docking handler that all clocks of this run share.
    explicit Form2(Context& ctx, QWidget* parent = nullptr);
    Form2(Context& ctx, ScreenServices& screen, clsDockingHandler& dock, QWidget* parent = nullptr);
    ~Form2() override;

    // Made on first use and kept when the clock is closed, so its edge flags survive a reopen.
    static clsDockingHandler& sharedDock();

    // Shows the Alarm Set window (un-minimised); connected at start-up.
    std::function<void()> showForm4;

    // What the tray's show entry does: shown, normal state, and back on the screen if above its top.
    void ShowFromTray();

    // Window place and size in twips.
    float Left() const override;
    float Top() const override;
    float Width() const override;
    float Height() const override;
    void SetWindowPos(int32_t insertAfter, int32_t x, int32_t y, int32_t cx, int32_t cy) override;
    void setLeft(float twipValue);
    void setTop(float twipValue);

    bool bln24Hour() const { return m_bln24Hour; }
    bool blnRolledUp() const { return m_blnRolledUp; }
    int32_t lngLogPixelsX() const { return m_lngLogPixelsX; }
    const ClockFace& face() const { return m_face; }

    QLabel* lblShowTime = nullptr;
    QWidget* imgSetting_ShowTime = nullptr;
    QWidget* imgClose_ShowTime = nullptr;
    QTimer* Timer1 = nullptr;
    QMenu* mShowTimeSetting = nullptr;
    QAction* m24Hour = nullptr;
    QAction* mEnabledSecond = nullptr;
    QAction* mEight = nullptr;
    QAction* mNine = nullptr;
    QAction* mTen = nullptr;
    QAction* mEleven = nullptr;
    // Ticked: the next start opens the clock. Start-up ticks it after showing the clock.
    QAction* mOn = nullptr;

    void Timer1_Timer();

protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void buildMenu();
    void applyFace();
    void chooseSize(int32_t size);
    void switchTimeDate();
    void handOverToForm4();
    void rollUpTest();
    void unrollTest();
    void lblShowTime_MouseEvent(QEvent* event);
    void imgClose_ShowTime_MouseDown(Qt::MouseButton button);
    void imgSetting_ShowTime_Click();
    void setTopmost(bool on);
    void place(const QPoint& logical);
    // Twips to this window's logical pixels, through the screen's device pixels.
    int toLogicalX(double twipValue) const;
    int toLogicalY(double twipValue) const;
    QPointF toTwips(const QPointF& logical) const;

    Context& ctx;
    ScreenServices& m_screen;
    clsDockingHandler& clsDock;
    ClockFace m_face;
    QImage m_picture;
    QRegion m_lngClockRgn; // device pixels
    bool m_bln24Hour = false;
    bool m_blnRolledUp = false;
    int32_t m_lngLogPixelsX = 96;
    int32_t m_lngDpiOffset = 0;
    bool m_settingPressed = false;
    // Where we put the window, and whether it is just being mapped (see moveEvent).
    QPoint m_place;
    bool m_settling = false;
};
