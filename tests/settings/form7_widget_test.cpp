#include "settings/ui/form7.h"

#include "fakes.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

namespace {
struct Form7Widget : ::testing::Test, EngineFixture {
    QPointer<Form7> form;
    ~Form7Widget() override { delete form.data(); }

    void open() { form = new Form7(ctx); }
    template <typename T> T* child(const char* name) const {
        T* w = form->findChild<T*>(QLatin1String(name));
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    bool shown(const char* name) const { return !child<QWidget>(name)->isHidden(); }
    void click(const char* name) { child<QAbstractButton>(name)->click(); }
};
} // namespace

TEST_F(Form7Widget, VisibilityFollowsSoundAndSpeaker) {
    open();
    EXPECT_EQ(form->windowTitle(), "Settings");
    EXPECT_TRUE(child<QCheckBox>("chkSoundOn")->isChecked());
    EXPECT_TRUE(shown("chkErrMsgPop"));
    EXPECT_FALSE(shown("cmdPlayIS"));
    EXPECT_FALSE(shown("lblTest"));

    click("chkSoundOn");
    EXPECT_FALSE(ctx.m.blnSoundOn);
    EXPECT_FALSE(shown("chkErrMsgPop"));
    EXPECT_TRUE(shown("lblPremier"));
    click("chkInternalSpeaker");
    EXPECT_FALSE(shown("cmdPlayIS"));
    click("chkSoundOn");
    EXPECT_TRUE(shown("chkErrMsgPop"));
    EXPECT_TRUE(shown("cmdPlayIS"));
    EXPECT_TRUE(shown("lblTest"));

    click("cmdPlayIS");
    EXPECT_EQ(sound.played, QStringList{"once|" + ctx.m.strSongName});

    // A change made elsewhere, as the Alarm Set window's load does, shows at once.
    ctx.form7.SetSoundOn(ctx, false);
    EXPECT_FALSE(child<QCheckBox>("chkSoundOn")->isChecked());
    EXPECT_FALSE(shown("cmdPlayIS"));
}

TEST_F(Form7Widget, NextFlipsThePages) {
    open();
    EXPECT_FALSE(shown("fraLoadBwk"));
    click("cmdNext");
    for (const char* name : {"Frame1", "Frame2", "Frame3"})
        EXPECT_FALSE(shown(name)) << name;
    EXPECT_TRUE(shown("fraLoadBwk"));
    click("cmdNext");
    EXPECT_TRUE(shown("Frame1"));
    EXPECT_FALSE(shown("fraLoadBwk"));
}

TEST_F(Form7Widget, FontOfTheFileAppliesToTheListedControls) {
    writeFile("tolm.ini", QByteArray(7 * 55, '\0') + settingBytes("[AllFont]", 0, 0, "TimesNewRoman"));
    open();
    EXPECT_EQ(child<QLabel>("lblSoundOn")->font().family(), "Times New Roman");
    EXPECT_EQ(child<QLabel>("lblTest")->font().pointSize(), 10);
    EXPECT_EQ(child<QRadioButton>("optFont3")->font().pointSize(), 10);
    EXPECT_NE(child<QPushButton>("cmdRun")->font().family(), "Times New Roman");
    // The choice itself comes from the variable, not from the file.
    EXPECT_TRUE(child<QRadioButton>("optFont3")->isChecked());
}

TEST_F(Form7Widget, ClosingWritesRecordsFourAndEight) {
    open();
    click("chkErrMsgPop");
    click("chkNoSec");
    click("optFont1");
    EXPECT_EQ(ctx.m.iFontChoice, 1);
    form->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
    EXPECT_FALSE(ctx.form7.loaded());

    const QByteArray file = readFile("tolm.ini");
    ASSERT_EQ(file.size(), 8 * 55);
    EXPECT_EQ(file.mid(3 * 55, 55), settingBytes("[Setting]", 1, 0, "ALAEOfDCWSOnUISPOfISOMOf"));
    EXPECT_EQ(file.mid(7 * 55, 55), settingBytes("[AllFont]", 1, 0, "Arial"));
    EXPECT_EQ(file.left(3 * 55), QByteArray(3 * 55, '\0'));
}

TEST_F(Form7Widget, AWindowOpenedAgainKeepsShowingChanges) {
    open();
    QPointer<Form7> first = form;
    first->close();
    open(); // before the first one is deleted
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());
    ctx.form7.SetSoundOn(ctx, false);
    EXPECT_FALSE(child<QCheckBox>("chkSoundOn")->isChecked());
}
