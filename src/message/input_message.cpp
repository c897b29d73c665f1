#include "message/input_message.h"

#include "engine/alarm_event.h"
#include "engine/alarm_set_ui.h"
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "message/message_text.h"
#include "platform/clock.h"
#include "platform/numeric.h"
#include "settings/settings_records.h"
#include "sound/notices.h"

namespace {
const QString kDoubleClick = QStringLiteral("DoubleClick");
const QString kNothingSaved = QStringLiteral("No message input or alarm event was executed");

constexpr int32_t kFrontNumber = 1;
} // namespace

InputMessage::InputMessage(Context& ctx) : m_ctx(ctx) {}

MessagePlacement InputMessage::load() {
    m_loaded = true;
    m_origin.clear();
    m_messageCount = 0;
    m_messageRows.clear();
    m_ctx.front.claimant = kFrontNumber;
    m_currentMessage = -1;

    MessagePlacement placement;
    SettingRecord& rec = m_ctx.recordBuffer;
    if (settings_records::readRecord(m_ctx.folder, settings_records::kMessageInputLoc, rec)) {
        placement.hasLocation = true;
        placement.top = rec.value1;
        placement.left = rec.value2;
    }
    if (settings_records::readRecord(m_ctx.folder, settings_records::kFontSize, rec)) {
        placement.hasFontSize = true;
        placement.fontSize = rec.value1;
    }
    return placement;
}

bool InputMessage::hasCurrentTodayRow() const {
    return m_ctx.today.alarms.currentIndex() >= 0;
}

QString InputMessage::currentTodayTime() const {
    return alarm_event::timeOf(m_ctx.today.alarms.item(m_ctx.today.alarms.currentIndex())).toString();
}

void InputMessage::openInputMessage(const QString& origin, MessageControls& c) {
    m_messageCount = 0;
    m_messageRows.clear();
    m_origin = origin;
    if (origin != kDoubleClick)
        return;

    const QString time = currentTodayTime();
    for (int i = 0; i < m_ctx.today.messages.count(); ++i) {
        const QString row = m_ctx.today.messages.item(i);
        if (alarm_event::timeOf(row) != time)
            continue;
        m_messageRows.append(static_cast<int16_t>(i));
        if (m_messageCount == 0) {
            c.input = alarm_event::messageOfMessageRow(row);
        } else {
            m_currentMessage = 0;
            c.cancelButton = QStringLiteral("Close");
            c.nextMessageButtonVisible = true;
            c.messageNumberLabelVisible = true;
        }
        ++m_messageCount;
    }
    // A single message leaves the list now and lives on only in the box: Save puts it back.
    if (m_messageCount == 1)
        m_ctx.today.messages.removeItem(m_messageRows.first());
    c.messageNumberLabel = QStringLiteral("message ") + QString::number(1);
}

void InputMessage::nextMessage(MessageControls& c) {
    if (m_currentMessage == -1)
        return;
    ++m_currentMessage;
    if (m_currentMessage >= m_messageCount)
        m_currentMessage = 0;
    if (!hasCurrentTodayRow()) {
        c.messageNumberLabel = QStringLiteral("alarm events were executed, close me!");
        m_ctx.notices.beep();
        return;
    }
    // A row number that an alarm has since taken away names no row, and shows as an empty text.
    const int row = m_currentMessage < m_messageRows.size() ? m_messageRows.at(m_currentMessage) : -1;
    c.input = alarm_event::messageOfMessageRow(m_ctx.today.messages.item(row));
    c.messageNumberLabel = QStringLiteral("message ") + QString::number(m_currentMessage + 1);
}

void InputMessage::warnNothingSaved() {
    m_ctx.notices.answerOk(kNothingSaved);
    m_ctx.notices.beep();
}

bool InputMessage::save(const MessageControls& c, double fontSize) {
    settings_records::writeFontSize(m_ctx, static_cast<int32_t>(roundHalfEven(fontSize)));
    if (c.input.isEmpty()) {
        warnNothingSaved();
        return true;
    }
    // The text stays in the box for the user to mend; the window stays open.
    if (const QString why = message_text::unheldWarning(c.input); !why.isEmpty()) {
        m_ctx.notices.answerOk(why);
        m_ctx.notices.beep();
        return false;
    }
    // The date is looked at now, not when the window opened.
    if (m_ctx.entry.date == m_ctx.clock.dateText() || m_origin == kDoubleClick) {
        if (!hasCurrentTodayRow()) {
            warnNothingSaved();
            return true;
        }
        if (m_currentMessage != -1 && m_currentMessage < m_messageRows.size())
            m_ctx.today.messages.removeItem(m_messageRows.at(m_currentMessage));
        m_ctx.today.messages.addItem(alarm_event::messageRow(c.input, currentTodayTime()));
        return true;
    }
    appendToSchedule(m_ctx, c.input);
    return true;
}

bool InputMessage::deactivated() {
    if (m_ctx.front.claimant > kFrontNumber)
        return false;
    m_ctx.notices.beep();
    m_ctx.front.claimant = kFrontNumber;
    return true;
}

void InputMessage::closing(bool normalState, double topTwips, double leftTwips) {
    if (normalState) {
        settings_records::writeMessageInputLoc(m_ctx, static_cast<int32_t>(roundHalfEven(topTwips)),
                                               static_cast<int32_t>(roundHalfEven(leftTwips)));
    }
    if (restoreTodayList)
        restoreTodayList();
    else if (m_ctx.alarmSetUi)
        m_ctx.alarmSetUi->setTodayListShaded(false);
    m_ctx.front.claimant = 0;
    m_loaded = false;
    m_currentMessage = -1;
    m_messageCount = 0;
    m_messageRows.clear();
    m_origin.clear();
}
