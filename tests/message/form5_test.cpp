#include "engine/schedule_file.h"
#include "fakes.h"
#include "message/message_text.h"
#include "message/ui/form5.h"
#include "message/ui/message_text_box.h"

#include <QInputMethodEvent>
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
        Sorting(ctx, "08:30:00", "once", true);
    }
    void type(const QString& keys) {
        for (const QChar k : keys) {
            const int key = k == '\n' ? Qt::Key_Return : (k == '"' ? Qt::Key_QuoteDbl : k.toUpper().unicode());
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, k == '\n' ? QString("\r") : QString(k));
            QApplication::sendEvent(form.txtInput, &press);
        }
    }
    // Text an input method commits, as a dead key or a compose sequence gives it.
    void compose(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(form.txtInput, &event);
    }
    void click(QLabel* label) {
        const QPointF at(2, 2);
        QMouseEvent up(QEvent::MouseButtonRelease, at, label->mapToGlobal(at), Qt::LeftButton, Qt::NoButton, {});
        QApplication::sendEvent(label, &up);
    }
};

} // namespace

TEST_F(Form5Test, TypingSavingAndTheTextSize) {
    form.GetOldMessageToTextbox("");
    EXPECT_EQ(ctx.m.lngTopWho, 1);
    type("Say \"hi\"\nnow");
    compose("\"");
    EXPECT_TRUE(form.isVisible()); // Return pressed no button
    EXPECT_EQ(form.txtInput->message(), "Say 'hi'\r\nnow'");

    form.txtInput->setMessage(QString(624, 'a'));
    form.txtInput->moveCursor(QTextCursor::End);
    compose("\"");
    type("bc"); // the 627th character goes nowhere
    compose("d");
    EXPECT_EQ(form.txtInput->message(), QString(624, 'a') + "'b");

    for (int i = 0; i < 4; ++i)
        click(form.lblMinus);
    EXPECT_EQ(form.txtInput->font().pointSizeF(), 6);
    EXPECT_EQ(notices.beeps, 1);
    click(form.lblPlus);
    form.cmdOK->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(ctx.lstMessage.items(), QStringList{QString(624, 'a') + "'b at 08:30:00"});
    EXPECT_EQ(ctx.m.lngTopWho, 0);
    EXPECT_EQ(restored, 1);

    form.GetOldMessageToTextbox("");
    EXPECT_EQ(form.txtInput->font().family(), "Times New Roman");
    EXPECT_EQ(form.txtInput->font().pointSizeF(), 7);
}

TEST_F(Form5Test, BrowsingOnTheWindowAndTheTitleBarCloseIsAbandon) {
    ctx.lstMessage.addItem("One\r\ntwo at 08:30:00");
    ctx.lstMessage.addItem("Three at 08:30:00");
    form.GetOldMessageToTextbox("DoubleClick");
    EXPECT_EQ(form.txtInput->toPlainText(), "One\ntwo");
    EXPECT_EQ(form.cmdCancel->text(), "Close");
    EXPECT_TRUE(form.cmdShowMessages->isVisible());
    form.cmdShowMessages->click();
    EXPECT_EQ(form.txtInput->message(), "Three");
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

using namespace message_text;

TEST(MessageText, LineBreaksAndTheLengthLimit) {
    EXPECT_EQ(stored(QStringLiteral("a\nb") + QChar::ParagraphSeparator), "a\r\nb\r\n");
    EXPECT_EQ(shown("a\r\nb"), "a\nb");
    const QString full(kMaxLength, 'a');
    EXPECT_EQ(fitting(full, u"", "b"), "");
    EXPECT_EQ(fitting(full, u"aa", "\"xyz"), "'x"); // a selection makes room; quotes turn
    const QString oneShort(kMaxLength - 1, 'a');
    EXPECT_EQ(fitting(oneShort, u"", "\n"), ""); // a line break counts as CR LF
    EXPECT_EQ(fitting(oneShort, u"\n", "\n\n"), "\n");
}

TEST(MessageText, TextSizeSteps) {
    for (double refused : {6.0, 5.0}) {
        double size = refused;
        EXPECT_FALSE(smaller(size));
        EXPECT_EQ(size, refused);
    }
    double size = 16;
    EXPECT_TRUE(larger(size));
    EXPECT_EQ(size, 17);
    size = 16.8;
    EXPECT_FALSE(larger(size));
}
