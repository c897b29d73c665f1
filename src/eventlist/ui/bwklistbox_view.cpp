#include "eventlist/ui/bwklistbox_view.h"

#include "engine/context.h"
#include "eventlist/ui/single_line_delegate.h"
#include "platform/ui/window_twips.h"

#include <QListView>
#include <QMouseEvent>
#include <QPushButton>

using window_twips::place;

namespace {
QFont rowFont() {
    return QFont(QStringLiteral("Arial"), 9);
}
} // namespace

BwklistboxView::BwklistboxView(Context& ctx, QWidget* parent) : QWidget(parent), m_ctx(ctx) {
    // The heads are measured for an 8-point face of Arial's widths.
    QFont design = window_twips::designFont(font());
    setFont(design);

    // The heads only name the columns: nothing is connected to them.
    cmdPlayTimes = new QPushButton(QStringLiteral("PT"), this);
    place(cmdPlayTimes, 0, 0, 492, 264);
    cmdDateTime = new QPushButton(QStringLiteral("Date-Time"), this);
    place(cmdDateTime, 480, 0, 1812, 264);
    cmdMessages = new QPushButton(QStringLiteral("Messages"), this);
    place(cmdMessages, 2280, 0, 3012, 264);
    for (QPushButton* head : {cmdPlayTimes, cmdDateTime, cmdMessages})
        head->setAutoDefault(false);

    lstMain = new QListView(this);
    place(lstMain, 0, 240, 5292, 1272);
    lstMain->setModel(&ctx.Bwklistbox1.lstMain);
    lstMain->setSelectionModel(ctx.Bwklistbox1.lstMain.selection());
    lstMain->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstMain->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Every row is one line of the same height, which keeps a list of 100,000 rows quick to scroll.
    lstMain->setUniformItemSizes(true);
    lstMain->setItemDelegate(new SingleLineDelegate(lstMain));
    lstMain->setFont(rowFont());
    lstMain->installEventFilter(this);
    lstMain->setTextElideMode(Qt::ElideNone);
    lstMain->setWordWrap(false);
    lstMain->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstMain->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    lstMain->viewport()->installEventFilter(this);
    // The list, made last, lies over the heads' lower edge and takes the focus first.
    setTabOrder(lstMain, cmdPlayTimes);
    setTabOrder(cmdPlayTimes, cmdDateTime);
    setTabOrder(cmdDateTime, cmdMessages);
}

void BwklistboxView::lstMain_MouseDown(Qt::MouseButton button, QPoint globalPos) {
    if (button == Qt::RightButton && m_ctx.Bwklistbox1.SelectedItem() != -1 && showPopupMenu)
        showPopupMenu(globalPos);
}

bool BwklistboxView::eventFilter(QObject* watched, QEvent* event) {
    // The rows keep their face whatever font the window around them hands down.
    if (watched == lstMain && event->type() == QEvent::FontChange && lstMain->font() != rowFont())
        lstMain->setFont(rowFont());
    if (watched != lstMain->viewport())
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
            lstMain_MouseDown(mouse->button(), mouse->globalPosition().toPoint());
        // The right button moves neither the current row nor the highlights.
        return true;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}
