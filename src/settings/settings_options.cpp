#include "settings/settings_options.h"

#include "engine/alarm_set_ui.h"
#include "engine/context.h"
#include "settings/autostart.h"
#include "settings/settings_file.h"
#include "settings/settings_records.h"
#include "sound/alarm_sound.h"
#include "sound/notices.h"

using namespace settings_records;

SettingsOptions::SettingsOptions(Context& ctx) : ctx(ctx), m_boxes(ctx.settings.boxes) {}

bool SettingsOptions::touch() {
    if (ctx.settings.loaded)
        return false;
    load();
    return true;
}

void SettingsOptions::load() {
    ctx.settings.loaded = true;
    m_boxes = SettingsBoxes();

    if (ctx.options.soundOn)
        setSoundOn(true);
    if (ctx.options.errorPopups)
        setErrorPopups(true);
    setFontChoice(ctx.options.fontChoice == 1 || ctx.options.fontChoice == 2 ? ctx.options.fontChoice : 3);

    if (!SettingsFile::exists(ctx.folder)) {
        notify();
        return;
    }
    SettingRecord& rec = ctx.recordBuffer;
    if (readRecord(ctx.folder, kSetting, rec)) {
        const int32_t soundOn = rec.value1;
        const int32_t errorPopups = rec.value2;
        const OptionWords words = optionWordsOf(rec);
        setSoundOn(soundOn == 1);
        setErrorPopups(errorPopups == 1);
        setAutoLoad(words.autoLoad);
        setNoSecond(words.noSecond);
        setInternalSpeaker(words.internalSpeaker);
        setSpeakerInsteadOfMidi(words.speakerInsteadOfMidi);
    }
    readRecord(ctx.folder, kAllFont, rec);
    m_boxes.appliedFont = fontChoiceOf(rec);
    notify();
}

void SettingsOptions::close() {
    if (!ctx.settings.loaded)
        return;
    const OptionWords words{m_boxes.autoLoadBox, m_boxes.noSecondBox, m_boxes.internalSpeakerBox,
                            m_boxes.speakerInsteadOfMidiBox};
    writeSettingAndFont(ctx, m_boxes.soundOnBox ? 1 : 0, m_boxes.errorPopupsBox ? 1 : 0, words);
    ctx.settings.loaded = false;
}

bool SettingsOptions::set(bool SettingsBoxes::*box, bool ticked) {
    touch();
    if (m_boxes.*box == ticked)
        return false;
    m_boxes.*box = ticked;
    return true;
}

void SettingsOptions::setSoundOn(bool ticked) {
    if (!set(&SettingsBoxes::soundOnBox, ticked))
        return;
    ctx.options.soundOn = ticked;
    m_boxes.errorPopupsBoxVisible = ticked;
    applyTestRule();
    notify();
}

void SettingsOptions::setErrorPopups(bool ticked) {
    if (!set(&SettingsBoxes::errorPopupsBox, ticked))
        return;
    ctx.options.errorPopups = ticked;
    notify();
}

void SettingsOptions::setAutoLoad(bool ticked) {
    // Only saved: it takes effect at the next start.
    if (set(&SettingsBoxes::autoLoadBox, ticked))
        notify();
}

void SettingsOptions::setNoSecond(bool ticked) {
    if (!set(&SettingsBoxes::noSecondBox, ticked))
        return;
    ctx.options.noSecond = ticked;
    // The seconds box lives on the Alarm Set window, so this loads it.
    ctx.touchAlarmSet();
    if (ctx.alarmSetUi)
        ctx.alarmSetUi->setNoSecondMode(ticked);
    notify();
}

void SettingsOptions::setInternalSpeaker(bool ticked) {
    if (!set(&SettingsBoxes::internalSpeakerBox, ticked))
        return;
    ctx.options.internalSpeaker = ticked;
    applyTestRule();
    notify();
}

void SettingsOptions::setSpeakerInsteadOfMidi(bool ticked) {
    if (!set(&SettingsBoxes::speakerInsteadOfMidiBox, ticked))
        return;
    ctx.options.speakerInsteadOfMidi = ticked;
    notify();
}

void SettingsOptions::setFontChoice(int index) {
    if (index < 1 || index > 3)
        return;
    touch();
    m_boxes.fontButton = index;
    ctx.options.fontChoice = static_cast<int16_t>(index);
    notify();
}

void SettingsOptions::nextPage() {
    m_boxes.firstPageVisible = !m_boxes.firstPageVisible;
    notify();
}

void SettingsOptions::testSpeaker() {
    ctx.sound.playAlarm(QStringLiteral("once"), ctx.soundChoice.songPath);
}

void SettingsOptions::autostartOn(const QString& programPath) {
    autostart::install(programPath);
    autostartDone();
}

void SettingsOptions::autostartOff() {
    autostart::remove();
    autostartDone();
}

void SettingsOptions::autostartDone() {
    m_boxes.autostartLabel += QStringLiteral("It is done!");
    notify();
    ctx.notices.beep();
}

void SettingsOptions::applyTestRule() {
    m_boxes.testVisible = m_boxes.internalSpeakerBox && m_boxes.soundOnBox;
}

void SettingsOptions::notify() {
    if (ctx.settings.changed)
        ctx.settings.changed();
}
