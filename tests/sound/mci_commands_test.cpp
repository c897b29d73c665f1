#include "sound_fakes.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct MciFixture {
    QTemporaryDir dir;
    FakeSequencer sequencer;
    MciSequencerCommands mci{sequencer};
    QString file(const QString& name) const {
        const QString path = dir.filePath(name);
        QFile f(path);
        f.open(QIODevice::WriteOnly);
        return path;
    }
};

TEST(MciCommandsTest, OpenPlayClose) {
    MciFixture f;
    const QString air = f.file(QStringLiteral("air.mid"));
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open ") + air + QStringLiteral(" type sequencer alias tmpMidiPlay")),
              0u);
    EXPECT_EQ(f.mci.openAlias(), QStringLiteral("tmpMidiPlay"));
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("PLAY tmpmidiplay")), 0u);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("close tmpMidiPlay")), 0u);
    EXPECT_EQ(f.sequencer.log,
              (QStringList{QStringLiteral("open ") + air, QStringLiteral("play"), QStringLiteral("close")}));
    EXPECT_TRUE(f.mci.openAlias().isEmpty());
    // A closed device answers with an error and touches nothing.
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("close tmpMidiPlay")), MciSequencerCommands::kInvalidDeviceName);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("play tmpMidiPlay")), MciSequencerCommands::kInvalidDeviceName);
    EXPECT_EQ(f.sequencer.log.size(), 3);
}

TEST(MciCommandsTest, OpenFailures) {
    MciFixture f;
    const QString missing = f.dir.filePath(QStringLiteral("none.mid"));
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open ") + missing + QStringLiteral(" type sequencer alias a")),
              MciSequencerCommands::kFileNotFound);
    const QString air = f.file(QStringLiteral("air.mid"));
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open ") + air + QStringLiteral(" type waveaudio alias a")),
              MciSequencerCommands::kInvalidDeviceName);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open ") + air + QStringLiteral(" shareable a")),
              MciSequencerCommands::kUnrecognizedKeyword);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("seek a to start")), MciSequencerCommands::kUnrecognizedCommand);
    EXPECT_EQ(f.mci.mciSendStringA(QString()), MciSequencerCommands::kUnrecognizedCommand);
    EXPECT_TRUE(f.sequencer.log.isEmpty());

    f.sequencer.opens = false;
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open ") + air + QStringLiteral(" type sequencer alias a")),
              MciSequencerCommands::kCannotLoadDriver);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("play a")), MciSequencerCommands::kInvalidDeviceName);
}

TEST(MciCommandsTest, QuotedNamesAndOneDeviceAtATime) {
    MciFixture f;
    const QString air = f.file(QStringLiteral("my air.mid"));
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open \"") + air + QStringLiteral("\" type sequencer")), 0u);
    // Without an alias the device is named by its file.
    EXPECT_EQ(f.mci.openAlias(), air);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open \"") + air + QStringLiteral("\" alias b")),
              MciSequencerCommands::kDeviceOpen);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("play \"") + air + QStringLiteral("\"")), 0u);
    EXPECT_EQ(f.sequencer.log, (QStringList{QStringLiteral("open ") + air, QStringLiteral("play")}));
}

} // namespace
