#pragma once

#include <QAbstractListModel>
#include <QItemSelectionModel>
#include <QStringList>

#include <functional>
#include <vector>

// The rows of a list box, with a highlight per row and a current row, as plain data.
// Views attach to it and to selection(); the engine runs on it without any widget.
class ListModel : public QAbstractListModel {
    Q_OBJECT
public:
    explicit ListModel(QObject* parent = nullptr);
    // The most characters of a row that a view is given to show.
    static constexpr int kShownLength = 1000;

    int count() const { return static_cast<int>(m_rows.size()); }
    bool isEmpty() const { return m_rows.isEmpty(); }
    // The text of a row; the empty text past either end, as a list box answers.
    QString item(int index) const;
    const QStringList& items() const { return m_rows; }

    // Adds at the end, or ahead of the row at index.
    void addItem(const QString& text, int index = -1);
    void removeItem(int index);
    // Removes every highlighted row in one pass, as removing the first highlighted row over and over would:
    // the current row follows its row, or is gone with it. Returns how many rows went.
    int removeSelected();
    void clear();
    void setItem(int index, const QString& text);

    // The current row, -1 for none.
    int currentIndex() const;
    // Makes the row current and the only highlighted one; -1 clears both.
    void selectOnly(int index);
    void setCurrent(int index);

    bool isSelected(int index) const;
    void setSelected(int index, bool on);
    int selectedCount() const;
    int firstSelected() const;

    // Inserts rows into a list kept in ascending key order, as if each had been inserted in turn ahead
    // of the first row whose key is not less than its own: equal keys end up latest-added first.
    // Returns the final index of the last of the new rows, -1 when there were none.
    using KeyOf = std::function<QStringView(const QString&)>;
    int insertSortedBatch(QStringList newRows, const KeyOf& key, const std::vector<bool>& highlights = {});
    // The index ahead of which a row of this key goes (binary search; rows must be in key order).
    int sortedInsertPosition(QStringView newKey, const KeyOf& key) const;

    QItemSelectionModel* selection() { return &m_selection; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    // The positions of keys in ascending order, later positions first among equal keys.
    static std::vector<qsizetype> sortedOrder(const std::vector<QStringView>& keys);

private:
    QStringList m_rows;
    QItemSelectionModel m_selection;
};
