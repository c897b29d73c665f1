#pragma once

#include <QWidget>

#include <functional>

class Context;
class QListView;
class QPushButton;

// The event list on screen: three column heads over the rows of ctx.eventList. The children keep
// their places when the control is resized, so a short control shows only the heads.
class EventListView : public QWidget {
    Q_OBJECT
public:
    EventListView(Context& ctx, QWidget* parent = nullptr);

    // Opens the event popup at this screen position; called on a right press while a row is current.
    std::function<void(QPoint globalPos)> showPopupMenu;

    QPushButton* playHead;
    QPushButton* dateTimeHead;
    QPushButton* messagesHead;
    QListView* rows;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void onRowsMousePressed(Qt::MouseButton button, QPoint globalPos);

    Context& m_ctx;
};
