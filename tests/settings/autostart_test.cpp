#include "settings/autostart.h"

#include "qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
// Points the user's folders at a temporary place for one test.
struct AutostartTest : ::testing::Test {
    QTemporaryDir dir;
    QByteArray savedConfig = qgetenv("XDG_CONFIG_HOME");
    QByteArray savedHome = qgetenv("HOME");
    AutostartTest() { qputenv("XDG_CONFIG_HOME", dir.path().toUtf8()); }
    ~AutostartTest() override {
        qputenv("XDG_CONFIG_HOME", savedConfig);
        qputenv("HOME", savedHome);
    }
    QString entry() const { return dir.path() + "/autostart/bwktolm.desktop"; }
};
} // namespace

TEST_F(AutostartTest, EntryLivesInTheConfigFolder) {
    EXPECT_EQ(autostart::entryPath(), entry());
    qputenv("HOME", dir.path().toUtf8() + "/home");
    qputenv("XDG_CONFIG_HOME", "");
    EXPECT_EQ(autostart::entryPath(), dir.path() + "/home/.config/autostart/bwktolm.desktop");
    qputenv("XDG_CONFIG_HOME", "relative/config");
    EXPECT_EQ(autostart::entryPath(), dir.path() + "/home/.config/autostart/bwktolm.desktop");
}

TEST_F(AutostartTest, ExecQuotesOnlyWhenNeeded) {
    EXPECT_EQ(autostart::execValue("/usr/bin/bellwick"), "/usr/bin/bellwick");
    EXPECT_EQ(autostart::execValue("/home/ann/My Apps/bellwick"), "\"/home/ann/My Apps/bellwick\"");
    // Inside quotes ", `, $ and \ take a backslash; then every backslash is doubled as in any string value.
    EXPECT_EQ(autostart::execValue("/a$b/c\"d/e\\f"), "\"/a\\\\$b/c\\\\\"d/e\\\\\\\\f\"");
    EXPECT_EQ(autostart::execValue("/opt/100%/bw"), "/opt/100%%/bw");
}

TEST_F(AutostartTest, InstallAndRemove) {
    EXPECT_TRUE(autostart::remove()); // nothing there yet
    ASSERT_TRUE(autostart::install("/opt/bell wick/bellwick"));
    QFile file(entry());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "[Desktop Entry]\nType=Application\nName=Bellwick\n"
                              "Exec=\"/opt/bell wick/bellwick\"\nX-GNOME-Autostart-enabled=true\n");
    file.close();
    EXPECT_TRUE(autostart::remove());
    EXPECT_FALSE(QFile::exists(entry()));
}
