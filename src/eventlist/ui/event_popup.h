#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>

class Context;
class QAction;
class QMenu;
class QWidget;

// Holds the event list's popup menu. Made the first time the menu is wanted, it stays for as long as the
// event list it belongs to.
class EventPopup : public QObject {
    Q_OBJECT
public:
    // The right press on a current row of the event list: the menu opens at this screen position.
    static void popupAt(Context& ctx, QPoint globalPos, QWidget* eventList);
    static EventPopup* instance();

    void onEdit();
    void onDelete();

    QMenu* menu;
    QAction* editAction;
    QAction* deleteAction;

private:
    EventPopup(Context& ctx, QWidget* eventList);

    Context& m_ctx;
    QPointer<QWidget> m_eventList;
};
