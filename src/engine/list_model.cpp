#include "engine/list_model.h"

#include <algorithm>
#include <numeric>

ListModel::ListModel(QObject* parent) : QAbstractListModel(parent), m_selection(this) {}

QString ListModel::item(int index) const {
    return index >= 0 && index < count() ? m_rows.at(index) : QString();
}

void ListModel::addItem(const QString& text, int index) {
    if (index < 0 || index > count())
        index = count();
    beginInsertRows(QModelIndex(), index, index);
    m_rows.insert(index, text);
    endInsertRows();
}

void ListModel::removeItem(int index) {
    if (index < 0 || index >= count())
        return;
    const bool wasCurrent = listIndex() == index;
    beginRemoveRows(QModelIndex(), index, index);
    m_rows.removeAt(index);
    endRemoveRows();
    // A list box has no current row after its current row is removed.
    if (wasCurrent)
        m_selection.setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
}

void ListModel::clear() {
    beginResetModel();
    m_rows.clear();
    endResetModel();
    m_selection.clear();
}

void ListModel::setItem(int index, const QString& text) {
    if (index < 0 || index >= count())
        return;
    m_rows[index] = text;
    emit dataChanged(this->index(index), this->index(index));
}

int ListModel::listIndex() const {
    const QModelIndex current = m_selection.currentIndex();
    return current.isValid() ? current.row() : -1;
}

void ListModel::setListIndex(int index) {
    if (index < 0 || index >= count()) {
        m_selection.clear();
        return;
    }
    m_selection.setCurrentIndex(this->index(index), QItemSelectionModel::ClearAndSelect);
}

void ListModel::setCurrent(int index) {
    const QModelIndex target = index >= 0 && index < count() ? this->index(index) : QModelIndex();
    m_selection.setCurrentIndex(target, QItemSelectionModel::NoUpdate);
}

bool ListModel::isSelected(int index) const {
    return index >= 0 && index < count() && m_selection.isRowSelected(index, QModelIndex());
}

void ListModel::setSelected(int index, bool on) {
    if (index < 0 || index >= count())
        return;
    m_selection.select(this->index(index), on ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

int ListModel::selCount() const {
    return static_cast<int>(m_selection.selectedRows().size());
}

int ListModel::firstSelected() const {
    int first = -1;
    for (const QItemSelectionRange& range : m_selection.selection()) {
        if (first < 0 || range.top() < first)
            first = range.top();
    }
    return first;
}

int ListModel::sortedInsertPosition(QStringView newKey, const KeyOf& key) const {
    const auto it = std::lower_bound(m_rows.cbegin(), m_rows.cend(), newKey,
                                     [&](const QString& row, QStringView k) { return key(row) < k; });
    return static_cast<int>(it - m_rows.cbegin());
}

int ListModel::insertSortedBatch(const QStringList& newRows, const KeyOf& key, const std::vector<bool>& highlights) {
    if (newRows.isEmpty())
        return -1;
    if (newRows.size() == 1) {
        const int at = sortedInsertPosition(key(newRows.first()), key);
        addItem(newRows.first(), at);
        if (!highlights.empty() && highlights[0])
            setSelected(at, true);
        return at;
    }

    // Order the new rows by key, later arrivals first among equals, then merge them ahead of equal old rows.
    std::vector<qsizetype> order(newRows.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](qsizetype a, qsizetype b) {
        const QStringView ka = key(newRows[a]);
        const QStringView kb = key(newRows[b]);
        return ka < kb || (ka == kb && a > b);
    });

    // Remember which old rows were highlighted and which was current.
    std::vector<bool> oldHighlight(m_rows.size());
    for (const QItemSelectionRange& range : m_selection.selection()) {
        for (int r = range.top(); r <= range.bottom(); ++r)
            oldHighlight[r] = true;
    }
    const int oldCurrent = listIndex();

    QStringList merged;
    merged.reserve(m_rows.size() + newRows.size());
    std::vector<bool> mergedHighlight;
    mergedHighlight.reserve(m_rows.size() + newRows.size());
    int newCurrent = -1;
    int lastNewAt = -1;
    const qsizetype lastNew = newRows.size() - 1;
    qsizetype oldPos = 0;
    for (const qsizetype n : order) {
        const QStringView k = key(newRows[n]);
        while (oldPos < m_rows.size() && key(m_rows[oldPos]) < k) {
            if (oldPos == oldCurrent)
                newCurrent = static_cast<int>(merged.size());
            merged.append(m_rows[oldPos]);
            mergedHighlight.push_back(oldHighlight[oldPos]);
            ++oldPos;
        }
        if (n == lastNew)
            lastNewAt = static_cast<int>(merged.size());
        merged.append(newRows[n]);
        mergedHighlight.push_back(static_cast<std::size_t>(n) < highlights.size() && highlights[n]);
    }
    for (; oldPos < m_rows.size(); ++oldPos) {
        if (oldPos == oldCurrent)
            newCurrent = static_cast<int>(merged.size());
        merged.append(m_rows[oldPos]);
        mergedHighlight.push_back(oldHighlight[oldPos]);
    }

    beginResetModel();
    m_rows = std::move(merged);
    endResetModel();
    m_selection.clear();
    QItemSelection sel;
    for (int r = 0; r < count(); ++r) {
        if (!mergedHighlight[r])
            continue;
        int end = r;
        while (end + 1 < count() && mergedHighlight[end + 1])
            ++end;
        sel.select(index(r), index(end));
        r = end;
    }
    if (!sel.isEmpty())
        m_selection.select(sel, QItemSelectionModel::Select);
    if (newCurrent >= 0)
        m_selection.setCurrentIndex(index(newCurrent), QItemSelectionModel::NoUpdate);
    return lastNewAt;
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= count())
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return m_rows.at(index.row());
    return {};
}
