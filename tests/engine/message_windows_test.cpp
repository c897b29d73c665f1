#include "engine/remind_me.h"
#include "engine/ui/message_window.h"
#include "fakes.h"
#include "sound/ui/warning_window.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
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
    EXPECT_EQ(first->serial(), 1000000);
    EXPECT_EQ(first->text(), "Error # 76\nPath not found");
    ctx.front.nextWarningSerial = 1998999;
    QPointer<WarningWindow> last = new WarningWindow(ctx, "b");
    EXPECT_EQ(last->serial(), 1998999);
    EXPECT_EQ(ctx.front.nextWarningSerial, 1000000);
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
    form->minutesEdit->setText("1");
    form->playCountBox->setCurrentIndex(1);
    form->onOkClicked();
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(form->minutesEdit->text().isEmpty());
    form->onTick();
    EXPECT_TRUE(sound.played.isEmpty());

    // The song as it stands when the reminder rings.
    ctx.soundChoice.songPath = ctx.folder + "other.wav";
    clock.set(2002, 5, 1, 8, 31, 0);
    form->onTick();
    EXPECT_EQ(sound.played, QStringList({"twice|" + ctx.folder + "other.wav"}));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->messageText(), "Dentist at 08:31:00");

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
    };
    EXPECT_TRUE(form->playCountBox->isHidden());
    press(Qt::Key_1, "1");
    EXPECT_FALSE(form->playCountBox->isHidden()); // typed minutes bring the play count, as a press does
    press(Qt::Key_Left, "");
    press(Qt::Key_2, "2");
    press(Qt::Key_A, "a");
    press(Qt::Key_Return, "\r");
    press(Qt::Key_Escape, QString(QChar(27)));
    EXPECT_EQ(form->minutesEdit->text(), "21"); // the arrow moved the cursor; letters and Return went nowhere
    EXPECT_TRUE(form->isVisible());             // Return pressed no button and Escape closed nothing
    press(Qt::Key_Backspace, "\b");
    EXPECT_EQ(form->minutesEdit->text(), "1");
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

TEST(RemindMe, CountsChangesOfTheMinuteAndStampsTheTimeWhenItRings) {
    RemindMe r;
    r.ok("1", "", at(8, 0, 59));
    QString text = "Dentist at 08:00:05";
    EXPECT_FALSE(r.step(at(8, 0, 59), text));
    // Set at second 59, one minute rings a second later.
    EXPECT_TRUE(r.step(at(8, 1, 0), text));
    EXPECT_EQ(text, "Dentist at 08:01:00");
    EXPECT_FALSE(r.counting);
    EXPECT_FALSE(r.step(at(8, 2, 0), text));

    r.ok("3", "", at(9, 10, 0));
    text = "alarm at 09:00:00";
    EXPECT_FALSE(r.step(at(9, 11, 0), text));
    EXPECT_FALSE(r.step(at(9, 12, 30), text));
    EXPECT_TRUE(r.step(at(9, 13, 0), text));
    EXPECT_EQ(text, "alarm at 09:13:00");
}

TEST(RemindMe, KeyRulesAndTitle) {
    EXPECT_TRUE(RemindMe::keyAllowed(QLatin1Char('7')));
    EXPECT_TRUE(RemindMe::keyAllowed(QChar(8)));
    EXPECT_FALSE(RemindMe::keyAllowed(QLatin1Char('a')));
    EXPECT_FALSE(RemindMe::keyAllowed(QChar(0x0663))); // an Arabic-Indic digit
    EXPECT_TRUE(RemindMe::tooLong("100"));
    EXPECT_FALSE(RemindMe::tooLong("99"));
    EXPECT_EQ(RemindMe::title(at(20, 30, 0)), "Message  01 May 2002 / 08:30 PM");
}
