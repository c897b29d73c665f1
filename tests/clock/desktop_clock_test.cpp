#include "clock/ui/desktop_clock.h"

#include "clock/clock_text.h"
#include "clock/ui/clock_text_label.h"
#include "fake_screen.h"
#include "fakes.h"
#include "settings/settings_records.h"

#include <QAction>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QtTest/qtestspontaneevent.h>

#include <gtest/gtest.h>

namespace {

void send(QWidget* target, QEvent::Type type, Qt::MouseButton button, QPointF at, Qt::MouseButtons held = {}) {
    QMouseEvent event(type, at, target->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

// What the window system sends when a window has moved.
void reportMove(QWidget* window) {
    QMoveEvent event(window->pos(), window->pos());
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::instance()->notify(window, &event); // sendEvent would take the mark off
}

void processDeletes() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

struct ClockRig {
    EngineFixture engine;
    FakeScreen screen;
    DockingHandler dock{screen};
    QPointer<DesktopClock> form;

    explicit ClockRig(int32_t dpi = 120) : screen(dpi) {}
    ~ClockRig() { delete form.data(); }

    DesktopClock& load(bool placeable = true) {
        form = new DesktopClock(engine.ctx, screen, dock, nullptr, placeable);
        return *form;
    }
    void writeRecord(int n, const QString& key, int32_t v1, int32_t v2 = 0) {
        settings_records::writeOwnRecord(engine.ctx.folder, n, key, v1, v2);
    }
    // value1 of record n, or -1 when its key does not match.
    int32_t stored(int n, int32_t* value2 = nullptr) {
        SettingRecord rec;
        if (!settings_records::readRecord(engine.ctx.folder, n, rec))
            return -1;
        if (value2)
            *value2 = rec.value2;
        return rec.value1;
    }
    // The text the face shows at 15:07:09.
    QString textAtSevenPastThree() {
        engine.clock.set(2026, 11, 19, 15, 7, 9);
        form->onTick();
        return form->timeLabel->text();
    }
    // Closes by the close end and gives the place stored for the next start, top and left.
    std::pair<int32_t, int32_t> closeByTheEnd() {
        send(form->closeEnd, QEvent::MouseButtonPress, Qt::LeftButton, {5, 5});
        processDeletes();
        EXPECT_TRUE(form.isNull());
        int32_t left = 0;
        const int32_t top = stored(5, &left);
        return {top, left};
    }
};

TEST(DesktopClock, LoadStartsAtTheTopWithDefaultsOrTakesItsRecords) {
    ClockRig first;
    DesktopClock& f = first.load();
    EXPECT_TRUE(f.timeLabel->text().isEmpty()); // blank until the first tick
    EXPECT_LE(f.timer->remainingTime(), 400);
    EXPECT_TRUE(f.timer->isActive());
    EXPECT_EQ(first.dock.window(), &f);
    EXPECT_TRUE(first.dock.alwaysOnTop());
    EXPECT_EQ(first.textAtSevenPastThree(), QStringLiteral("03 : 07 : 09  PM"));

    ClockRig rig(96);
    rig.writeRecord(5, settings_records::keyOf(settings_records::kClockLocation), 600, 1200);
    rig.writeRecord(9, QStringLiteral("[24Hour]"), 2); // only 1 means on
    rig.writeRecord(10, QStringLiteral("[EnabledSecond]"), 0);
    rig.writeRecord(11, QStringLiteral("[FontSizeOfClock]"), 10);
    DesktopClock& g = rig.load();
    EXPECT_EQ(std::tuple(QPointF(g.leftTwips(), g.topTwips()), g.hour24()), std::tuple(QPointF(1200, 600), false));
    EXPECT_EQ(g.timeLabel->y(), 3); // 12 twips, and two pixels down at 96
    EXPECT_EQ(rig.textAtSevenPastThree(), QStringLiteral("03 : 07  PM"));

    ClockRig other;
    other.writeRecord(9, QStringLiteral("[24Hour]"), 1);
    other.writeRecord(11, QStringLiteral("[FontSize]"), 8); // wrong key: ignored
    DesktopClock& h = other.load();
    EXPECT_TRUE(h.hour24Action->isChecked());
    EXPECT_FLOAT_EQ(h.face().labelFontSize, 9);
    EXPECT_EQ(other.textAtSevenPastThree(), QStringLiteral("15 : 07 : 09"));
}

// Its start in the middle at the top, its size and its outline at each density are seen in desktop_clock_<dpi>.
TEST(DesktopClock, TheFaceKeepsItsPixelsAtEveryDensity) {
    // The high band leaves the label's left as designed.
    for (const auto [dpi, labelX] : {std::pair{96, 10}, std::pair{120, 10}, std::pair{144, 12}}) {
        ClockRig rig(dpi);
        DesktopClock& f = rig.load();
        EXPECT_EQ(std::tuple(f.timeLabel->x(), f.timeLabel->width(), f.closeEnd->x()), std::tuple(labelX, 131, 140))
            << dpi;
    }
}

TEST(DesktopClock, MenuTogglesAndSizesAreStoredAtOnce) {
    ClockRig rig(144);
    DesktopClock& f = rig.load();
    f.hour24Action->trigger();
    f.secondsAction->trigger();
    f.showAtStartAction->trigger();
    EXPECT_TRUE(f.hour24());
    EXPECT_EQ(std::tuple(rig.stored(9), rig.stored(10), rig.stored(13)), std::tuple(1, 0, 1));
    EXPECT_EQ(rig.textAtSevenPastThree(), QStringLiteral("15 : 07"));
    f.hour24Action->trigger();
    EXPECT_EQ(rig.stored(9), 0);

    // At 144 dots per inch " 8" shrinks the font and lifts the text one pixel; the record keeps 8.
    f.size8Action->trigger();
    EXPECT_NEAR(f.timeLabel->font().pointSizeF(), 8 - 8.0 * 2 / 12, 0.01);
    EXPECT_EQ(f.timeLabel->y(), 3); // 26 twips
    EXPECT_EQ(rig.stored(11), 8);
    EXPECT_EQ(f.mask().boundingRect(), QRect(1, 1, 155, 21)); // the outline is not rebuilt
}

TEST(DesktopClock, TheFaceWakesAtTheTurnOfWhatItShowsAndAFormatChangeShowsAtOnce) {
    ClockRig rig;
    DesktopClock& f = rig.load();
    rig.engine.clock.set(2026, 11, 19, 15, 7, 9, 250);
    f.onTick();
    EXPECT_TRUE(f.timer->isSingleShot());
    EXPECT_EQ(f.timer->interval(), 755); // just past the next second, not every 400 ms
    f.secondsAction->trigger();          // seconds off: the text changes once a minute
    EXPECT_EQ(std::tuple(f.timeLabel->text(), f.timer->interval()), std::tuple(QStringLiteral("03 : 07  PM"), 50755));
    rig.engine.clock.set(2026, 11, 19, 15, 7, 59, 999);
    f.hour24Action->trigger();
    EXPECT_EQ(std::tuple(f.timeLabel->text(), f.timer->interval()), std::tuple(QStringLiteral("15 : 07"), 6));
}

TEST(DesktopClock, CloseAreaSwitchesToTheDateAndBackThenClosesStoringThePlace) {
    ClockRig rig;
    DesktopClock& f = rig.load();
    rig.engine.clock.set(2026, 11, 19, 15, 7, 9);
    send(f.closeEnd, QEvent::MouseButtonPress, Qt::RightButton, {5, 5});
    EXPECT_FALSE(f.timer->isActive());
    EXPECT_EQ(f.timeLabel->text(), clockDateText(QDate(2026, 11, 19)));
    send(f.closeEnd, QEvent::MouseButtonPress, Qt::RightButton, {5, 5});
    EXPECT_TRUE(f.timer->isActive());

    f.setTop(1200);
    f.setLeft(2400);
    EXPECT_EQ(rig.closeByTheEnd(), std::pair(1200, 2400));
}

TEST(DesktopClock, LabelDragsOnLeftAndHandsOverToTheAlarmSetWindowOnRight) {
    ClockRig rig;
    DesktopClock& f = rig.load();
    int shown = 0;
    f.showAlarmSet = [&] { ++shown; };
    send(f.timeLabel, QEvent::MouseButtonPress, Qt::RightButton, {20, 5});
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(rig.engine.ctx.alarmSetLoaded());
    EXPECT_TRUE(rig.engine.ctx.tick.alarmSetWanted);

    f.setTop(480); // 40 pixels down; 30 pixels up proposes 120 twips, within reach of the edge
    send(f.timeLabel, QEvent::MouseButtonPress, Qt::LeftButton, {50, 10});
    send(f.timeLabel, QEvent::MouseMove, Qt::NoButton, {50, -20}, Qt::LeftButton);
    EXPECT_EQ(std::tuple(f.topTwips(), rig.dock.dockedTop()), std::tuple(0, true));
    send(f.timeLabel, QEvent::MouseMove, Qt::NoButton, {50, 300}); // no button: no drag
    EXPECT_EQ(f.topTwips(), 0);
}

TEST(DesktopClock, ReleaseAboveTheTopRollsUpAndAMoveOrTheTrayBringsItBack) {
    for (const auto [dpi, windowY, cursorStep] : {std::tuple{120, -20, 12}, {96, -15, 15}, {144, -24, 10}}) {
        ClockRig rig(dpi);
        DesktopClock& f = rig.load();
        rig.screen.cursor = QPoint(300, 2);
        f.move(f.pos().x(), -3);
        send(f.timeLabel, QEvent::MouseButtonRelease, Qt::LeftButton, {20, 5});
        EXPECT_EQ(f.pos().y(), windowY) << dpi;
        EXPECT_TRUE(f.rolledUp());
        ASSERT_EQ(rig.screen.cursorMoves.size(), 1u);
        EXPECT_EQ(rig.screen.cursorMoves[0], QPoint(300, 2 + cursorStep)) << dpi;

        // The pointer on the strip brings it back in desktop_clock_<dpi>.
        if (dpi == 96) {
            // The tray brings it back but leaves the flag, which the next move above the edge clears.
            f.showFromTray();
            EXPECT_EQ(std::tuple(f.isVisible(), f.topTwips(), f.rolledUp()), std::tuple(true, 0.0f, true));
            f.move(f.pos().x(), -2);
            send(f.timeLabel, QEvent::MouseMove, Qt::NoButton, {20, 10});
            EXPECT_EQ(std::pair(f.topTwips(), f.rolledUp()), std::pair(0.0f, false));
        } else if (dpi == 144) {
            f.close(); // closed while rolled up: no place is stored
            processDeletes();
            EXPECT_EQ(rig.stored(5), -1);
        }
    }
}

TEST(DesktopClock, WhereWindowsCannotPlaceThemselvesItIsAPlainWindowThatKeepsTheStoredPlace) {
    ClockRig rig(96);
    rig.writeRecord(5, settings_records::keyOf(settings_records::kClockLocation), 600, 1200);
    DesktopClock& f = rig.load(false);
    f.show();
    EXPECT_FALSE(f.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(f.mask().isEmpty()); // no outline: the whole window shows
    EXPECT_EQ(f.size(), QSize(200, 68));

    // No drag of our own, no roll-up above the edge.
    const QPoint at = f.pos();
    send(f.timeLabel, QEvent::MouseButtonPress, Qt::LeftButton, {50, 10});
    send(f.timeLabel, QEvent::MouseMove, Qt::NoButton, {50, -30}, Qt::LeftButton);
    EXPECT_EQ(f.pos(), at);
    f.move(at.x(), -3);
    send(f.timeLabel, QEvent::MouseButtonRelease, Qt::LeftButton, {50, 10});
    EXPECT_EQ(std::tuple(f.rolledUp(), rig.screen.cursorMoves.empty()), std::tuple(false, true));
    // Right press still hands over; the close end still closes, leaving the stored place alone.
    int shown = 0;
    f.showAlarmSet = [&] { ++shown; };
    send(f.timeLabel, QEvent::MouseButtonPress, Qt::RightButton, {20, 5});
    EXPECT_EQ(shown, 1);
    f.move(40, 50);
    EXPECT_EQ(rig.closeByTheEnd(), std::pair(600, 1200));
}

// Dragged by the pointer itself, it holds to the device pixel at every density in desktop_clock_<dpi>.
TEST(DesktopClock, ANativeWindowStandsOnTheDevicePixelAndBelievesOnlyTheWindowManagersOwnMoves) {
    ClockRig rig(144);
    rig.screen.native = true;
    DesktopClock& f = rig.load();
    f.show();
    QTest::qWait(10);
    EXPECT_EQ(rig.screen.windowMoves.back(), QPoint(362, 0)); // (10240 - 3000) / 2 twips
    f.setTop(3000);
    f.setLeft(7240);
    f.setLeft(7350);
    EXPECT_EQ(rig.screen.windowMoves.back(), QPoint(735, 300));

    // The news of an earlier step leaves the place alone; the frame's first place while the window is being
    // framed puts it back; a move by the window manager after that is believed.
    rig.screen.windowAt = QPoint(724, 300);
    reportMove(&f);
    EXPECT_EQ(f.leftTwips(), 7350);
    rig.screen.windowAt = QPoint(0, 0);
    const size_t moves = rig.screen.windowMoves.size();
    reportMove(&f);
    QTest::qWait(10);
    ASSERT_EQ(rig.screen.windowMoves.size(), moves + 1);
    EXPECT_EQ(rig.screen.windowMoves.back(), QPoint(735, 300));
    // A second after showing the window counts as framed; the timer that says so may fire a little late.
    QTest::qWait(1100);
    QCoreApplication::processEvents();
    rig.screen.windowAt = QPoint(501, 203);
    reportMove(&f);
    EXPECT_EQ(QPointF(f.leftTwips(), f.topTwips()), QPointF(5010, 2030));
    EXPECT_EQ(rig.screen.windowMoves.size(), moves + 1);
}

} // namespace
