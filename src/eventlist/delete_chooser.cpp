#include "eventlist/delete_chooser.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "sound/notices.h"

namespace {
bool hasCurrentRow(const Context& ctx) {
    return ctx.lstData.listIndex() >= 0;
}
} // namespace

QString DeleteChooser::messageOf(const Context& ctx, int entry) const {
    // A number that names no row shows the empty text, as the list box answers past its ends.
    const int row = entry >= 0 && entry < m_BeKilled.size() ? m_BeKilled.at(entry) : -1;
    return alarm_event::messageOfMessageRow(ctx.lstMessage.item(row));
}

bool DeleteChooser::GetAllMessages(const Context& ctx, int indexOfDimension, const QList<int>& BeKilled,
                                   QString& txtMessageIs) {
    m_indexOfDimension = indexOfDimension;
    m_BeKilled = BeKilled;
    if (!hasCurrentRow(ctx))
        return false;
    txtMessageIs = messageOf(ctx, 0);
    return true;
}

void DeleteChooser::ShowMessages(Context& ctx, QString& txtMessageIs, QString& lblInformation) {
    if (m_iNextMessage >= m_indexOfDimension)
        m_iNextMessage = 0;
    if (hasCurrentRow(ctx)) {
        txtMessageIs = messageOf(ctx, m_iNextMessage);
    } else {
        lblInformation = QStringLiteral("detected alarm events were executed, please press ''Cancel'' to close!");
        ctx.notices.Beep();
    }
    ++m_iNextMessage;
}

void DeleteChooser::Delete(Context& ctx) {
    if (!hasCurrentRow(ctx))
        return;
    const int entry = m_iNextMessage - 1;
    if (entry >= 0 && entry < m_BeKilled.size())
        ctx.lstMessage.removeItem(m_BeKilled.at(entry)); // a number past the list is passed over
    ctx.lstData.removeItem(ctx.lstData.listIndex());
    Module1& m = ctx.m;
    m.blnNeedNextAlarm = true;
    m.blnHaveAlarms = ctx.lstData.count() > 0;
    m.strNextAlarm.clear();
    m.strNextPlayTimes.clear();
}
