// What the program keeps is the user's alone: folders it makes, the data folder it finds open, files it writes;
// and where no session bus runs it starts none.
#include "platform/data_folder.h"
#include "platform/record_file.h"
#include "platform/session_bus.h"

#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

int modeOf(const QString& path) {
    struct stat st {};
    return ::stat(qPrintable(path), &st) == 0 ? int(st.st_mode & 07777) : -1;
}

} // namespace

TEST(PrivateFilesTest, FoldersMadeOrOwnedAreClosedAndThoseAboveThatStoodAreLeft) {
    QTemporaryDir root;
    const QString r = root.path();
    // An earlier version left the data folder open.
    for (const char* folder : {"/home", "/old", "/old/bellwick"}) {
        ASSERT_EQ(::mkdir(qPrintable(r + folder), 0755), 0);
        ASSERT_EQ(::chmod(qPrintable(r + folder), 0755), 0);
    }
    const QString bundled = r + "/bundled";
    ASSERT_TRUE(QDir().mkpath(bundled + "/help"));
    for (const char* name : {"/ding.wav", "/help/tolmhelp.html"}) {
        QFile f(bundled + name);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        ASSERT_TRUE(f.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadOther));
    }
    ASSERT_TRUE(data_folder::prepare(r + "/home/.local/share/bellwick/", bundled));
    ASSERT_TRUE(data_folder::makePrivate(r + "/old/bellwick"));

    const std::pair<const char*, int> expected[] = {
        {"/home", 0755},
        {"/home/.local", 0700},
        {"/home/.local/share", 0700},
        {"/home/.local/share/bellwick", 0700},
        {"/home/.local/share/bellwick/help", 0700},
        {"/home/.local/share/bellwick/ding.wav", 0600},
        {"/home/.local/share/bellwick/help/tolmhelp.html", 0600},
        {"/old", 0755},
        {"/old/bellwick", 0700},
    };
    for (const auto& [path, mode] : expected)
        EXPECT_EQ(modeOf(r + path), mode) << path;
}

TEST(PrivateFilesTest, ANewFileIsTheUsersAloneAndOneThatStandsKeepsItsMode) {
    QTemporaryDir root;
    FileError error;
    const QString fresh = root.path() + "/future.dat", standing = root.path() + "/my.dat";
    ASSERT_TRUE(record_file::rewriteBytes(fresh, "\"a\"\r\n", error));
    ASSERT_TRUE(record_file::rewriteBytes(standing, "", error));
    ASSERT_EQ(::chmod(qPrintable(standing), 0640), 0);
    ASSERT_TRUE(record_file::rewriteBytes(standing, "\"b\"\r\n", error));
    EXPECT_EQ(std::pair(modeOf(fresh), modeOf(standing)), std::pair(0600, 0640));
}

TEST(PrivateFilesTest, ABusIsThereOnlyWhenNamedOrItsSocketStands) {
    QTemporaryDir withSocket, withFile, empty;
    QLocalServer bus;
    ASSERT_TRUE(bus.listen(withSocket.path() + "/bus"));
    QFile plain(withFile.path() + "/bus");
    ASSERT_TRUE(plain.open(QIODevice::WriteOnly));
    const std::tuple<const char*, QString, bool> cases[] = {
        {"unix:path=/run/user/1000/bus", empty.path(), true},
        {"", withSocket.path(), true},
        {"autolaunch:", withSocket.path(), true},
        {"", empty.path(), false},
        {"autolaunch:", empty.path(), false},
        {"", withFile.path(), false},
        {"", QString(), false},
    };
    for (const auto& [address, runtime, present] : cases) {
        QProcessEnvironment env;
        if (*address)
            env.insert("DBUS_SESSION_BUS_ADDRESS", address);
        if (!runtime.isEmpty())
            env.insert("XDG_RUNTIME_DIR", runtime);
        EXPECT_EQ(session_bus::present(env), present) << address << " " << runtime.toStdString();
    }
}
