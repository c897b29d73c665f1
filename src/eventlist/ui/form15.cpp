#include "eventlist/ui/form15.h"

#include "eventlist/popup_menu.h"
#include "eventlist/ui/form16.h"

#include <QMenu>
#include <QWidget>

namespace {
QPointer<Form15>& current() {
    static QPointer<Form15> form;
    return form;
}
} // namespace

Form15* Form15::instance() {
    return current();
}

void Form15::popupAt(Context& ctx, QPoint globalPos, QWidget* eventList) {
    if (!current())
        current() = new Form15(ctx, eventList);
    current()->mMyMenu->popup(globalPos);
}

Form15::Form15(Context& ctx, QWidget* eventList) : QObject(eventList), m_ctx(ctx), m_eventList(eventList) {
    // The menu belongs to the list's window, so it goes with it.
    mMyMenu = new QMenu(QStringLiteral(" MyMenu"), eventList);
    mEdit = mMyMenu->addAction(QStringLiteral(" Edit"));
    mMyMenu->addSeparator();
    mDelete = mMyMenu->addAction(QStringLiteral(" Delete"));
    connect(mEdit, &QAction::triggered, this, &Form15::mEdit_Click);
    connect(mDelete, &QAction::triggered, this, &Form15::mDelete_Click);
}

void Form15::mEdit_Click() {
    PopupEditClick(m_ctx,
                   [this](const QString& mark, const QString& date, const QString& time, const QString& message) {
                       Form16::ShowEditEvent(m_ctx, mark, date, time, message, m_eventList);
                   });
}

void Form15::mDelete_Click() {
    PopupDeleteClick(m_ctx);
}
