#include "message/input_message.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/form4_ui.h"
#include "engine/schedule_file.h"
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

MessagePlacement InputMessage::Load() {
    m_loaded = true;
    m_strWhereYouFrom.clear();
    m_iMessageCount = 0;
    m_arrMessageRows.clear();
    m_ctx.m.lngTopWho = kFrontNumber;
    m_iCurrentMessage = -1;

    MessagePlacement placement;
    SettingRecord& rec = m_ctx.m.recSetting;
    if (settings_records::readRecord(m_ctx.m.strAppPath, settings_records::kMessageInputLoc, rec)) {
        placement.hasLocation = true;
        placement.top = rec.lngValue1;
        placement.left = rec.lngValue2;
    }
    if (settings_records::readRecord(m_ctx.m.strAppPath, settings_records::kFontSize, rec)) {
        placement.hasFontSize = true;
        placement.fontSize = rec.lngValue1;
    }
    return placement;
}

bool InputMessage::hasCurrentDataRow() const {
    return m_ctx.lstData.listIndex() >= 0;
}

QString InputMessage::currentDataTime() const {
    return alarm_event::timeOf(m_ctx.lstData.item(m_ctx.lstData.listIndex())).toString();
}

void InputMessage::GetOldMessageToTextbox(const QString& WhereYouFrom, MessageControls& c) {
    m_iMessageCount = 0;
    m_arrMessageRows.clear();
    m_strWhereYouFrom = WhereYouFrom;
    if (WhereYouFrom != kDoubleClick)
        return;

    const QString time = currentDataTime();
    for (int i = 0; i < m_ctx.lstMessage.count(); ++i) {
        const QString row = m_ctx.lstMessage.item(i);
        if (alarm_event::timeOf(row) != time)
            continue;
        m_arrMessageRows.append(static_cast<int16_t>(i));
        if (m_iMessageCount == 0) {
            c.txtInput = alarm_event::messageOfMessageRow(row);
        } else {
            m_iCurrentMessage = 0;
            c.cmdCancel = QStringLiteral("Close");
            c.cmdShowMessagesVisible = true;
            c.lblNumberOfMessageVisible = true;
        }
        ++m_iMessageCount;
    }
    // A single message leaves the list now and lives on only in the box: Save puts it back.
    if (m_iMessageCount == 1)
        m_ctx.lstMessage.removeItem(m_arrMessageRows.first());
    c.lblNumberOfMessage = QStringLiteral("message ") + QString::number(1);
}

void InputMessage::ShowMessagesClick(MessageControls& c) {
    if (m_iCurrentMessage == -1)
        return;
    ++m_iCurrentMessage;
    if (m_iCurrentMessage >= m_iMessageCount)
        m_iCurrentMessage = 0;
    if (!hasCurrentDataRow()) {
        c.lblNumberOfMessage = QStringLiteral("alarm events were executed, close me!");
        m_ctx.notices.Beep();
        return;
    }
    // A row number that an alarm has since taken away names no row, and shows as an empty text.
    const int row = m_iCurrentMessage < m_arrMessageRows.size() ? m_arrMessageRows.at(m_iCurrentMessage) : -1;
    c.txtInput = alarm_event::messageOfMessageRow(m_ctx.lstMessage.item(row));
    c.lblNumberOfMessage = QStringLiteral("message ") + QString::number(m_iCurrentMessage + 1);
}

void InputMessage::warnNothingSaved() {
    m_ctx.notices.AnswerOk(kNothingSaved);
    m_ctx.notices.Beep();
}

void InputMessage::OKClick(const MessageControls& c, double fontSize) {
    settings_records::writeFontSize(m_ctx, static_cast<int32_t>(roundHalfEven(fontSize)));
    if (c.txtInput.isEmpty()) {
        warnNothingSaved();
        return;
    }
    // The date is looked at now, not when the window opened.
    if (m_ctx.m.strAlarmDate == m_ctx.clock.dateText() || m_strWhereYouFrom == kDoubleClick) {
        if (!hasCurrentDataRow()) {
            warnNothingSaved();
            return;
        }
        if (m_iCurrentMessage != -1 && m_iCurrentMessage < m_arrMessageRows.size())
            m_ctx.lstMessage.removeItem(m_arrMessageRows.at(m_iCurrentMessage));
        m_ctx.lstMessage.addItem(alarm_event::messageRow(c.txtInput, currentDataTime()));
        return;
    }
    SaveFutureFile(m_ctx, c.txtInput);
}

bool InputMessage::Deactivate() {
    if (m_ctx.m.lngTopWho > kFrontNumber)
        return false;
    m_ctx.notices.Beep();
    m_ctx.m.lngTopWho = kFrontNumber;
    return true;
}

void InputMessage::QueryUnload(bool normalState, double topTwips, double leftTwips) {
    if (normalState) {
        settings_records::writeMessageInputLoc(m_ctx, static_cast<int32_t>(roundHalfEven(topTwips)),
                                               static_cast<int32_t>(roundHalfEven(leftTwips)));
    }
    if (restoreDataList)
        restoreDataList();
    else if (m_ctx.form4Ui)
        m_ctx.form4Ui->SetDataListShaded(false);
    m_ctx.m.lngTopWho = 0;
    m_loaded = false;
    m_iCurrentMessage = -1;
    m_iMessageCount = 0;
    m_arrMessageRows.clear();
    m_strWhereYouFrom.clear();
}
