#pragma once

#include <QListView>

// A list of which one row is picked at a time, as a single-choice list box: a Ctrl click or Ctrl+Space on the
// picked row keeps it picked, so the highlight and the current row never part.
class SinglePickList : public QListView {
    Q_OBJECT
public:
    explicit SinglePickList(QWidget* parent = nullptr);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override;
};
