#include "engine/schedule_file.h"
#include "fakes.h"
#include "message/ui/form5.h"
#include "message/ui/message_text_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

struct Form5Test : ::testing::Test, EngineFixture {
    Form5 form{ctx};
    int restored = 0;

    Form5Test() {
        ctx.m.strAlarmDate = "2002/05/01";
        form.restoreDataList() = [this] { ++restored; };
    }
    void type(const QString& keys) {
        for (const QChar k : keys) {
            const int key = k == '\n' ? Qt::Key_Return : (k == '"' ? Qt::Key_QuoteDbl : k.toUpper().unicode());
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, k == '\n' ? QString("\r") : QString(k));
            QApplication::sendEvent(form.txtInput, &press);
        }
    }
    void click(QLabel* label) {
        const QPointF at(2, 2);
        QMouseEvent down(QEvent::MouseButtonPress, at, label->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(label, &down);
        QMouseEvent up(QEvent::MouseButtonRelease, at, label->mapToGlobal(at), Qt::LeftButton, Qt::NoButton, {});
        QApplication::sendEvent(label, &up);
    }
};

} // namespace

TEST_F(Form5Test, TypingTurnsQuotesAndStopsAtTheLimitAndReturnIsANewLine) {
    Sorting(ctx, "08:30:00", "once", true);
    form.GetOldMessageToTextbox("");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(ctx.m.lngTopWho, 1);
    type("Say \"hi\"\nnow");
    EXPECT_TRUE(form.isVisible()); // Return pressed no button
    EXPECT_EQ(form.txtInput->message(), "Say 'hi'\r\nnow");

    form.txtInput->setMessage(QString(625, 'a'));
    form.txtInput->moveCursor(QTextCursor::End);
    type("bc");
    EXPECT_EQ(form.txtInput->message().size(), 626);
    EXPECT_TRUE(form.txtInput->message().endsWith("ab"));

    form.cmdOK->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(ctx.lstMessage.items(), QStringList{QString(625, 'a') + "b at 08:30:00"});
    EXPECT_EQ(ctx.m.lngTopWho, 0);
    EXPECT_EQ(restored, 1);
}

TEST_F(Form5Test, BrowsingShowsOnTheWindowAndTheTitleBarCloseIsAbandon) {
    ctx.lstMessage.addItem("One\r\ntwo at 08:30:00");
    ctx.lstMessage.addItem("Three at 08:30:00");
    Sorting(ctx, "08:30:00", "once", true);
    form.GetOldMessageToTextbox("DoubleClick");
    EXPECT_EQ(form.txtInput->toPlainText(), "One\ntwo");
    EXPECT_EQ(form.cmdCancel->text(), "Close");
    EXPECT_TRUE(form.cmdShowMessages->isVisible());
    EXPECT_EQ(form.lblNumberOfMessage->text(), "message 1");
    form.cmdShowMessages->click();
    EXPECT_EQ(form.txtInput->message(), "Three");
    EXPECT_EQ(form.lblNumberOfMessage->text(), "message 2");

    form.close();
    EXPECT_EQ(ctx.lstMessage.count(), 2);
    EXPECT_EQ(restored, 1);

    // The next opening starts from a fresh window.
    ctx.lstMessage.clear();
    form.GetOldMessageToTextbox("DoubleClick");
    EXPECT_EQ(form.txtInput->message(), "");
    EXPECT_EQ(form.cmdCancel->text(), "Abandon");
    EXPECT_FALSE(form.cmdShowMessages->isVisible());
}

TEST_F(Form5Test, SizeLabelsStepTheTextAndSaveKeepsTheSize) {
    form.GetOldMessageToTextbox("");
    EXPECT_EQ(form.txtInput->font().family(), "Times New Roman");
    EXPECT_EQ(form.txtInput->font().pointSizeF(), 9);
    click(form.lblPlus);
    click(form.lblPlus);
    EXPECT_EQ(form.txtInput->font().pointSizeF(), 11);
    for (int i = 0; i < 6; ++i)
        click(form.lblMinus);
    EXPECT_EQ(form.txtInput->font().pointSizeF(), 6);
    EXPECT_EQ(notices.beeps, 1);
    click(form.lblPlus);
    form.cmdOK->click(); // an empty box: warned, but the size is kept
    EXPECT_EQ(notices.warnings, QStringList{"No message input or alarm event was executed"});

    form.GetOldMessageToTextbox("");
    EXPECT_EQ(form.txtInput->font().pointSizeF(), 7);
}
