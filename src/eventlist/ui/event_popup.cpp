#include "eventlist/ui/event_popup.h"

#include "engine/alarm_event.h"
#include "eventlist/popup_actions.h"
#include "eventlist/ui/edit_event_window.h"

#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QWidget>

namespace {
QPointer<EventPopup>& openPopup() {
    static QPointer<EventPopup> form;
    return form;
}
} // namespace

EventPopup* EventPopup::instance() {
    return openPopup();
}

void EventPopup::popupAt(Context& ctx, QPoint globalPos, QWidget* eventList) {
    if (!openPopup())
        openPopup() = new EventPopup(ctx, eventList);
    openPopup()->menu->popup(globalPos);
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
    const QStringList recurring = highlightedRecurringRows(m_ctx);
    if (!recurring.isEmpty()) {
        const QString text =
            recurring.size() == 1
                ? QStringLiteral("This alarm comes back. Skip it on %1 only, or end the series?")
                      .arg(alarm_event::crackRow(recurring.first()).date)
                : QStringLiteral("%1 of these alarms come back. Skip them on their days only, or end their series?")
                      .arg(recurring.size());
        QMessageBox box(QMessageBox::Question, QStringLiteral("Delete Alarm Event"), text, QMessageBox::NoButton,
                        m_eventList);
        QPushButton* skip = box.addButton(QStringLiteral("Skip that day"), QMessageBox::AcceptRole);
        QPushButton* end = box.addButton(QStringLiteral("End the series"), QMessageBox::DestructiveRole);
        box.addButton(QMessageBox::Cancel);
        box.setDefaultButton(skip);
        box.exec();
        if (box.clickedButton() != skip && box.clickedButton() != end)
            return; // nothing goes, the schedule's rows neither
        deleteRecurringRows(m_ctx, recurring, box.clickedButton() == end);
    }
    deleteFromPopup(m_ctx);
}
