#include "engine/context.h"

#include "alarmset/form4_settings.h"
#include "engine/form4_ui.h"
#include "engine/schedule_file.h"
#include "platform/clock.h"

Context::Context(Clock& clock, Notices& notices, AlarmSound& sound) : clock(clock), notices(notices), sound(sound) {}

bool Context::touchForm4() {
    if (m_form4Loaded)
        return false;
    m_form4Loaded = true;
    if (form4Ui)
        form4Ui->Load();
    else
        Form4LoadCore(*this);
    return true;
}

void Context::unloadForm4() {
    if (form4Ui)
        form4Ui->RequestUnload();
}

void Form4LoadCore(Context& ctx) {
    ctx.strTimesOfPlay = QStringLiteral("once");
    Form4LoadResult settings;
    fForm4Load(ctx, settings);
    ctx.m.strAlarmDate = ctx.clock.dateText();
    LoadFutureFile(ctx, QStringLiteral("future.dat"));
    ctx.m.strAlarmDate = ctx.clock.dateText();
}
