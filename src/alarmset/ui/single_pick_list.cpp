#include "alarmset/ui/single_pick_list.h"

SinglePickList::SinglePickList(QWidget* parent) : QListView(parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
}

QItemSelectionModel::SelectionFlags SinglePickList::selectionCommand(const QModelIndex& index,
                                                                     const QEvent* event) const {
    const QItemSelectionModel::SelectionFlags flags = QListView::selectionCommand(index, event);
    if (index.isValid() && (flags & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle)))
        return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
    return flags;
}
