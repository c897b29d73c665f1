#include "alarmset/ui/drop_down_combo.h"
#include "eventlist/ui/edit_event_window.h"
#include "eventlist/ui/event_list_view.h"
#include "eventlist/ui/event_popup.h"
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
#include <QWidget>
#include <gtest/gtest.h>

namespace {

struct EditWindowTest : ::testing::Test, EngineFixture {
    QWidget eventList;
    EditWindowTest() {
        clock.set(2002, 5, 1, 12, 0, 0);
        ctx.touchAlarmSet();
        eventList.resize(350, 114);
        ctx.eventList.insertRow("=", "2002/05/03-13:05:09", "Two\r\nlines", false);
        ctx.eventList.rows.selectOnly(0);
    }
    ~EditWindowTest() override {
        delete EditEventWindow::instance();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

struct EventListViewTest : ::testing::Test, EngineFixture {
    QWidget host;
    EventListView* view = nullptr;
    QList<QPoint> popups;

    void SetUp() override {
        for (int day = 1; day <= 5; ++day)
            ctx.eventList.insertRow("-", QStringLiteral("2002/05/0%1-08:30:00").arg(day), "Dentist\r\nat ten", false);
        view = new EventListView(ctx, &host);
        view->setGeometry(window_twips::px(view, 120), window_twips::px(view, 2568), window_twips::px(view, 5292),
                          window_twips::px(view, 1716));
        view->showPopupMenu = [this](QPoint at) { popups.append(at); };
        host.resize(800, 600);
        host.show();
    }

    void press(Qt::MouseButton button, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QPoint at = view->rows->visualRect(ctx.eventList.rows.index(row)).center();
        const QPoint global = view->rows->viewport()->mapToGlobal(at);
        QMouseEvent down(QEvent::MouseButtonPress, at, global, button, button, modifiers);
        QApplication::sendEvent(view->rows->viewport(), &down);
        QMouseEvent up(QEvent::MouseButtonRelease, at, global, button, Qt::NoButton, modifiers);
        QApplication::sendEvent(view->rows->viewport(), &up);
    }
};

} // namespace

TEST_F(EditWindowTest, PopupEditOpensTheRowAndCancelStoresThePlaceAndGivesTheListItsHeight) {
    EventPopup::popupAt(ctx, QPoint(10, 10), &eventList);
    EventPopup* popup = EventPopup::instance();
    ASSERT_NE(popup, nullptr);
    popup->menu->hide();
    popup->editAction->trigger();

    EditEventWindow* form = EditEventWindow::instance();
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(QStringList({form->dateEdit->text(), form->playCountBox->currentText(), form->input->toPlainText()}),
              QStringList({"2002/05/03", "twice", "Two\nlines"}));
    EXPECT_LT(eventList.height(), 114);

    // The calendar widens the window and a second press on the label narrows it again.
    const int first = form->width();
    form->onDateLabelClicked();
    EXPECT_TRUE(form->calendar->isVisibleTo(form));
    EXPECT_GE(form->width(), form->calendar->width());
    form->onCalendarClicked(QDate(2002, 5, 9));
    EXPECT_EQ(form->dateEdit->text(), "2002/05/09");
    form->onDateLabelClicked();
    EXPECT_EQ(form->width(), first);

    form->move(300, 200);
    form->onCancelClicked();
    EXPECT_EQ(std::tuple(EditEventWindow::instance(), eventList.height()), std::tuple(nullptr, 114));
    SettingRecord rec;
    ASSERT_TRUE(settings_records::readRecord(ctx.folder, settings_records::kEditWindowLoc, rec));
    EXPECT_GT(rec.value1, 0);
    EXPECT_GT(rec.value2, rec.value1);
    EXPECT_EQ(ctx.eventList.rows.item(0), "      =    2002/05/03-13:05:09        Two\r\nlines");
}

TEST_F(EditWindowTest, KeysAndOkWorkOnTheControlsAsTyped) {
    EditEventWindow* form = EditEventWindow::openOn(ctx, "=", "2002/05/03", "13:05:09", "Two\r\nlines", &eventList);
    form->dateEdit->clear();
    typeText(form->dateEdit, "2002/a05/04");
    EXPECT_EQ(std::tuple(form->dateEdit->text(), notices.beeps), std::tuple("2002/05/04", 1));
    form->input->moveCursor(QTextCursor::End);
    typeText(form->input, " \"ok");
    // A quote composed with a dead key goes in as an apostrophe too; a composed letter has no place in the date.
    QInputMethodEvent composed;
    composed.setCommitString("\"");
    QApplication::sendEvent(form->input, &composed);
    QInputMethodEvent accent;
    accent.setCommitString(QString(QChar(0xE9)));
    QApplication::sendEvent(form->dateEdit, &accent);
    EXPECT_EQ(form->dateEdit->text(), "2002/05/04");
    EXPECT_EQ(notices.beeps, 2);
    EXPECT_EQ(form->input->toPlainText(), "Two\nlines 'ok'");

    form->minuteBox->setEditText("7");
    form->onOkClicked();
    EXPECT_EQ(EditEventWindow::instance(), nullptr);
    EXPECT_EQ(ctx.eventList.rows.item(0), "      =    2002/05/04-13:07:09        Two\r\nlines 'ok'");
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"Two\r\nlines 'ok'2002/05/04twic13:07:09\"\r\n"));

    // A message longer than can be typed, written by hand into the file, comes back whole.
    const QString longMessage = QString(700, 'x') + "TAILEND";
    form = EditEventWindow::openOn(ctx, "=", "2002/05/04", "13:07:09", longMessage, &eventList);
    EXPECT_EQ(form->input->message(), longMessage);
    form->onCancelClicked();

    // A refusal keeps the window with the padded boxes.
    form = EditEventWindow::openOn(ctx, "-", "2002/04/30", "09:00:00", "", &eventList);
    form->secondBox->setEditText("5");
    form->onOkClicked();
    EXPECT_EQ(EditEventWindow::instance(), form);
    EXPECT_EQ(form->secondBox->currentText(), "05");
    EXPECT_EQ(notices.warnings.last(), "Day was passed");
}

TEST_F(EventListViewTest, RightPressOpensThePopupOnlyWithACurrentRowAndMovesNothing) {
    press(Qt::RightButton, 1);
    EXPECT_TRUE(popups.isEmpty());
    EXPECT_EQ(std::pair(ctx.eventList.currentRow(), ctx.eventList.highlightedCount()), std::pair(-1, 0));

    press(Qt::LeftButton, 1);
    press(Qt::LeftButton, 3, Qt::ControlModifier);
    EXPECT_EQ(std::pair(ctx.eventList.currentRow(), ctx.eventList.highlightedCount()), std::pair(3, 2));

    press(Qt::RightButton, 4);
    ASSERT_EQ(popups.size(), 1);
    EXPECT_EQ(popups[0],
              view->rows->viewport()->mapToGlobal(view->rows->visualRect(ctx.eventList.rows.index(4)).center()));
    EXPECT_EQ(std::pair(ctx.eventList.currentRow(), ctx.eventList.highlightedCount()), std::pair(3, 2));
    EXPECT_FALSE(ctx.eventList.rows.isSelected(4));
}

TEST_F(EventListViewTest, RowsAreOneLineOfArialWhateverTheWindowHandsDown) {
    ctx.eventList.clear();
    ctx.eventList.insertRow("-", "2002/05/01-08:30:00", "", false);
    ctx.eventList.insertRow("-", "2002/05/02-08:30:00", "one\r\ntwo\r\nthree", false);
    QStyleOptionViewItem option;
    option.initFrom(view->rows);
    option.font = view->rows->font();
    QAbstractItemDelegate* rows = view->rows->itemDelegate();
    const int plain = rows->sizeHint(option, ctx.eventList.rows.index(0)).height();
    EXPECT_EQ(rows->sizeHint(option, ctx.eventList.rows.index(1)).height(), plain);

    view->rows->setFont(QFont("Times New Roman", 12));
    EXPECT_EQ(view->rows->font(), QFont("Arial", 9));
}
