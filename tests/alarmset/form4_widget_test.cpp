#include "alarmset/ui/drop_down_combo.h"
#include "alarmset/ui/form4.h"
#include "alarmset/ui/form4_host.h"
#include "alarmset/ui/picture_box.h"
#include "eventlist/ui/bwklistbox_view.h"
#include "fakes.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct Form4WidgetTest : ::testing::Test, EngineFixture {
    Form4Host host{ctx};
    Form4* f = nullptr;

    Form4WidgetTest() {
        clock.set(2002, 5, 1, 20, 0, 0);
        ctx.form4Ui = &host;
        ctx.touchForm4();
        f = host.form();
    }
    ~Form4WidgetTest() override { ctx.form4Ui = nullptr; }
};

} // namespace

TEST_F(Form4WidgetTest, LoadShowsTheDayAndTheHalfOfTheDay) {
    ASSERT_NE(f, nullptr);
    EXPECT_FALSE(f->isVisible());
    EXPECT_EQ(f->txtAm->text(), "PM");
    EXPECT_EQ(f->lblDate->text(), "2002/05/01");
    EXPECT_EQ(ctx.strTimesOfPlay, "once");
    EXPECT_EQ(f->cbHour->count(), 12);
    EXPECT_EQ(f->cbHour->currentText(), "");
    EXPECT_EQ(f->cbMin->count(), 10);
    EXPECT_EQ(f->cbPlayTimes->currentIndex(), -1);
}

TEST_F(Form4WidgetTest, TypedEntryAndTheAddButtonPutTheRowInTheList) {
    typeText(f->cbHour, "8");
    typeText(f->cbMin, "3a0");
    typeText(f->cbSec, "5");
    EXPECT_EQ(notices.beeps, 1); // the letter
    f->cmdAdd->click();
    EXPECT_EQ(ctx.lstData.items(), QStringList({"once 20:30:05"}));
    EXPECT_EQ(f->cbHour->currentText(), "08");
    EXPECT_EQ(f->cbSec->currentText(), "05");
    EXPECT_EQ(f->lstData->model()->rowCount(), 1);
    EXPECT_TRUE(f->lstData->selectionModel()->isRowSelected(0, QModelIndex()));

    // Enter presses the default button: the same entry goes in again, ahead of the first.
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
    QApplication::sendEvent(f->cbHour, &enter);
    EXPECT_EQ(ctx.lstData.count(), 2);

    // A third digit wipes the box.
    typeText(f->cbMin, "5");
    EXPECT_EQ(f->cbMin->currentText(), "");
    EXPECT_EQ(notices.beeps, 2);
}

TEST_F(Form4WidgetTest, CloseBoxHidesAndExitStoresThePlace) {
    f->show();
    ctx.m.blnForm4Wanted = true;
    ctx.form8.strEventTime = "20:30:00";
    f->close();
    EXPECT_FALSE(f->isVisible());
    EXPECT_TRUE(ctx.m.blnForm4Wanted);
    EXPECT_EQ(ctx.form8.strEventTime, "");
    EXPECT_FALSE(QFile::exists(path("tolm.ini")));

    host.showAlarmSet();
    EXPECT_TRUE(f->isVisible());
    f->cmdExit->click();
    EXPECT_FALSE(f->isVisible());
    EXPECT_FALSE(ctx.m.blnForm4Wanted);
    EXPECT_EQ(readFile("tolm.ini").left(14), "[TimeInputLoc]");
}

TEST_F(Form4WidgetTest, MessageViewAndComingListToggle) {
    f->show();
    ctx.lstData.addItem("once 21:00:00");
    ctx.lstMessage.addItem("Call home at 21:00:00");
    f->cmdViewM->click();
    EXPECT_TRUE(f->txtViewM->isVisible());
    EXPECT_EQ(f->txtViewM->toPlainText(), "\n_09:00:00 PM  /  Call home");
    EXPECT_EQ(f->cmdViewM->text(), "Hide Messages");
    f->cmdViewM->click();
    EXPECT_FALSE(f->txtViewM->isVisible());
    // A long message wraps inside the view rather than running off its right edge.
    ctx.lstMessage.clear();
    ctx.lstMessage.addItem(QString(30, 'w').append(" ").repeated(5) + "at 21:00:00");
    f->cmdViewM->click();
    QApplication::processEvents();
    EXPECT_EQ(f->txtViewM->horizontalScrollBar()->maximum(), 0);
    QTextCursor end = f->txtViewM->textCursor();
    end.movePosition(QTextCursor::End);
    const QRect last = f->txtViewM->cursorRect(end);
    EXPECT_GT(last.top(), 3 * last.height()); // two blocks, laid out on more than three lines
    EXPECT_LT(last.right(), f->txtViewM->viewport()->width());
    f->cmdViewM->click();

    f->mComing->trigger();
    EXPECT_TRUE(f->Bwklistbox1->isVisible());
    f->mComing->trigger();
    EXPECT_FALSE(f->Bwklistbox1->isVisible());
}

TEST_F(Form4WidgetTest, NoSecondModeHidesTheSecondsAndShadingSwapsTheList) {
    f->show();
    host.SetNoSecondMode(true);
    EXPECT_FALSE(f->cbSec->isVisible());
    host.SetNoSecondMode(false);
    EXPECT_TRUE(f->cbSec->isVisible());

    host.SetDataListShaded(true);
    EXPECT_FALSE(f->lstData->isVisible());
    EXPECT_TRUE(f->imgSha->isVisible());
    host.SetDataListShaded(false);
    EXPECT_TRUE(f->lstData->isVisible());
}

TEST_F(Form4WidgetTest, TitleClockRunsOnlyWhileTheWindowIsShown) {
    const QString laidOut = f->windowTitle();
    f->Timer1_Timer();
    EXPECT_EQ(f->windowTitle(), laidOut);
    f->show();
    f->Timer1_Timer();
    EXPECT_EQ(f->windowTitle(), "Bellwick Alarm Clock sp...01 May 2002 / 08:00 PM");
}

TEST_F(Form4WidgetTest, ChoosingAnIntervalEnablesEveryAndTickingItLocksTheInterval) {
    f->show();
    EXPECT_FALSE(f->chkEMPlay->isEnabled());
    f->cbEMPlay->setCurrentIndex(6); // "15"
    emit f->cbEMPlay->activated(6);
    EXPECT_TRUE(f->chkEMPlay->isEnabled());
    f->chkEMPlay->click();
    EXPECT_TRUE(ctx.m.blnEveryMinutesOn);
    EXPECT_EQ(ctx.m.iEveryMinutes, 15);
    EXPECT_FALSE(f->cbEMPlay->isEnabled());
    f->chkEMPlay->click();
    EXPECT_FALSE(ctx.m.blnEveryMinutesOn);
    EXPECT_TRUE(ctx.m.blnTickOn); // unchecking leaves the tick as it was
    EXPECT_TRUE(f->cbEMPlay->isEnabled());
}

TEST_F(Form4WidgetTest, CtrlClickOnThePickedRowKeepsItPicked) {
    f->show();
    ctx.lstData.addItem("once 21:00:00");
    ctx.lstData.addItem("once 22:00:00");
    const QRect second = f->lstData->visualRect(ctx.lstData.index(1));
    QTest::mouseClick(f->lstData->viewport(), Qt::LeftButton, Qt::NoModifier, second.center());
    ASSERT_EQ(ctx.lstData.listIndex(), 1);
    QTest::mouseClick(f->lstData->viewport(), Qt::LeftButton, Qt::ControlModifier, second.center());
    EXPECT_EQ(ctx.lstData.listIndex(), 1);
    EXPECT_TRUE(ctx.lstData.isSelected(1));
    EXPECT_EQ(ctx.lstData.selCount(), 1);
}
