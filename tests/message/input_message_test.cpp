#include "engine/schedule_file.h"
#include "fakes.h"
#include "message/input_message.h"
#include "settings/settings_records.h"

#include <gtest/gtest.h>

namespace {

// The window's procedures driven as the window drives them: load, open, then Save or a way out.
struct InputMessageTest : ::testing::Test, EngineFixture {
    InputMessage form{ctx};
    MessageControls c;
    int restored = 0;

    InputMessageTest() {
        ctx.m.strAlarmDate = "2002/05/01"; // the fake clock's today
        form.restoreDataList = [this] { ++restored; };
    }
    void addToday(const QString& time) { Sorting(ctx, time, "once", true); }
    void addMessage(const QString& text, const QString& time) { ctx.lstMessage.addItem(text + " at " + time); }
    void open(const QString& how) {
        c = MessageControls();
        form.Load();
        form.GetOldMessageToTextbox(how, c);
    }
    void save(const QString& text) {
        c.txtInput = text;
        form.OKClick(c, 9);
        form.QueryUnload(true, 0, 0);
    }
    void abandon() { form.QueryUnload(true, 0, 0); }
    QStringList messages() const { return ctx.lstMessage.items(); }
};

} // namespace

TEST_F(InputMessageTest, NewTextForAnEventOfToday) {
    addToday("08:30:00");
    open("");
    EXPECT_EQ(c.cmdCancel, "Abandon");
    save("Dentist");
    EXPECT_EQ(messages(), QStringList{"Dentist at 08:30:00"});

    open("");
    save("");
    EXPECT_EQ(notices.warnings, QStringList{"No message input or alarm event was executed"});
    EXPECT_EQ(notices.beeps, 1);
    EXPECT_EQ(messages().size(), 1);
    EXPECT_EQ(ctx.lstData.count(), 1);
}

TEST_F(InputMessageTest, NewTextForAnotherDayGoesToTheScheduleOnlyOnSave) {
    ctx.m.strAlarmDate = "2002/05/09";
    ctx.form8.strEventTime = "07:15:00";
    ctx.form8.strEventPlay = "thri";
    ctx.form8.strEventMark = "#";
    open("");
    abandon();
    open("");
    save("");
    EXPECT_FALSE(QFile::exists(path("future.dat")));
    EXPECT_EQ(ctx.Bwklistbox1.lstMain.count(), 0);

    open("");
    save("Call Bob\r\nat home");
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"Call Bob\r\nat home2002/05/09thri07:15:00\"\r\n"));
    EXPECT_EQ(ctx.Bwklistbox1.MultiSelectedItem(), 1);
    EXPECT_TRUE(messages().isEmpty());
}

TEST_F(InputMessageTest, TheDateDecidesAtSaveNotAtOpening) {
    addToday("08:30:00");
    ctx.form8 = {"08:30:00", "once", "-", false, false};
    open("");
    ctx.m.strAlarmDate = "2002/05/02"; // the user picked another day meanwhile
    save("Late");
    EXPECT_TRUE(messages().isEmpty());
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"Late2002/05/02once08:30:00\"\r\n"));
}

TEST_F(InputMessageTest, DoubleClickOnARowWithoutMessageAddsOne) {
    addMessage("Other", "09:00:00");
    addToday("08:30:00");
    open("DoubleClick");
    EXPECT_EQ(c.txtInput, "");
    EXPECT_EQ(form.iMessageCount(), 0);
    EXPECT_FALSE(c.cmdShowMessagesVisible);
    save("New");
    EXPECT_EQ(messages(), (QStringList{"Other at 09:00:00", "New at 08:30:00"}));
}

TEST_F(InputMessageTest, OneMessageLeavesTheListWhileOpen) {
    addMessage("Dentist at 07:00:00", "08:30:00"); // a text that itself ends like a tail
    addMessage("Other", "09:00:00");
    addToday("08:30:00");
    open("DoubleClick");
    EXPECT_EQ(c.txtInput, "Dentist at 07:00:00");
    EXPECT_EQ(c.cmdCancel, "Abandon");
    EXPECT_EQ(form.iCurrentMessage(), -1);
    EXPECT_EQ(messages(), QStringList{"Other at 09:00:00"});
    save(c.txtInput);
    EXPECT_EQ(messages(), (QStringList{"Other at 09:00:00", "Dentist at 07:00:00 at 08:30:00"}));

    open("DoubleClick");
    abandon();
    EXPECT_EQ(messages(), QStringList{"Other at 09:00:00"});

    addMessage("Again", "08:30:00");
    open("DoubleClick");
    save("");
    EXPECT_EQ(messages(), QStringList{"Other at 09:00:00"});
}

TEST_F(InputMessageTest, BrowsingSeveralMessagesOfOneTime) {
    addMessage("First", "08:30:00");
    addMessage("Other", "09:00:00");
    addMessage("Second", "08:30:00");
    addMessage("Third", "08:30:00");
    addToday("08:30:00");
    addToday("08:30:00"); // two rows of one time share their messages
    open("DoubleClick");
    EXPECT_EQ(form.arrMessageRows(), (QList<int16_t>{0, 2, 3}));
    EXPECT_EQ(c.txtInput, "First");
    EXPECT_EQ(c.cmdCancel, "Close");
    EXPECT_TRUE(c.cmdShowMessagesVisible && c.lblNumberOfMessageVisible);
    QStringList seen;
    for (int i = 0; i < 4; ++i) {
        seen << c.lblNumberOfMessage + "|" + c.txtInput;
        form.ShowMessagesClick(c);
    }
    EXPECT_EQ(seen, (QStringList{"message 1|First", "message 2|Second", "message 3|Third", "message 1|First"}));
    EXPECT_EQ(messages().size(), 4);

    // The last press left "Second" on display; the new text replaces it.
    save("Changed");
    EXPECT_EQ(messages(),
              (QStringList{"First at 08:30:00", "Other at 09:00:00", "Third at 08:30:00", "Changed at 08:30:00"}));
    open("DoubleClick");
    save("");
    open("DoubleClick");
    abandon();
    EXPECT_EQ(messages().size(), 4);
}

TEST_F(InputMessageTest, AnAlarmThatTookTheRowLeavesNothingToSave) {
    addMessage("First", "08:30:00");
    addMessage("Second", "08:30:00");
    addToday("08:30:00");
    open("DoubleClick");
    ctx.lstData.removeItem(0); // the alarm rang
    form.ShowMessagesClick(c);
    EXPECT_EQ(c.lblNumberOfMessage, "alarm events were executed, close me!");
    EXPECT_EQ(notices.beeps, 1);
    save("Typed");
    EXPECT_EQ(notices.warnings, QStringList{"No message input or alarm event was executed"});
    EXPECT_EQ(messages(), (QStringList{"First at 08:30:00", "Second at 08:30:00"}));
}

TEST_F(InputMessageTest, FrontPlaceAndTextSizeThroughTheSettingsFile) {
    open("");
    EXPECT_EQ(ctx.m.lngTopWho, 1);
    EXPECT_TRUE(form.Deactivate());
    EXPECT_EQ(notices.beeps, 1);
    ctx.m.lngTopWho = 1000000; // a warning has the front
    EXPECT_FALSE(form.Deactivate());
    EXPECT_EQ(ctx.m.lngTopWho, 1000000);
    EXPECT_EQ(notices.beeps, 1);

    c.txtInput = "x";
    form.OKClick(c, 10.5);
    form.QueryUnload(true, 4740.4, 4944.6);
    EXPECT_EQ(ctx.m.lngTopWho, 0);
    EXPECT_EQ(restored, 1);
    MessagePlacement placement = form.Load();
    EXPECT_TRUE(placement.hasLocation && placement.hasFontSize);
    EXPECT_EQ(placement.top, 4740);
    EXPECT_EQ(placement.left, 4945);
    EXPECT_EQ(placement.fontSize, 10); // rounded half to even

    // Abandon keeps no size, and a minimised window no place.
    form.QueryUnload(false, 0, 0);
    placement = form.Load();
    EXPECT_EQ(placement.top, 4740);
    EXPECT_EQ(placement.fontSize, 10);
}
