#include "sound/sound_player.h"

#include "engine/context.h"
#include "platform/mci_commands.h"
#include "platform/numeric.h"
#include "platform/record_file.h"
#include "platform/runtime_folder.h"
#include "platform/speaker_ports.h"
#include "platform/wave_output.h"
#include "sound/notices.h"
#include "sound/wave_player.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

const QString kMidiAlias = QStringLiteral("tmpMidiPlay");

// Copies a file over another in a private folder; a failure keeps the older copy.
void copyOver(const QString& from, const QString& to) {
    QByteArray bytes;
    FileError error;
    if (record_file::readBytes(from, bytes, error))
        record_file::replaceBytes(to, bytes, error);
}

} // namespace

void SoundPlayer::playAlarm(const QString& playWord, const QString& soundPath) {
    if (!m_ctx.options.soundOn)
        return;
    if (m_ctx.options.internalSpeaker) {
        bool present = false;
        checkSpeaker(present);
        if (present) {
            playOnSpeaker(playWord);
            return;
        }
        speakerWarning();
    }
    playWave(playWord, soundPath, m_ctx.tick.nextAlarm);
}

void SoundPlayer::keepRinging() {
    if (!m_ringing.soundPath.isEmpty() && m_devices.wave.fellSilent())
        playWave(m_ringing.playWord, m_ringing.soundPath, m_ringing.alarmTime);
}

void SoundPlayer::readyAlarm(const QString& /*playWord*/, const QString& soundPath) {
    if (m_ctx.options.soundOn && !m_ctx.options.internalSpeaker)
        m_devices.wave.prepare(soundPath);
}

bool SoundPlayer::needsTick() const {
    return !m_ringing.soundPath.isEmpty() && m_devices.wave.sounding();
}

void SoundPlayer::playWave(const QString& playWord, const QString& soundPath, const QString& alarmTime) {
    m_ringing = {playWord, soundPath, alarmTime};
    playWaveFile(QString(), 1);
    int16_t canPlay = -1;
    {
        WavePlayer player(m_devices.wave);
        player.play(playWord, soundPath, canPlay);
    }
    if (canPlay != 0)
        return;
    if (m_ctx.options.speakerInsteadOfMidi) {
        bool present = false;
        checkSpeaker(present);
        if (present) {
            playOnSpeaker(playWord);
            return;
        }
        reportSoundError(canPlay, alarmTime);
        speakerWarning();
    } else {
        reportSoundError(canPlay, alarmTime);
    }
}

void SoundPlayer::speakerWarning() {
    m_ctx.notices.answerOk(
        QStringLiteral("cannot play sound from internal speaker, refer to trouble shooting in help"));
}

void SoundPlayer::reportSoundError(int16_t canPlay) {
    reportSoundError(canPlay, m_ctx.tick.nextAlarm);
}

void SoundPlayer::reportSoundError(int16_t canPlay, const QString& alarmTime) {
    // A name that stands but is no folder counts as found: a pipe there is a wave that cannot play.
    const QFileInfo song(m_ctx.soundChoice.songPath);
    if (!song.exists() || song.isDir()) {
        m_ctx.front.trayEnabled = false;
        m_ctx.setTickTimerEnabled(false);
        m_ctx.notices.systemModalBox(m_ctx.soundChoice.songPath.mid(7) +
                                     QStringLiteral(", wave file not found, alarm at ") + alarmTime);
        m_ctx.setTickTimerEnabled(true);
        m_ctx.front.trayEnabled = true;
    } else if (canPlay == 0 && m_ctx.options.errorPopups && m_ctx.options.soundOn) {
        playMidi(alarmTime);
    }
}

void SoundPlayer::playMidi() {
    playMidi(m_ctx.tick.nextAlarm);
}

void SoundPlayer::playMidi(const QString& alarmTime) {
    if (!m_ctx.options.soundOn)
        return;
    const QString copy = m_devices.midiCopyPath;
    // Where others could put a file of their own in the copy's place, nothing is copied or played.
    const bool privateFolder = !copy.isEmpty() && runtime_folder::makePrivate(QFileInfo(copy).absolutePath());
    const QString source = m_ctx.appFile(QStringLiteral("air.mid"));
    if (privateFolder && QFileInfo(source).isFile())
        copyOver(source, copy);
    QString path = QDir::toNativeSeparators(copy);
    if (path.contains(QLatin1Char(' ')))
        path = QLatin1Char('"') + path + QLatin1Char('"');
    // Only the result of "play" counts: a failed open makes it fail too.
    sendCommand(QStringLiteral("close ") + kMidiAlias);
    if (privateFolder)
        sendCommand(QStringLiteral("open ") + path + QStringLiteral(" type sequencer alias ") + kMidiAlias);
    if (sendCommand(QStringLiteral("play ") + kMidiAlias) != 0) {
        m_ctx.front.trayEnabled = false;
        m_ctx.setTickTimerEnabled(false);
        m_ctx.notices.systemModalBox(QStringLiteral("Error found, Sound cannot be played, alarm at ") + alarmTime);
        m_ctx.setTickTimerEnabled(true);
        m_ctx.front.trayEnabled = true;
    }
}

void SoundPlayer::playWaveFile(const QString& name, int flags) {
    if (name.isEmpty() || (flags & 4)) {
        m_devices.wave.stop();
        return;
    }
    // A wave of its own, such as the chime, is no alarm to ring again.
    m_ringing = {};
    m_devices.wave.play(name, 1);
}

uint32_t SoundPlayer::sendCommand(const QString& command) {
    return m_devices.mci.sendCommand(command);
}

void SoundPlayer::sweepSpeaker() {
    SpeakerPorts& ports = m_devices.ports;
    for (int f = 2000; f >= 550; f -= 50) {
        const float timerClock = 1193280.0f;
        const auto divisor = static_cast<int16_t>(roundHalfEven(timerClock / static_cast<float>(f)));
        const int16_t low = divisor & 255;
        const int16_t high = divisor / 256;
        ports.writePort(0x43, 0xB6);
        ports.writePort(0x42, low);
        ports.writePort(0x42, high);
        const int16_t x = ports.readPort(0x61);
        ports.writePort(0x61, static_cast<int16_t>(x | 3));
        ports.hold(kToneHoldMs);
        const int16_t y = ports.readPort(0x61);
        ports.writePort(0x61, static_cast<int16_t>(y & 252));
    }
}

void SoundPlayer::playOnSpeaker(const QString& playWord) {
    int count = 0;
    if (playWord == QLatin1String("once")) {
        count = 1;
    } else if (playWord == QLatin1String("twice")) {
        count = 2;
    } else if (playWord == QLatin1String("thrice")) {
        count = 3;
    } else if (playWord == QLatin1String("repeat")) {
        m_ctx.soundChoice.repeatSweep = true;
    }
    for (int i = 0; i < count; ++i) {
        sweepSpeaker();
        QCoreApplication::processEvents();
    }
}

void SoundPlayer::checkSpeaker(bool& present) {
    present = m_devices.ports.available();
}

void SoundPlayer::stopSounds() {
    playWaveFile(QString(), 4);
    sendCommand(QStringLiteral("close ") + kMidiAlias);
    m_ctx.soundChoice.repeatSweep = false;
}
