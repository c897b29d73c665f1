// The lock and the midi copy where other users can reach: planted links, folders of others, folders open to all.
#include "../sound/sound_fakes.h"
#include "platform/midi_output.h"
#include "platform/single_instance.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr uid_t kOtherUser = 65534;

struct RuntimeFolderTest : ::testing::Test {
    QTemporaryDir root;
    const QString runtime = root.path() + "/run", cache = root.path() + "/cache", data = root.path() + "/data";
    const QByteArray saved[3] = {qgetenv("XDG_RUNTIME_DIR"), qgetenv("XDG_CACHE_HOME"), qgetenv("XDG_DATA_HOME")};

    RuntimeFolderTest() {
        qputenv("XDG_RUNTIME_DIR", runtime.toUtf8());
        qputenv("XDG_CACHE_HOME", cache.toUtf8());
        qputenv("XDG_DATA_HOME", data.toUtf8());
        ::mkdir(qPrintable(runtime), 0700);
    }
    ~RuntimeFolderTest() override {
        qputenv("XDG_RUNTIME_DIR", saved[0]);
        qputenv("XDG_CACHE_HOME", saved[1]);
        qputenv("XDG_DATA_HOME", saved[2]);
    }
    // The folder of the midi copy and of the lock, which must be one.
    static QString chosen() {
        const QString lockFolder = QFileInfo(SingleInstance::defaultLockPath()).path();
        EXPECT_EQ(QFileInfo(fixedMidiCopyPath()).path(), lockFolder);
        return lockFolder;
    }
    static struct stat linkStat(const QString& path) {
        struct stat st {};
        EXPECT_EQ(::lstat(qPrintable(path), &st), 0) << path.toStdString();
        return st;
    }
    // A folder of another user, as the tester's second account leaves it.
    static void makeForeign(const QString& folder) {
        ASSERT_TRUE(QDir().mkpath(folder));
        ASSERT_EQ(::chmod(qPrintable(folder), 0777), 0);
        ASSERT_EQ(::chown(qPrintable(folder), kOtherUser, kOtherUser), 0);
    }
};

} // namespace

TEST_F(RuntimeFolderTest, APlantedLinkAtTheMidiCopyIsReplacedNotFollowed) {
    SoundFixture f;
    const QString copy = f.dir.path() + "/run/air.mid";
    const QString victim = f.dir.path() + "/precious.txt";
    writeBytes(victim, "precious");
    ASSERT_TRUE(QDir().mkpath(f.dir.path() + "/run"));
    ASSERT_TRUE(QFile::link(victim, copy));
    writeBytes(f.ctx.appFile("air.mid"), "MThd the new copy");
    f.ctx.options.soundOn = true;
    f.player.playMidi();

    EXPECT_EQ(readBytes(victim), "precious");
    const struct stat st = linkStat(copy);
    EXPECT_TRUE(S_ISREG(st.st_mode));
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    EXPECT_EQ(readBytes(copy), "MThd the new copy");
    EXPECT_EQ(QDir(f.dir.path() + "/run").entryList(QDir::Files), QStringList{"air.mid"}) << "no temporary file left";
    EXPECT_EQ(f.log.filter("mci open").size(), 1);
}

TEST_F(RuntimeFolderTest, ARuntimeFolderOfAnotherUserIsPassedByAndTheProgramStarts) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "a folder of another user needs chown";
    // The other user's folder holds a lock that is taken.
    ASSERT_TRUE(QDir().mkpath(runtime + "/bellwick"));
    QLockFile held(runtime + "/bellwick/bellwick.lock");
    ASSERT_TRUE(held.tryLock(0));
    makeForeign(runtime + "/bellwick");

    EXPECT_EQ(chosen(), cache + "/bellwick");
    SingleInstance instance;
    EXPECT_FALSE(instance.isAnotherRunning());
    EXPECT_TRUE(QFileInfo::exists(cache + "/bellwick/bellwick.lock"));
    EXPECT_EQ(linkStat(cache + "/bellwick").st_mode & 0777, 0700u);

    // The cache folder taken as well: a private folder in the program folder.
    makeForeign(cache + "/bellwick");
    EXPECT_EQ(chosen(), data + "/bellwick/run");
    EXPECT_EQ(linkStat(data + "/bellwick/run").st_mode & 0777, 0700u);
}

TEST_F(RuntimeFolderTest, FoldersOpenToAllAreClosedWhenOursAndPassedByOtherwise) {
    // Ours but made open to all or to the group, as an older build left it: closed to 0700 and used.
    ASSERT_EQ(::mkdir(qPrintable(runtime + "/bellwick"), 0700), 0);
    for (const mode_t open : {0777, 0750}) {
        ASSERT_EQ(::chmod(qPrintable(runtime + "/bellwick"), open), 0);
        EXPECT_EQ(chosen(), runtime + "/bellwick");
        EXPECT_EQ(linkStat(runtime + "/bellwick").st_mode & 0777, 0700u) << std::oct << open;
    }

    // $XDG_RUNTIME_DIR open to all, as /tmp is: not used, whatever its bellwick folder looks like.
    ASSERT_EQ(::chmod(qPrintable(runtime), 01777), 0);
    EXPECT_EQ(chosen(), cache + "/bellwick");
    ASSERT_EQ(::chmod(qPrintable(runtime), 0700), 0);

    // A runtime folder given as a link is no runtime folder either.
    ASSERT_TRUE(QFile::link(runtime, root.path() + "/linked"));
    qputenv("XDG_RUNTIME_DIR", (root.path() + "/linked").toUtf8());
    EXPECT_EQ(chosen(), cache + "/bellwick");
}

TEST_F(RuntimeFolderTest, ABellwickLinkToAnotherFolderIsNotUsed) {
    const QString elsewhere = root.path() + "/elsewhere";
    ASSERT_EQ(::mkdir(qPrintable(elsewhere), 0700), 0);
    ASSERT_TRUE(QFile::link(elsewhere, runtime + "/bellwick"));
    EXPECT_EQ(chosen(), cache + "/bellwick");
    SingleInstance instance;
    EXPECT_FALSE(instance.isAnotherRunning());
    EXPECT_TRUE(QDir(elsewhere).isEmpty());
}
