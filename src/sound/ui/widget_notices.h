#pragma once

#include "sound/notices.h"

#include <QPointer>

class Context;
class Form10;

// The windows through which the program speaks: warnings, message windows, error lists, system-modal boxes.
class WidgetNotices : public Notices {
public:
    explicit WidgetNotices(Context& ctx) : m_ctx(ctx) {}

    void AnswerOk(const QString& text) override;
    void ShowAlarmWindow(const QString& text) override;
    ErrorList& NewErrorList() override;
    ErrorList& SharedErrorList() override;
    void Beep() override;
    void SystemModalBox(const QString& text) override;

private:
    Context& m_ctx;
    QPointer<Form10> m_shared;
};
