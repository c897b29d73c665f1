#include "sound/ui/widget_notices.h"

#include "engine/ui/message_window.h"
#include "sound/ui/error_list_window.h"
#include "sound/ui/warning_window.h"

#include <QApplication>
#include <QMessageBox>

void WidgetNotices::answerOk(const QString& text) {
    new WarningWindow(m_ctx, text);
}

void WidgetNotices::showAlarmWindow(const QString& text) {
    new MessageWindow(m_ctx, text);
}

ErrorList& WidgetNotices::newErrorList() {
    return *new ErrorListWindow();
}

ErrorList& WidgetNotices::sharedErrorList() {
    // The shared list lives until its OK is pressed; the next use after that opens a fresh one.
    if (!m_shared)
        m_shared = new ErrorListWindow();
    return *m_shared;
}

void WidgetNotices::beep() {
    QApplication::beep();
}

void WidgetNotices::systemModalBox(const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Bellwick Alarm Clock sp"),
                    QString(text).replace(QLatin1Char('\r'), QLatin1Char('\n')), QMessageBox::Ok);
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.setWindowModality(Qt::ApplicationModal);
    box.exec();
}
