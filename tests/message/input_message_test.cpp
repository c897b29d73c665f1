#include "engine/schedule_file.h"
#include "fakes.h"
#include "message/input_message.h"
#include "message/message_text.h"
#include "message/ui/input_message_window.h"
#include "message/ui/message_text_box.h"

#include <QInputMethodEvent>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

// The window's procedures driven as the window drives them: load, open, then Save or a way out.
struct InputMessageTest : ::testing::Test, EngineFixture {
    InputMessage form{ctx};
    MessageControls c;
    const QStringList nothingSaved{"No message input or alarm event was executed"};

    InputMessageTest() {
        ctx.entry.date = "2002/05/01"; // the fake clock's today
        form.restoreTodayList = [] {};
        insertTodayRow(ctx, "08:30:00", "once", true);
    }
    void addMessage(const QString& text, const QString& time) { ctx.today.messages.addItem(text + " at " + time); }
    void open(const QString& how) {
        c = MessageControls();
        form.load();
        form.openInputMessage(how, c);
    }
    void save(const QString& text) {
        c.input = text;
        form.save(c, 9);
        form.closing(true, 0, 0);
    }
    QStringList messages() const { return ctx.today.messages.items(); }
};

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

TEST_F(InputMessageTest, NewTextForTodayOrForARowWithoutMessage) {
    addMessage("Other", "09:00:00");
    open("");
    save("");
    EXPECT_EQ(std::tuple(notices.warnings, notices.beeps), std::tuple(nothingSaved, 1));
    open("");
    save("Dentist");
    open("DoubleClick"); // finds "Dentist", so that one leaves the list while the window is open
    save("");
    open("DoubleClick");
    EXPECT_EQ(c.input, "");
    save("New");
    EXPECT_EQ(messages(), (QStringList{"Other at 09:00:00", "New at 08:30:00"}));
    EXPECT_EQ(ctx.today.alarms.count(), 1);
}

TEST_F(InputMessageTest, AnotherDayGoesToTheScheduleOnSaveAndTheDateCountsAtSave) {
    ctx.newEvent = {"07:15:00", "thri", "#", false, false};
    ctx.entry.date = "2002/05/09";
    open("");
    form.closing(true, 0, 0);
    open("");
    save("");
    EXPECT_FALSE(QFile::exists(path("future.dat")));

    ctx.entry.date = "2002/05/01";
    open("");
    ctx.entry.date = "2002/05/09"; // the user picked another day meanwhile
    save("Call Bob\r\nat home");
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"Call Bob\r\nat home2002/05/09thri07:15:00\"\r\n"));
    EXPECT_EQ(std::tuple(ctx.eventList.highlightedCount(), messages()), std::tuple(1, QStringList()));
}

TEST_F(InputMessageTest, TextTheFilesCannotHoldStaysInTheBoxWithAWarning) {
    for (const char* date : {"2002/05/01", "2002/05/09"}) {
        ctx.newEvent = {"07:15:00", "once", "-", false, false};
        ctx.entry.date = date;
        open("");
        c.input = QString::fromUtf8("emoji 😀 end");
        EXPECT_FALSE(form.save(c, 9)) << date; // the window stays open on its text
        EXPECT_EQ(notices.warnings.takeLast(), QString::fromUtf8("These characters cannot be stored: 😀")) << date;
        form.closing(true, 0, 0);
    }
    EXPECT_EQ(std::tuple(messages(), QFile::exists(path("future.dat"))), std::tuple(QStringList(), false));
}

TEST_F(InputMessageTest, OneMessageLivesOnlyInTheBoxWhileOpen) {
    addMessage("Dentist at 07:00:00", "08:30:00"); // a text that itself ends like a tail
    addMessage("Other", "09:00:00");
    open("DoubleClick");
    EXPECT_EQ(c.input, "Dentist at 07:00:00");
    EXPECT_EQ(c.cancelButton, "Abandon");
    EXPECT_EQ(messages(), QStringList{"Other at 09:00:00"});
    save(c.input);
    EXPECT_EQ(messages(), (QStringList{"Other at 09:00:00", "Dentist at 07:00:00 at 08:30:00"}));

    open("DoubleClick");
    form.closing(true, 0, 0);
    EXPECT_EQ(messages(), QStringList{"Other at 09:00:00"});
}

TEST_F(InputMessageTest, BrowsingSeveralMessagesOfOneTime) {
    addMessage("First", "08:30:00");
    addMessage("Other", "09:00:00");
    addMessage("Second", "08:30:00");
    addMessage("Third", "08:30:00");
    insertTodayRow(ctx, "08:30:00", "once", true); // two rows of one time share their messages
    open("DoubleClick");
    EXPECT_EQ(c.cancelButton, "Close");
    EXPECT_TRUE(c.nextMessageButtonVisible && c.messageNumberLabelVisible);
    QStringList seen;
    for (int i = 0; i < 4; ++i) {
        seen << c.messageNumberLabel + "|" + c.input;
        form.nextMessage(c);
    }
    EXPECT_EQ(seen, (QStringList{"message 1|First", "message 2|Second", "message 3|Third", "message 1|First"}));
    EXPECT_EQ(messages().size(), 4);
    // The last press left "Second" on display; the new text replaces it.
    save("Changed");
    const QStringList changed{"First at 08:30:00", "Other at 09:00:00", "Third at 08:30:00", "Changed at 08:30:00"};
    EXPECT_EQ(messages(), changed);
    open("DoubleClick");
    save("");
    open("DoubleClick");
    form.closing(true, 0, 0);
    EXPECT_EQ(messages(), changed);
}

TEST_F(InputMessageTest, AnAlarmThatTookTheRowLeavesNothingToSave) {
    addMessage("First", "08:30:00");
    addMessage("Second", "08:30:00");
    open("DoubleClick");
    ctx.today.alarms.removeItem(0); // the alarm rang
    form.nextMessage(c);
    EXPECT_EQ(std::tuple(c.messageNumberLabel, notices.beeps), std::tuple("alarm events were executed, close me!", 1));
    save("Typed");
    EXPECT_EQ(notices.warnings, nothingSaved);
    EXPECT_EQ(messages(), (QStringList{"First at 08:30:00", "Second at 08:30:00"}));
}

TEST_F(InputMessageTest, FrontPlaceAndTextSizeThroughTheSettingsFile) {
    open(""); // the window's test sees it take the front and give it back
    EXPECT_TRUE(form.deactivated());
    ctx.front.claimant = 1000000; // a warning has the front
    EXPECT_FALSE(form.deactivated());
    EXPECT_EQ(ctx.front.claimant, 1000000);
    EXPECT_EQ(notices.beeps, 1);

    c.input = "x";
    form.save(c, 10.5);
    form.closing(true, 4740.4, 4944.6);
    const MessagePlacement p = form.load(); // the size rounded half to even
    EXPECT_EQ(std::tuple(p.hasLocation, p.top, p.left, p.hasFontSize, p.fontSize),
              std::tuple(true, 4740, 4945, true, 10));

    // A minimised window keeps no place.
    form.closing(false, 0, 0);
    EXPECT_EQ(form.load().top, 4740);
}

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
    EXPECT_EQ(std::tuple(form.input->font().pointSizeF(), notices.beeps), std::tuple(6, 1));
    form.plusButton->click();
    form.okButton->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(ctx.today.messages.items(), QStringList{QString(624, 'a') + "'b at 08:30:00"});
    EXPECT_EQ(std::pair(ctx.front.claimant, restored), std::pair(0, 1));

    form.openInputMessage("");
    EXPECT_EQ(form.input->font().family(), "Times New Roman");
    EXPECT_EQ(form.input->font().pointSizeF(), 7);
    for (int i = 0; i < 11; ++i)
        form.plusButton->click();
    EXPECT_EQ(std::tuple(form.input->font().pointSizeF(), notices.beeps), std::tuple(17, 2));
}

TEST_F(InputMessageWindowTest, BrowsingOnTheWindowAndTheTitleBarCloseIsAbandon) {
    ctx.today.messages.addItem("One\r\ntwo at 08:30:00");
    ctx.today.messages.addItem("Three at 08:30:00");
    form.openInputMessage("DoubleClick");
    EXPECT_EQ(std::tuple(form.input->toPlainText(), form.cancelButton->text(), form.nextMessageButton->isVisible()),
              std::tuple("One\ntwo", "Close", true));
    form.nextMessageButton->click();
    EXPECT_EQ(form.input->message(), "Three");
    form.close();
    EXPECT_EQ(std::pair(ctx.today.messages.count(), restored), std::pair(2, 1));

    // The next opening starts from a fresh window.
    ctx.today.messages.clear();
    form.openInputMessage("DoubleClick");
    EXPECT_EQ(std::tuple(form.input->message(), form.cancelButton->text(), form.nextMessageButton->isVisible()),
              std::tuple("", "Abandon", false));
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
