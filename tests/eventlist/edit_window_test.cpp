#include "alarmset/ui/drop_down_combo.h"
#include "eventlist/ui/bwklistbox_view.h"
#include "eventlist/ui/form15.h"
#include "eventlist/ui/form16.h"
#include "fakes.h"
#include "message/ui/message_text_box.h"
#include "platform/ui/window_twips.h"
#include "settings/settings_records.h"

#include <QAction>
#include <QCalendarWidget>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

struct EditWindowTest : ::testing::Test, EngineFixture {
    QWidget eventList;
    EditWindowTest() {
        clock.set(2002, 5, 1, 12, 0, 0);
        ctx.touchForm4();
        eventList.resize(350, 114);
        ctx.Bwklistbox1.ShowData("=", "2002/05/03-13:05:09", "Two\r\nlines", false);
        ctx.Bwklistbox1.lstMain.setListIndex(0);
    }
    ~EditWindowTest() override {
        delete Form16::instance();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

struct BwklistboxViewTest : ::testing::Test, EngineFixture {
    QWidget host;
    BwklistboxView* view = nullptr;
    QList<QPoint> popups;

    void SetUp() override {
        for (int day = 1; day <= 5; ++day)
            ctx.Bwklistbox1.ShowData("-", QStringLiteral("2002/05/0%1-08:30:00").arg(day), "Dentist\r\nat ten", false);
        view = new BwklistboxView(ctx, &host);
        view->setGeometry(window_twips::px(view, 120), window_twips::px(view, 2568), window_twips::px(view, 5292),
                          window_twips::px(view, 1716));
        view->showPopupMenu = [this](QPoint at) { popups.append(at); };
        host.resize(800, 600);
        host.show();
    }

    void press(Qt::MouseButton button, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QPoint at = view->lstMain->visualRect(ctx.Bwklistbox1.lstMain.index(row)).center();
        const QPoint global = view->lstMain->viewport()->mapToGlobal(at);
        QMouseEvent down(QEvent::MouseButtonPress, at, global, button, button, modifiers);
        QApplication::sendEvent(view->lstMain->viewport(), &down);
        QMouseEvent up(QEvent::MouseButtonRelease, at, global, button, Qt::NoButton, modifiers);
        QApplication::sendEvent(view->lstMain->viewport(), &up);
    }
};

} // namespace

TEST_F(EditWindowTest, PopupEditOpensTheRowAndCancelStoresThePlaceAndGivesTheListItsHeight) {
    Form15::popupAt(ctx, QPoint(10, 10), &eventList);
    Form15* popup = Form15::instance();
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->mMyMenu->title(), " MyMenu");
    EXPECT_EQ(popup->mEdit->text(), " Edit");
    EXPECT_EQ(popup->mDelete->text(), " Delete");
    popup->mMyMenu->hide();
    popup->mEdit->trigger();

    Form16* form = Form16::instance();
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->txtDate->text(), "2002/05/03");
    EXPECT_EQ(form->cbPlayTimes->currentText(), "twice");
    EXPECT_EQ(form->txtInput->toPlainText(), "Two\nlines");
    EXPECT_LT(eventList.height(), 114);

    // The calendar widens the window and a second press on the label narrows it again.
    const int first = form->width();
    form->lblDate_Click();
    EXPECT_TRUE(form->MonthView1->isVisibleTo(form));
    EXPECT_GE(form->width(), form->MonthView1->width());
    form->MonthView1_DateClick(QDate(2002, 5, 9));
    EXPECT_EQ(form->txtDate->text(), "2002/05/09");
    form->lblDate_Click();
    EXPECT_EQ(form->width(), first);

    form->move(300, 200);
    form->cmdCancel_Click();
    EXPECT_EQ(Form16::instance(), nullptr);
    EXPECT_EQ(eventList.height(), 114);
    SettingRecord rec;
    ASSERT_TRUE(settings_records::readRecord(ctx.m.strAppPath, settings_records::kLocationForm16, rec));
    EXPECT_GT(rec.lngValue1, 0);
    EXPECT_GT(rec.lngValue2, rec.lngValue1);
    EXPECT_EQ(ctx.Bwklistbox1.lstMain.item(0), "      =    2002/05/03-13:05:09        Two\r\nlines");
}

TEST_F(EditWindowTest, KeysAndOkWorkOnTheControlsAsTyped) {
    Form16* form = Form16::ShowEditEvent(ctx, "=", "2002/05/03", "13:05:09", "Two\r\nlines", &eventList);
    form->txtDate->clear();
    typeText(form->txtDate, "2002/a05/04");
    EXPECT_EQ(form->txtDate->text(), "2002/05/04");
    EXPECT_EQ(notices.beeps, 1);
    form->txtInput->moveCursor(QTextCursor::End);
    typeText(form->txtInput, " \"ok");
    // A quote composed with a dead key goes in as an apostrophe too; a composed letter has no place in the date.
    QInputMethodEvent composed;
    composed.setCommitString("\"");
    QApplication::sendEvent(form->txtInput, &composed);
    QInputMethodEvent accent;
    accent.setCommitString(QString(QChar(0xE9)));
    QApplication::sendEvent(form->txtDate, &accent);
    EXPECT_EQ(form->txtDate->text(), "2002/05/04");
    EXPECT_EQ(notices.beeps, 2);
    EXPECT_EQ(form->txtInput->toPlainText(), "Two\nlines 'ok'");

    form->cbMin->setEditText("7");
    form->cmdOK_Click();
    EXPECT_EQ(Form16::instance(), nullptr);
    EXPECT_EQ(ctx.Bwklistbox1.lstMain.item(0), "      =    2002/05/04-13:07:09        Two\r\nlines 'ok'");
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"Two\r\nlines 'ok'2002/05/04twic13:07:09\"\r\n"));

    // A message longer than can be typed, written by hand into the file, comes back whole.
    const QString longMessage = QString(700, 'x') + "TAILEND";
    form = Form16::ShowEditEvent(ctx, "=", "2002/05/04", "13:07:09", longMessage, &eventList);
    EXPECT_EQ(form->txtInput->message(), longMessage);
    form->cmdCancel_Click();

    // A refusal keeps the window with the padded boxes.
    form = Form16::ShowEditEvent(ctx, "-", "2002/04/30", "09:00:00", "", &eventList);
    form->cbSec->setEditText("5");
    form->cmdOK_Click();
    EXPECT_EQ(Form16::instance(), form);
    EXPECT_EQ(form->cbSec->currentText(), "05");
    EXPECT_EQ(notices.warnings.last(), "Day was passed");
}

TEST_F(BwklistboxViewTest, RightPressOpensThePopupOnlyWithACurrentRowAndMovesNothing) {
    press(Qt::RightButton, 1);
    EXPECT_TRUE(popups.isEmpty());
    EXPECT_EQ(ctx.Bwklistbox1.SelectedItem(), -1);
    EXPECT_EQ(ctx.Bwklistbox1.MultiSelectedItem(), 0);

    press(Qt::LeftButton, 1);
    press(Qt::LeftButton, 3, Qt::ControlModifier);
    EXPECT_EQ(ctx.Bwklistbox1.SelectedItem(), 3);
    EXPECT_EQ(ctx.Bwklistbox1.MultiSelectedItem(), 2);

    press(Qt::RightButton, 4);
    ASSERT_EQ(popups.size(), 1);
    EXPECT_EQ(popups[0], view->lstMain->viewport()->mapToGlobal(
                             view->lstMain->visualRect(ctx.Bwklistbox1.lstMain.index(4)).center()));
    EXPECT_EQ(ctx.Bwklistbox1.SelectedItem(), 3);
    EXPECT_EQ(ctx.Bwklistbox1.MultiSelectedItem(), 2);
    EXPECT_FALSE(ctx.Bwklistbox1.lstMain.isSelected(4));
}

TEST_F(BwklistboxViewTest, RowsAreOneLineOfArialWhateverTheWindowHandsDown) {
    ctx.Bwklistbox1.ClearListView();
    ctx.Bwklistbox1.ShowData("-", "2002/05/01-08:30:00", "", false);
    ctx.Bwklistbox1.ShowData("-", "2002/05/02-08:30:00", "one\r\ntwo\r\nthree", false);
    QStyleOptionViewItem option;
    option.initFrom(view->lstMain);
    option.font = view->lstMain->font();
    QAbstractItemDelegate* rows = view->lstMain->itemDelegate();
    const int plain = rows->sizeHint(option, ctx.Bwklistbox1.lstMain.index(0)).height();
    EXPECT_EQ(rows->sizeHint(option, ctx.Bwklistbox1.lstMain.index(1)).height(), plain);

    view->lstMain->setFont(QFont("Times New Roman", 12));
    EXPECT_EQ(view->lstMain->font(), QFont("Arial", 9));
}
