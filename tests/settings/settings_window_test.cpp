#include "settings/settings_options.h"
#include "settings/ui/settings_window.h"

#include "fakes.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

namespace {
struct SettingsWindowTest : ::testing::Test, EngineFixture {
    QPointer<SettingsWindow> form;
    ~SettingsWindowTest() override { delete form.data(); }

    void open() { form = new SettingsWindow(ctx); }
    template <typename T> T* child(const char* name) const {
        T* w = form->findChild<T*>(QLatin1String(name));
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    bool shown(const char* name) const { return !child<QWidget>(name)->isHidden(); }
    void click(const char* name) { child<QAbstractButton>(name)->click(); }
};
} // namespace

TEST_F(SettingsWindowTest, VisibilityFollowsSoundAndSpeaker) {
    open();
    EXPECT_TRUE(child<QCheckBox>("soundOnBox")->isChecked());
    EXPECT_EQ(std::tuple(shown("errorPopupsBox"), shown("testSpeakerButton"), shown("testLabel")),
              std::tuple(true, false, false));

    click("soundOnBox");
    EXPECT_EQ(std::tuple(ctx.options.soundOn, shown("errorPopupsBox"), shown("errorPopupsLabel")),
              std::tuple(false, false, true));
    click("internalSpeakerBox");
    EXPECT_FALSE(shown("testSpeakerButton"));
    click("soundOnBox");
    EXPECT_EQ(std::tuple(shown("errorPopupsBox"), shown("testSpeakerButton"), shown("testLabel")),
              std::tuple(true, true, true));

    click("testSpeakerButton");
    EXPECT_EQ(sound.played, QStringList{"once|" + ctx.soundChoice.songPath});

    // A change made elsewhere, as the Alarm Set window's load does, shows at once.
    SettingsOptions(ctx).setSoundOn(false);
    EXPECT_EQ(std::pair(child<QCheckBox>("soundOnBox")->isChecked(), shown("testSpeakerButton")),
              std::pair(false, false));
}

TEST_F(SettingsWindowTest, NextFlipsThePages) {
    open();
    EXPECT_FALSE(shown("autostartFrame"));
    click("nextPageButton");
    for (const char* name : {"speakerFrame", "optionsFrame", "fontFrame"})
        EXPECT_FALSE(shown(name)) << name;
    EXPECT_TRUE(shown("autostartFrame"));
    click("nextPageButton");
    EXPECT_EQ(std::tuple(shown("speakerFrame"), shown("autostartFrame")), std::tuple(true, false));
}

TEST_F(SettingsWindowTest, FontOfTheFileAppliesToTheListedControls) {
    writeFile("tolm.ini", QByteArray(7 * 55, '\0') + settingBytes("[AllFont]", 0, 0, "TimesNewRoman"));
    open();
    EXPECT_EQ(child<QLabel>("soundOnLabel")->font().family(), "Times New Roman");
    EXPECT_EQ(child<QLabel>("testLabel")->font().pointSize(), 10);
    EXPECT_EQ(child<QRadioButton>("fontButtons3")->font().pointSize(), 10);
    EXPECT_NE(child<QPushButton>("autostartOnButton")->font().family(), "Times New Roman");
    // The choice itself comes from the variable, not from the file.
    EXPECT_TRUE(child<QRadioButton>("fontButtons3")->isChecked());
}

TEST_F(SettingsWindowTest, ClosingWritesRecordsFourAndEight) {
    open();
    click("errorPopupsBox");
    click("noSecondBox");
    click("fontButtons1");
    EXPECT_EQ(ctx.options.fontChoice, 1);
    form->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(std::pair(form.isNull(), ctx.settings.loaded), std::pair(true, false));

    const QByteArray empty(3 * 55, '\0');
    EXPECT_EQ(readFile("tolm.ini"), empty + settingBytes("[Setting]", 1, 0, "ALAEOfDCWSOnUISPOfISOMOf") + empty +
                                        settingBytes("[AllFont]", 1, 0, "Arial"));
}

TEST_F(SettingsWindowTest, AWindowOpenedAgainKeepsShowingChanges) {
    open();
    QPointer<SettingsWindow> first = form;
    first->close();
    open(); // before the first one is deleted
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());
    SettingsOptions(ctx).setSoundOn(false);
    EXPECT_FALSE(child<QCheckBox>("soundOnBox")->isChecked());
}
