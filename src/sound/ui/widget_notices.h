#pragma once

#include "sound/notices.h"

#include <QPointer>

class Context;
class ErrorListWindow;

// The windows through which the program speaks: warnings, message windows, error lists, system-modal boxes.
class WidgetNotices : public Notices {
public:
    explicit WidgetNotices(Context& ctx) : m_ctx(ctx) {}

    void answerOk(const QString& text) override;
    void showAlarmWindow(const QString& text) override;
    ErrorList& newErrorList() override;
    ErrorList& sharedErrorList() override;
    void beep() override;
    void systemModalBox(const QString& text) override;

private:
    Context& m_ctx;
    QPointer<ErrorListWindow> m_shared;
};
