#include "sound/form9.h"

#include "engine/context.h"
#include "platform/mci_commands.h"
#include "platform/numeric.h"
#include "platform/speaker_ports.h"
#include "platform/wave_output.h"
#include "sound/notices.h"
#include "sound/wave_player.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

const QString kMidiAlias = QStringLiteral("tmpMidiPlay");

// Copies a file over another; a failure keeps the older copy.
void copyOver(const QString& from, const QString& to) {
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly))
        return;
    const QString folder = QFileInfo(to).absolutePath();
    if (!QDir().mkpath(folder))
        return;
    QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QSaveFile target(to);
    if (!target.open(QIODevice::WriteOnly))
        return;
    const QByteArray bytes = source.readAll();
    if (source.error() != QFileDevice::NoError || target.write(bytes) != bytes.size()) {
        target.cancelWriting();
        return;
    }
    target.commit();
}

} // namespace

void Form9::PlaySound(const QString& strTimes, const QString& sSoundName) {
    Module1& m = m_ctx.m;
    if (!m.blnSoundOn)
        return;
    if (m.blnInternalSpeaker) {
        bool blnPresent = false;
        CheckDllFile(blnPresent);
        if (blnPresent) {
            PlayTimes(strTimes);
            return;
        }
        speakerWarning();
    }
    sndPlaySoundA(QString(), 1);
    int16_t iCanPlay = -1;
    {
        WavePlayer player(m_devices.wave);
        player.PlayWave(strTimes, sSoundName, iCanPlay);
    }
    if (iCanPlay != 0)
        return;
    if (m.blnISInsteadMidi) {
        bool blnPresent = false;
        CheckDllFile(blnPresent);
        if (blnPresent) {
            PlayTimes(strTimes);
            return;
        }
        eErrorSong(iCanPlay);
        speakerWarning();
    } else {
        eErrorSong(iCanPlay);
    }
}

void Form9::speakerWarning() {
    m_ctx.notices.AnswerOk(
        QStringLiteral("cannot play sound from internal speaker, refer to trouble shooting in help"));
}

void Form9::eErrorSong(int16_t iCanPlay) {
    Module1& m = m_ctx.m;
    if (!QFileInfo(m.strSongName).isFile()) {
        m.blnTrayEnabled = false;
        m_ctx.setTimer1Enabled(false);
        m_ctx.notices.SystemModalBox(m.strSongName.mid(7) + QStringLiteral(", wave file not found, alarm at ") +
                                     m.strNextAlarm);
        m_ctx.setTimer1Enabled(true);
        m.blnTrayEnabled = true;
    } else if (iCanPlay == 0 && m.blnErrMsgPop && m.blnSoundOn) {
        MidiSound();
    }
}

void Form9::MidiSound() {
    Module1& m = m_ctx.m;
    if (!m.blnSoundOn)
        return;
    const QString source = m_ctx.appFile(QStringLiteral("air.mid"));
    if (QFileInfo(source).isFile())
        copyOver(source, m_devices.midiCopyPath);
    QString path = QDir::toNativeSeparators(m_devices.midiCopyPath);
    if (path.contains(QLatin1Char(' ')))
        path = QLatin1Char('"') + path + QLatin1Char('"');
    // Only the result of "play" counts: a failed open makes it fail too.
    mciSendStringA(QStringLiteral("close ") + kMidiAlias);
    mciSendStringA(QStringLiteral("open ") + path + QStringLiteral(" type sequencer alias ") + kMidiAlias);
    if (mciSendStringA(QStringLiteral("play ") + kMidiAlias) != 0) {
        m.blnTrayEnabled = false;
        m_ctx.setTimer1Enabled(false);
        m_ctx.notices.SystemModalBox(QStringLiteral("Error found, Sound cannot be played, alarm at ") + m.strNextAlarm);
        m_ctx.setTimer1Enabled(true);
        m.blnTrayEnabled = true;
    }
}

void Form9::sndPlaySoundA(const QString& name, int flags) {
    if (name.isEmpty() || (flags & 4)) {
        m_devices.wave.stop();
        return;
    }
    m_devices.wave.play(name, 1);
}

uint32_t Form9::mciSendStringA(const QString& command) {
    return m_devices.mci.mciSendStringA(command);
}

void Form9::InternalSpeaker() {
    SpeakerPorts& ports = m_devices.ports;
    for (int f = 2000; f >= 550; f -= 50) {
        const float timerClock = 1193280.0f;
        const auto divisor = static_cast<int16_t>(roundHalfEven(timerClock / static_cast<float>(f)));
        const int16_t low = divisor & 255;
        const int16_t high = divisor / 256;
        ports.vbOutw(0x43, 0xB6);
        ports.vbOutw(0x42, low);
        ports.vbOutw(0x42, high);
        const int16_t x = ports.vbInpw(0x61);
        ports.vbOutw(0x61, static_cast<int16_t>(x | 3));
        ports.Hold(kToneHoldMs);
        const int16_t y = ports.vbInpw(0x61);
        ports.vbOutw(0x61, static_cast<int16_t>(y & 252));
    }
}

void Form9::PlayTimes(const QString& strTimes) {
    int count = 0;
    if (strTimes == QLatin1String("once")) {
        count = 1;
    } else if (strTimes == QLatin1String("twice")) {
        count = 2;
    } else if (strTimes == QLatin1String("thrice")) {
        count = 3;
    } else if (strTimes == QLatin1String("repeat")) {
        m_ctx.m.blnRepeatPlay = true;
    }
    for (int i = 0; i < count; ++i) {
        InternalSpeaker();
        QCoreApplication::processEvents();
    }
}

void Form9::CheckDllFile(bool& blnPresent) {
    blnPresent = m_devices.ports.available();
}

void Form9::mStop() {
    sndPlaySoundA(QString(), 4);
    mciSendStringA(QStringLiteral("close ") + kMidiAlias);
    m_ctx.m.blnRepeatPlay = false;
}
