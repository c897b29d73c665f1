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
class Form15 : public QObject {
    Q_OBJECT
public:
    // The right press on a current row of the event list: the menu opens at this screen position.
    static void popupAt(Context& ctx, QPoint globalPos, QWidget* eventList);
    static Form15* instance();

    void mEdit_Click();
    void mDelete_Click();

    QMenu* mMyMenu;
    QAction* mEdit;
    QAction* mDelete;

private:
    Form15(Context& ctx, QWidget* eventList);

    Context& m_ctx;
    QPointer<QWidget> m_eventList;
};
