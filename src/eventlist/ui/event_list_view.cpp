#include "eventlist/ui/event_list_view.h"

#include "engine/context.h"
#include "eventlist/ui/single_line_delegate.h"
#include "platform/ui/window_twips.h"

#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPushButton>

using window_twips::place;

namespace {
QFont rowFont() {
    return QFont(QStringLiteral("Arial"), 9);
}
} // namespace

EventListView::EventListView(Context& ctx, QWidget* parent) : QWidget(parent), m_ctx(ctx) {
    // The heads are measured for an 8-point face of Arial's widths.
    QFont design = window_twips::designFont(font());
    setFont(design);

    // The heads only name the columns: nothing is connected to them.
    playHead = new QPushButton(QStringLiteral("PT"), this);
    place(playHead, 0, 0, 492, 264);
    dateTimeHead = new QPushButton(QStringLiteral("Date-Time"), this);
    place(dateTimeHead, 480, 0, 1812, 264);
    messagesHead = new QPushButton(QStringLiteral("Messages"), this);
    place(messagesHead, 2280, 0, 3012, 264);
    for (QPushButton* head : {playHead, dateTimeHead, messagesHead})
        head->setAutoDefault(false);

    rows = new QListView(this);
    place(rows, 0, 240, 5292, 1272);
    rows->setModel(&ctx.eventList.rows);
    rows->setSelectionModel(ctx.eventList.rows.selection());
    rows->setSelectionMode(QAbstractItemView::ExtendedSelection);
    rows->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Every row is one line of the same height, which keeps a list of 100,000 rows quick to scroll.
    rows->setUniformItemSizes(true);
    rows->setItemDelegate(new SingleLineDelegate(rows));
    rows->setFont(rowFont());
    rows->installEventFilter(this);
    rows->setAccessibleName(QStringLiteral("Coming alarm events"));
    rows->setTextElideMode(Qt::ElideNone);
    rows->setWordWrap(false);
    rows->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rows->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    rows->viewport()->installEventFilter(this);
    // The list, made last, lies over the heads' lower edge and takes the focus first.
    setTabOrder(rows, playHead);
    setTabOrder(playHead, dateTimeHead);
    setTabOrder(dateTimeHead, messagesHead);
}

void EventListView::onRowsMousePressed(Qt::MouseButton button, QPoint globalPos) {
    if (button == Qt::RightButton && m_ctx.eventList.currentRow() != -1 && showPopupMenu)
        showPopupMenu(globalPos);
}

bool EventListView::eventFilter(QObject* watched, QEvent* event) {
    // The rows keep their face whatever font the window around them hands down.
    if (watched == rows && event->type() == QEvent::FontChange && rows->font() != rowFont())
        rows->setFont(rowFont());
    if (watched == rows && event->type() == QEvent::KeyPress) {
        // The keyboard's way to the menu that the right button opens: the Menu key or Shift+F10.
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool menuKey = (key->key() == Qt::Key_Menu && key->modifiers() == Qt::NoModifier) ||
                             (key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier);
        if (menuKey) {
            if (m_ctx.eventList.currentRow() != -1 && showPopupMenu) {
                const QRect row = rows->visualRect(rows->currentIndex());
                showPopupMenu(rows->viewport()->mapToGlobal(row.isValid() ? row.center() : QPoint(0, 0)));
            }
            return true;
        }
    }
    if (watched != rows->viewport())
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove: {
        auto* mouse = static_cast<QMouseEvent*>(event);
        const bool right = mouse->button() == Qt::RightButton ||
                           (mouse->button() == Qt::NoButton && mouse->buttons() == Qt::RightButton);
        if (!right)
            break;
        if (event->type() == QEvent::MouseButtonPress)
            onRowsMousePressed(mouse->button(), mouse->globalPosition().toPoint());
        // The right button moves neither the current row nor the highlights.
        return true;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}
