#include "eventlist/delete_chooser.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "sound/notices.h"

namespace {
bool hasCurrentRow(const Context& ctx) {
    return ctx.today.alarms.currentIndex() >= 0;
}
} // namespace

QString DeleteChooser::messageOf(const Context& ctx, int entry) const {
    // A number that names no row shows the empty text, as the list box answers past its ends.
    const int row = entry >= 0 && entry < m_doomedRows.size() ? m_doomedRows.at(entry) : -1;
    return alarm_event::messageOfMessageRow(ctx.today.messages.item(row));
}

bool DeleteChooser::chooseMessageToDelete(const Context& ctx, int messageTotal, const QList<int>& doomedRows,
                                          QString& messageText) {
    m_messageTotal = messageTotal;
    m_doomedRows = doomedRows;
    if (!hasCurrentRow(ctx))
        return false;
    messageText = messageOf(ctx, 0);
    return true;
}

void DeleteChooser::showNext(Context& ctx, QString& messageText, QString& informationLabel) {
    if (m_nextMessage >= m_messageTotal)
        m_nextMessage = 0;
    if (hasCurrentRow(ctx)) {
        messageText = messageOf(ctx, m_nextMessage);
    } else {
        informationLabel = QStringLiteral("detected alarm events were executed, please press ''Cancel'' to close!");
        ctx.notices.beep();
    }
    ++m_nextMessage;
}

void DeleteChooser::remove(Context& ctx) {
    if (!hasCurrentRow(ctx))
        return;
    const int entry = m_nextMessage - 1;
    if (entry >= 0 && entry < m_doomedRows.size())
        ctx.today.messages.removeItem(m_doomedRows.at(entry)); // a number past the list is passed over
    ctx.today.alarms.removeItem(ctx.today.alarms.currentIndex());
    ctx.tick.needNextAlarm = true;
    ctx.tick.haveAlarms = ctx.today.alarms.count() > 0;
    ctx.tick.nextAlarm.clear();
    ctx.tick.nextPlayWord.clear();
}
