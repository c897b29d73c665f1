#include "engine/remind_me.h"
#include "engine/ui/message_window.h"
#include "fakes.h"
#include "sound/ui/warning_window.h"
#include "sound/ui/widget_notices.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <gtest/gtest.h>

namespace {
struct MessageWindows : ::testing::Test, EngineFixture {};
QDateTime at(int h, int m, int s) {
    return QDateTime(QDate(2002, 5, 1), QTime(h, m, s));
}
} // namespace

TEST_F(MessageWindows, WarningsTakeSerialsThatWrapAndOkGivesTheFrontBack) {
    ctx.front.claimant = 13;
    QPointer<WarningWindow> first = new WarningWindow(ctx, "Error # 76\rPath not found");
    EXPECT_EQ(std::tuple(first->serial(), first->text()), std::tuple(1000000, "Error # 76\nPath not found"));
    ctx.front.nextWarningSerial = 1998999;
    QPointer<WarningWindow> last = new WarningWindow(ctx, "b");
    EXPECT_EQ(std::pair(last->serial(), ctx.front.nextWarningSerial), std::pair(1998999, 1000000));
    last->onOkClicked();
    EXPECT_EQ(ctx.front.claimant, 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(last.isNull());

    // Its close box and Escape give the front back as well.
    ctx.front.claimant = first->serial();
    first->close();
    EXPECT_EQ(ctx.front.claimant, 0);
    QPointer<WarningWindow> third = new WarningWindow(ctx, "c");
    ctx.front.claimant = third->serial();
    third->reject();
    EXPECT_EQ(ctx.front.claimant, 0);
    third->close();
}

TEST_F(MessageWindows, AReminderHidesTheWindowAndRingsAgainAfterItsMinutes) {
    clock.set(2002, 5, 1, 8, 30, 59);
    QPointer<MessageWindow> form = new MessageWindow(ctx, "Dentist at 08:30:00");
    EXPECT_EQ(form->windowTitle(), "Message  01 May 2002 / 08:30 AM");
    form->minutesEdit->setText("2");
    form->playCountBox->setCurrentIndex(1);
    form->onOkClicked();
    EXPECT_EQ(std::tuple(form->isVisible(), form->minutesEdit->text().isEmpty()), std::tuple(false, true));
    // Set at second 59: changes of the minute count, not whole minutes.
    for (const QTime t : {QTime(8, 30, 59), QTime(8, 31, 0), QTime(8, 31, 59)}) {
        clock.set(2002, 5, 1, t.hour(), t.minute(), t.second());
        form->onTick();
    }
    EXPECT_TRUE(sound.played.isEmpty());

    // The song as it stands when the reminder rings.
    ctx.soundChoice.songPath = ctx.folder + "other.wav";
    clock.set(2002, 5, 1, 8, 32, 0);
    form->onTick();
    EXPECT_EQ(sound.played, QStringList({"twice|" + ctx.folder + "other.wav"}));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->messageText(), "Dentist at 08:32:00");
    form->onTick();
    EXPECT_EQ(sound.played.size(), 1);

    // Zero minutes is refused in words and ends the message.
    form->minutesEdit->setText("0");
    form->onOkClicked();
    EXPECT_EQ(notices.warnings, QStringList({"0 minute is invalid, the message will be ignored"}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
}

TEST_F(MessageWindows, AHugeMessageShowsWhatFitsAndStaysWhole) {
    const QString huge = QString(MessageWindow::kShownLength, 'a') + QString(4'000'000, 'b') + " at 08:30:00";
    QPointer<MessageWindow> form = new MessageWindow(ctx, huge);
    const auto* box = form->findChild<QPlainTextEdit*>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->toPlainText(), QString(MessageWindow::kShownLength, 'a'));
    EXPECT_EQ(form->messageText(), huge);
    form->close();
    delete form;
}

TEST_F(MessageWindows, MinutesBoxTakesDigitsAndEditingKeysOnly) {
    QPointer<MessageWindow> form = new MessageWindow(ctx, "Tea at 08:30:00");
    const auto press = [&](int key, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(form->minutesEdit, &event);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
        QApplication::sendEvent(form->minutesEdit, &release);
    };
    EXPECT_TRUE(form->playCountBox->isHidden());
    press(Qt::Key_1, "1");
    EXPECT_FALSE(form->playCountBox->isHidden()); // typed minutes bring the play count, as a press does
    press(Qt::Key_Left, "");
    press(Qt::Key_2, "2");
    press(Qt::Key_A, "a");
    press(Qt::Key_unknown, QString(QChar(0x0663))); // an Arabic-Indic digit
    press(Qt::Key_Return, "\r");
    press(Qt::Key_Escape, QString(QChar(27)));
    EXPECT_EQ(form->minutesEdit->text(), "21"); // the arrow moved the cursor; letters and Return went nowhere
    EXPECT_TRUE(form->isVisible());             // Return pressed no button and Escape closed nothing
    press(Qt::Key_Backspace, "\b");
    EXPECT_EQ(form->minutesEdit->text(), "1");
    press(Qt::Key_5, "5");
    press(Qt::Key_5, "5"); // a third character empties the box
    EXPECT_TRUE(form->minutesEdit->text().isEmpty());
    form->close();
}

TEST(RemindMe, OkDecidesBetweenClosingRefusingAndCounting) {
    RemindMe r;
    EXPECT_EQ(r.ok("", "", at(8, 0, 0)), RemindMe::OkResult::Close);
    EXPECT_EQ(r.ok("0", "", at(8, 0, 0)), RemindMe::OkResult::ZeroRefused);
    EXPECT_EQ(r.ok("00", "", at(8, 0, 0)), RemindMe::OkResult::ZeroRefused);
    EXPECT_FALSE(r.counting);
    EXPECT_EQ(r.ok("2", "", at(8, 0, 0)), RemindMe::OkResult::Counting);
    EXPECT_EQ(r.playWord, "once");
    EXPECT_EQ(r.ok("2", "repeat", at(8, 0, 0)), RemindMe::OkResult::Counting);
    EXPECT_EQ(r.playWord, "repeat");
}

TEST_F(MessageWindows, TheSoundErrorBoxStandsTopmostAboveAMessageWindow) {
    QPointer<MessageWindow> form = new MessageWindow(ctx, "Dentist at 08:30:00");
    bool topmost = false;
    QTimer::singleShot(0, [&] {
        const auto boxTopmost = [] {
            const QWidget* box = QApplication::activeModalWidget();
            return box && box->windowHandle() && box->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
        };
        topmost = QTest::qWaitFor(boxTopmost, 2000);
        if (QWidget* box = QApplication::activeModalWidget())
            box->close();
    });
    WidgetNotices(ctx).systemModalBox("Error found\rSound cannot be played, alarm at 08:30:00");
    EXPECT_TRUE(topmost);
    delete form;
}
