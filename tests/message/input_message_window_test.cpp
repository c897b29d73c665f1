#include "engine/schedule_file.h"
#include "fakes.h"
#include "message/message_text.h"
#include "message/ui/input_message_window.h"
#include "message/ui/message_text_box.h"

#include <QInputMethodEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

struct InputMessageWindowTest : ::testing::Test, EngineFixture {
    InputMessageWindow form{ctx};
    int restored = 0;

    InputMessageWindowTest() {
        ctx.entry.date = "2002/05/01";
        form.restoreTodayList() = [this] { ++restored; };
        insertTodayRow(ctx, "08:30:00", "once", true);
    }
    void type(const QString& keys) {
        for (const QChar k : keys) {
            const int key = k == '\n' ? Qt::Key_Return : (k == '"' ? Qt::Key_QuoteDbl : k.toUpper().unicode());
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, k == '\n' ? QString("\r") : QString(k));
            QApplication::sendEvent(form.input, &press);
        }
    }
    // Text an input method commits, as a dead key or a compose sequence gives it.
    void compose(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(form.input, &event);
    }
};

} // namespace

TEST_F(InputMessageWindowTest, TypingSavingAndTheTextSize) {
    form.openInputMessage("");
    EXPECT_EQ(ctx.front.claimant, 1);
    type("Say \"hi\"\nnow");
    compose("\"");
    EXPECT_TRUE(form.isVisible()); // Return pressed no button
    EXPECT_EQ(form.input->message(), "Say 'hi'\r\nnow'");

    form.input->setMessage(QString(624, 'a'));
    form.input->moveCursor(QTextCursor::End);
    compose("\"");
    type("bc"); // the 627th character goes nowhere
    compose("d");
    EXPECT_EQ(form.input->message(), QString(624, 'a') + "'b");

    for (int i = 0; i < 4; ++i)
        form.minusButton->click();
    EXPECT_EQ(form.input->font().pointSizeF(), 6);
    EXPECT_EQ(notices.beeps, 1);
    form.plusButton->click();
    form.okButton->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(ctx.today.messages.items(), QStringList{QString(624, 'a') + "'b at 08:30:00"});
    EXPECT_EQ(ctx.front.claimant, 0);
    EXPECT_EQ(restored, 1);

    form.openInputMessage("");
    EXPECT_EQ(form.input->font().family(), "Times New Roman");
    EXPECT_EQ(form.input->font().pointSizeF(), 7);
}

TEST_F(InputMessageWindowTest, BrowsingOnTheWindowAndTheTitleBarCloseIsAbandon) {
    ctx.today.messages.addItem("One\r\ntwo at 08:30:00");
    ctx.today.messages.addItem("Three at 08:30:00");
    form.openInputMessage("DoubleClick");
    EXPECT_EQ(form.input->toPlainText(), "One\ntwo");
    EXPECT_EQ(form.cancelButton->text(), "Close");
    EXPECT_TRUE(form.nextMessageButton->isVisible());
    form.nextMessageButton->click();
    EXPECT_EQ(form.input->message(), "Three");
    form.close();
    EXPECT_EQ(ctx.today.messages.count(), 2);
    EXPECT_EQ(restored, 1);

    // The next opening starts from a fresh window.
    ctx.today.messages.clear();
    form.openInputMessage("DoubleClick");
    EXPECT_EQ(form.input->message(), "");
    EXPECT_EQ(form.cancelButton->text(), "Abandon");
    EXPECT_FALSE(form.nextMessageButton->isVisible());
}

TEST_F(InputMessageWindowTest, EveryOpeningPutsTheFocusInTheMessageBox) {
    // The button that closed the window last must not take the first key of the next message.
    for (QPushButton* closer : {form.okButton, form.cancelButton, form.okButton}) {
        form.openInputMessage("");
        EXPECT_EQ(form.focusWidget(), form.input) << closer->text().toStdString();
        closer->setFocus();
        ASSERT_EQ(form.focusWidget(), closer);
        form.close();
    }
    form.openInputMessage("");
    EXPECT_EQ(form.focusWidget(), form.input);
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
    // A character takes one place, as in the file, whatever its UTF-16 length; a pair is never split.
    const QString emoji = QString::fromUtf8("😀");
    EXPECT_EQ(length(oneShort + emoji), kMaxLength);
    EXPECT_EQ(fitting(oneShort, u"", emoji + emoji), emoji);
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
