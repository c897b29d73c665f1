#include "sound/ui/widget_notices.h"

#include "engine/ui/form6.h"
#include "sound/ui/form10.h"
#include "sound/ui/form11.h"

#include <QApplication>
#include <QMessageBox>

void WidgetNotices::AnswerOk(const QString& text) {
    new Form11(m_ctx, text);
}

void WidgetNotices::ShowAlarmWindow(const QString& text) {
    new Form6(m_ctx, text);
}

ErrorList& WidgetNotices::NewErrorList() {
    return *new Form10();
}

ErrorList& WidgetNotices::SharedErrorList() {
    // The shared list lives until its OK is pressed; the next use after that opens a fresh one.
    if (!m_shared)
        m_shared = new Form10();
    return *m_shared;
}

void WidgetNotices::Beep() {
    QApplication::beep();
}

void WidgetNotices::SystemModalBox(const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Bellwick Alarm Clock sp"),
                    QString(text).replace(QLatin1Char('\r'), QLatin1Char('\n')), QMessageBox::Ok);
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.setWindowModality(Qt::ApplicationModal);
    box.exec();
}
