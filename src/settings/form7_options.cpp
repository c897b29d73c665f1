#include "settings/form7_options.h"

#include "engine/context.h"
#include "engine/form4_ui.h"
#include "settings/autostart.h"
#include "settings/settings_file.h"
#include "settings/settings_records.h"
#include "sound/alarm_sound.h"
#include "sound/notices.h"

using namespace settings_records;

bool Form7Options::Touch(Context& ctx) {
    if (m_loaded)
        return false;
    Load(ctx);
    return true;
}

void Form7Options::Load(Context& ctx) {
    m_loaded = true;
    m_s = Form7State();

    if (ctx.m.blnSoundOn)
        SetSoundOn(ctx, true);
    if (ctx.m.blnErrMsgPop)
        SetErrMsgPop(ctx, true);
    SetFont(ctx, ctx.m.iFontChoice == 1 || ctx.m.iFontChoice == 2 ? ctx.m.iFontChoice : 3);

    if (!SettingsFile::exists(ctx.m.strAppPath)) {
        notify();
        return;
    }
    SettingRecord& rec = ctx.m.recSetting;
    if (readRecord(ctx.m.strAppPath, kSetting, rec)) {
        const int32_t soundOn = rec.lngValue1;
        const int32_t errMsgPop = rec.lngValue2;
        const OptionWords words = optionWordsOf(rec);
        SetSoundOn(ctx, soundOn == 1);
        SetErrMsgPop(ctx, errMsgPop == 1);
        SetAutoLoad(ctx, words.autoLoad);
        SetNoSec(ctx, words.noSecond);
        SetInternalSpeaker(ctx, words.internalSpeaker);
        SetISInsteadMidi(ctx, words.isInsteadMidi);
    }
    readRecord(ctx.m.strAppPath, kAllFont, rec);
    m_s.appliedFont = fontChoiceOf(rec);
    notify();
}

void Form7Options::Close(Context& ctx) {
    if (!m_loaded)
        return;
    const OptionWords words{m_s.chkAutoLoad, m_s.chkNoSec, m_s.chkInternalSpeaker, m_s.chkISInsteadMidi};
    writeSettingAndFont(ctx, m_s.chkSoundOn ? 1 : 0, m_s.chkErrMsgPop ? 1 : 0, words);
    m_loaded = false;
}

bool Form7Options::set(Context& ctx, bool Form7State::*box, bool ticked) {
    Touch(ctx);
    if (m_s.*box == ticked)
        return false;
    m_s.*box = ticked;
    return true;
}

void Form7Options::SetSoundOn(Context& ctx, bool ticked) {
    if (!set(ctx, &Form7State::chkSoundOn, ticked))
        return;
    ctx.m.blnSoundOn = ticked;
    m_s.chkErrMsgPopVisible = ticked;
    applyTestRule();
    notify();
}

void Form7Options::SetErrMsgPop(Context& ctx, bool ticked) {
    if (!set(ctx, &Form7State::chkErrMsgPop, ticked))
        return;
    ctx.m.blnErrMsgPop = ticked;
    notify();
}

void Form7Options::SetAutoLoad(Context& ctx, bool ticked) {
    // Only saved: it takes effect at the next start.
    if (set(ctx, &Form7State::chkAutoLoad, ticked))
        notify();
}

void Form7Options::SetNoSec(Context& ctx, bool ticked) {
    if (!set(ctx, &Form7State::chkNoSec, ticked))
        return;
    ctx.m.blnNoSecond = ticked;
    // The seconds box lives on the Alarm Set window, so this loads it.
    ctx.touchForm4();
    if (ctx.form4Ui)
        ctx.form4Ui->SetNoSecondMode(ticked);
    notify();
}

void Form7Options::SetInternalSpeaker(Context& ctx, bool ticked) {
    if (!set(ctx, &Form7State::chkInternalSpeaker, ticked))
        return;
    ctx.m.blnInternalSpeaker = ticked;
    applyTestRule();
    notify();
}

void Form7Options::SetISInsteadMidi(Context& ctx, bool ticked) {
    if (!set(ctx, &Form7State::chkISInsteadMidi, ticked))
        return;
    ctx.m.blnISInsteadMidi = ticked;
    notify();
}

void Form7Options::SetFont(Context& ctx, int index) {
    if (index < 1 || index > 3)
        return;
    Touch(ctx);
    m_s.optFont = index;
    ctx.m.iFontChoice = static_cast<int16_t>(index);
    notify();
}

void Form7Options::NextClick() {
    m_s.page1Visible = !m_s.page1Visible;
    notify();
}

void Form7Options::PlayISClick(Context& ctx) {
    ctx.sound.PlaySound(QStringLiteral("once"), ctx.m.strSongName);
}

void Form7Options::RunClick(Context& ctx, const QString& programPath) {
    autostart::install(programPath);
    autostartDone(ctx);
}

void Form7Options::NoRunClick(Context& ctx) {
    autostart::remove();
    autostartDone(ctx);
}

void Form7Options::autostartDone(Context& ctx) {
    m_s.lblLoadBwk += QStringLiteral("It is done!");
    notify();
    ctx.notices.Beep();
}

void Form7Options::applyTestRule() {
    m_s.testVisible = m_s.chkInternalSpeaker && m_s.chkSoundOn;
}

void Form7Options::notify() {
    if (changed)
        changed();
}
