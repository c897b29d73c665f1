#include "alarmset/ui/alarm_set_host.h"
#include "alarmset/ui/alarm_set_window.h"
#include "alarmset/ui/drop_down_combo.h"
#include "alarmset/ui/picture_box.h"
#include "alarmset/ui/picture_button.h"
#include "eventlist/ui/event_list_view.h"
#include "fakes.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct AlarmSetWindowTest : ::testing::Test, EngineFixture {
    AlarmSetHost host{ctx};
    AlarmSetWindow* f = nullptr;

    AlarmSetWindowTest() {
        clock.set(2002, 5, 1, 20, 0, 0);
        ctx.alarmSetUi = &host;
        ctx.touchAlarmSet();
        f = host.form();
    }
    ~AlarmSetWindowTest() override { ctx.alarmSetUi = nullptr; }
};

} // namespace

TEST_F(AlarmSetWindowTest, TypedEntryAndTheAddButtonPutTheRowInTheList) {
    typeText(f->hourBox, "8");
    typeText(f->minuteBox, "3a0");
    typeText(f->secondBox, "5");
    EXPECT_EQ(notices.beeps, 1); // the letter
    f->addButton->click();
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"once 20:30:05"}));
    EXPECT_EQ(QStringList({f->hourBox->currentText(), f->secondBox->currentText()}), QStringList({"08", "05"}));
    EXPECT_EQ(f->todayList->model()->rowCount(), 1);
    EXPECT_TRUE(f->todayList->selectionModel()->isRowSelected(0, QModelIndex()));

    // Enter presses the default button: the same entry goes in again, ahead of the first.
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
    QApplication::sendEvent(f->hourBox, &enter);
    EXPECT_EQ(ctx.today.alarms.count(), 2);

    // A third digit wipes the box.
    typeText(f->minuteBox, "5");
    EXPECT_EQ(std::tuple(f->minuteBox->currentText(), notices.beeps), std::tuple("", 2));
}

TEST_F(AlarmSetWindowTest, CloseBoxHidesAndExitStoresThePlace) {
    f->show();
    ctx.tick.alarmSetWanted = true;
    ctx.newEvent.time = "20:30:00";
    f->close();
    EXPECT_EQ(std::tuple(f->isVisible(), ctx.tick.alarmSetWanted, ctx.newEvent.time), std::tuple(false, true, ""));
    EXPECT_FALSE(QFile::exists(path("tolm.ini")));

    host.showAlarmSet();
    EXPECT_TRUE(f->isVisible());
    f->exitButton->click();
    EXPECT_EQ(std::pair(f->isVisible(), ctx.tick.alarmSetWanted), std::pair(false, false));
    EXPECT_EQ(readFile("tolm.ini").left(14), "[TimeInputLoc]");
}

TEST_F(AlarmSetWindowTest, WithoutATrayTheWindowOpensCarriesTheTrayMenuAndOnlyMinimises) {
    QMenu trayMenu(QStringLiteral("Bellwick"));
    const int menus = f->menuBar()->actions().size();
    host.standInForTray(&trayMenu);
    EXPECT_TRUE(f->isVisible());
    EXPECT_TRUE(f->menuBar()->actions().contains(trayMenu.menuAction()));
    for (auto close : {+[](AlarmSetWindow* w) { w->close(); }, +[](AlarmSetWindow* w) { w->exitButton->click(); }}) {
        f->showNormal();
        close(f);
        EXPECT_EQ(std::pair(f->isVisible(), f->isMinimized()), std::pair(true, true));
    }

    // A tray that comes back takes the menu home, and closing hides again.
    host.standInForTray(nullptr);
    EXPECT_EQ(f->menuBar()->actions().size(), menus);
    f->showNormal();
    f->close();
    EXPECT_FALSE(f->isVisible());
}

TEST_F(AlarmSetWindowTest, ShownAgainTheTypingGoesToTheHourNotToTheButtonThatHidIt) {
    for (int opening = 0; opening < 3; ++opening) {
        host.showAlarmSet();
        EXPECT_EQ(f->focusWidget(), f->hourBox) << "opening " << opening;
        f->exitButton->setFocus();
        f->exitButton->click();
        ASSERT_FALSE(f->isVisible());
    }
}

TEST_F(AlarmSetWindowTest, MessageViewAndComingListToggle) {
    f->show();
    ctx.today.alarms.addItem("once 21:00:00");
    ctx.today.messages.addItem("Call home at 21:00:00");
    f->viewMessagesButton->click();
    EXPECT_EQ(std::tuple(f->messageView->isVisible(), f->messageView->toPlainText(), f->viewMessagesButton->text()),
              std::tuple(true, "\n_09:00:00 PM  /  Call home", "Hide Messages"));
    f->viewMessagesButton->click();
    EXPECT_FALSE(f->messageView->isVisible());
    // A long message wraps inside the view rather than running off its right edge.
    ctx.today.messages.clear();
    ctx.today.messages.addItem(QString(30, 'w').append(" ").repeated(5) + "at 21:00:00");
    f->viewMessagesButton->click();
    QApplication::processEvents();
    EXPECT_EQ(f->messageView->horizontalScrollBar()->maximum(), 0);
    QTextCursor end = f->messageView->textCursor();
    end.movePosition(QTextCursor::End);
    const QRect last = f->messageView->cursorRect(end);
    EXPECT_GT(last.top(), 3 * last.height()); // two blocks, laid out on more than three lines
    EXPECT_LT(last.right(), f->messageView->viewport()->width());
    f->viewMessagesButton->click();

    f->comingAction->trigger();
    EXPECT_TRUE(f->eventListView->isVisible());
    f->comingAction->trigger();
    EXPECT_FALSE(f->eventListView->isVisible());
}

TEST_F(AlarmSetWindowTest, KeysPickTheDateAndTabSkipsWhatTheListsCover) {
    f->show();
    const auto key = [](QWidget* to, int k) {
        QKeyEvent event(QEvent::KeyPress, k, Qt::NoModifier);
        QApplication::sendEvent(to, &event);
    };
    auto* days = f->calendar->findChild<QAbstractItemView*>();
    ASSERT_NE(days, nullptr);
    EXPECT_TRUE(f->dateLabel->focusPolicy() & Qt::TabFocus);
    // F4 opens and Escape closes without a pick; the desktop keyboard run picks a day with Space, Right, Return.
    key(f->dateLabel, Qt::Key_F4);
    EXPECT_TRUE(f->calendar->isVisible());
    key(days, Qt::Key_Right);
    key(days, Qt::Key_Escape);
    EXPECT_FALSE(f->calendar->isVisible());
    EXPECT_EQ(f->dateLabel->text(), "2002/05/01");
    EXPECT_EQ(ctx.entry.date, "2002/05/01");

    // Covered by the event list, the controls beneath leave the Tab chain; those beside it stay.
    const QList<QWidget*> beneath = {f->deleteButton, f->viewMessagesButton, f->songBox, f->loadButton};
    f->comingAction->trigger();
    for (QWidget* w : beneath)
        EXPECT_EQ(w->focusPolicy(), Qt::NoFocus) << w->objectName().toStdString();
    EXPECT_NE(f->exitButton->focusPolicy(), Qt::NoFocus);
    f->comingAction->trigger();
    for (QWidget* w : beneath)
        EXPECT_NE(w->focusPolicy(), Qt::NoFocus) << w->objectName().toStdString();
    ctx.today.alarms.addItem("once 21:00:00");
    ctx.today.messages.addItem("Call home at 21:00:00");
    f->viewMessagesButton->click();
    ASSERT_TRUE(f->messageView->isVisible());
    EXPECT_EQ(f->addButton->focusPolicy(), Qt::NoFocus);
    EXPECT_NE(f->viewMessagesButton->focusPolicy(), Qt::NoFocus);
    f->viewMessagesButton->click();
    EXPECT_NE(f->addButton->focusPolicy(), Qt::NoFocus);
}

TEST_F(AlarmSetWindowTest, TitleClockRunsOnlyWhileTheWindowIsShown) {
    const QString laidOut = f->windowTitle();
    EXPECT_FALSE(f->timer->isActive()); // a hidden window costs no wake-ups
    f->onTick();
    EXPECT_EQ(f->windowTitle(), laidOut);
    f->show();
    EXPECT_TRUE(f->timer->isActive());
    f->onTick();
    EXPECT_EQ(f->windowTitle(), "Bellwick Alarm Clock sp...01 May 2002 / 08:00 PM");
    f->showMinimized();
    EXPECT_TRUE(f->timer->isActive());
    f->hide();
    EXPECT_FALSE(f->timer->isActive());
}

TEST_F(AlarmSetWindowTest, ChoosingAnIntervalEnablesEveryAndTickingItLocksTheInterval) {
    f->show();
    EXPECT_FALSE(f->chimeBox->isEnabled());
    f->chimeIntervalBox->setCurrentIndex(6); // "15"
    emit f->chimeIntervalBox->activated(6);
    EXPECT_TRUE(f->chimeBox->isEnabled());
    f->chimeBox->click();
    EXPECT_EQ(std::tuple(ctx.chime.on, ctx.chime.interval, f->chimeIntervalBox->isEnabled()),
              std::tuple(true, 15, false));
    f->chimeBox->click();
    // Unchecking leaves the tick as it was.
    EXPECT_EQ(std::tuple(ctx.chime.on, ctx.tick.on, f->chimeIntervalBox->isEnabled()), std::tuple(false, true, true));
}

TEST_F(AlarmSetWindowTest, CtrlClickOnThePickedRowKeepsItPicked) {
    f->show();
    ctx.today.alarms.addItem("once 21:00:00");
    ctx.today.alarms.addItem("once 22:00:00");
    const QRect second = f->todayList->visualRect(ctx.today.alarms.index(1));
    QTest::mouseClick(f->todayList->viewport(), Qt::LeftButton, Qt::NoModifier, second.center());
    ASSERT_EQ(ctx.today.alarms.currentIndex(), 1);
    QTest::mouseClick(f->todayList->viewport(), Qt::LeftButton, Qt::ControlModifier, second.center());
    EXPECT_EQ(
        std::tuple(ctx.today.alarms.currentIndex(), ctx.today.alarms.isSelected(1), ctx.today.alarms.selectedCount()),
        std::tuple(1, true, 1));
}
