#include "eventlist/ui/event_popup.h"

#include "eventlist/popup_actions.h"
#include "eventlist/ui/edit_event_window.h"

#include <QMenu>
#include <QWidget>

namespace {
QPointer<EventPopup>& current() {
    static QPointer<EventPopup> form;
    return form;
}
} // namespace

EventPopup* EventPopup::instance() {
    return current();
}

void EventPopup::popupAt(Context& ctx, QPoint globalPos, QWidget* eventList) {
    if (!current())
        current() = new EventPopup(ctx, eventList);
    current()->menu->popup(globalPos);
}

EventPopup::EventPopup(Context& ctx, QWidget* eventList) : QObject(eventList), m_ctx(ctx), m_eventList(eventList) {
    // The menu belongs to the list's window, so it goes with it.
    menu = new QMenu(QStringLiteral(" MyMenu"), eventList);
    editAction = menu->addAction(QStringLiteral(" Edit"));
    menu->addSeparator();
    deleteAction = menu->addAction(QStringLiteral(" Delete"));
    connect(editAction, &QAction::triggered, this, &EventPopup::onEdit);
    connect(deleteAction, &QAction::triggered, this, &EventPopup::onDelete);
}

void EventPopup::onEdit() {
    editFromPopup(m_ctx, [this](const QString& mark, const QString& date, const QString& time, const QString& message) {
        EditEventWindow::openOn(m_ctx, mark, date, time, message, m_eventList);
    });
}

void EventPopup::onDelete() {
    deleteFromPopup(m_ctx);
}
