#include "engine/list_model.h"

#include <algorithm>
#include <array>
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
    const bool wasCurrent = currentIndex() == index;
    beginRemoveRows(QModelIndex(), index, index);
    m_rows.removeAt(index);
    endRemoveRows();
    // A list box has no current row after its current row is removed.
    if (wasCurrent)
        m_selection.setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
}

int ListModel::removeSelected() {
    std::vector<bool> doomed(m_rows.size());
    for (const QItemSelectionRange& range : m_selection.selection()) {
        for (int r = range.top(); r <= range.bottom(); ++r)
            doomed[r] = true;
    }
    // Blocks of adjacent highlighted rows, top first.
    std::vector<std::pair<int, int>> blocks;
    for (int r = 0; r < count(); ++r) {
        if (!doomed[r])
            continue;
        int end = r;
        while (end + 1 < count() && doomed[end + 1])
            ++end;
        blocks.emplace_back(r, end);
        r = end;
    }
    if (blocks.empty())
        return 0;
    const int current = currentIndex();
    const bool currentGoes = current >= 0 && doomed[current];
    int removed = 0;

    // A few blocks go one by one, from the bottom, so a view keeps its place; many blocks would each cost a pass
    // over the rows and the view's indexes, so the rows are compacted at once and the views start over.
    constexpr std::size_t kBlocksRemovedInPlace = 16;
    if (blocks.size() <= kBlocksRemovedInPlace) {
        for (auto it = blocks.rbegin(); it != blocks.rend(); ++it) {
            beginRemoveRows(QModelIndex(), it->first, it->second);
            m_rows.remove(it->first, it->second - it->first + 1);
            endRemoveRows();
            removed += it->second - it->first + 1;
        }
        // A list box has no current row after its current row is removed.
        if (currentGoes)
            m_selection.setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
        return removed;
    }

    QStringList kept;
    kept.reserve(m_rows.size());
    int newCurrent = -1;
    for (qsizetype r = 0; r < m_rows.size(); ++r) {
        if (doomed[r]) {
            ++removed;
            continue;
        }
        if (r == current)
            newCurrent = static_cast<int>(kept.size());
        kept.append(std::move(m_rows[r]));
    }
    beginResetModel();
    m_rows = std::move(kept);
    endResetModel();
    m_selection.clear();
    if (newCurrent >= 0)
        m_selection.setCurrentIndex(index(newCurrent), QItemSelectionModel::NoUpdate);
    return removed;
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

int ListModel::currentIndex() const {
    const QModelIndex current = m_selection.currentIndex();
    return current.isValid() ? current.row() : -1;
}

void ListModel::selectOnly(int index) {
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

int ListModel::selectedCount() const {
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

namespace {

// A key packed into integers that compare as the text does, so the sort walks contiguous memory.
struct PackedKey {
    static constexpr int kChars = 20;
    std::array<uint64_t, kChars / 4> words{};
    qsizetype index = 0;
};

PackedKey pack(QStringView key, qsizetype index) {
    PackedKey p;
    p.index = index;
    const qsizetype n = std::min<qsizetype>(key.size(), PackedKey::kChars);
    for (qsizetype i = 0; i < n; ++i)
        p.words[i / 4] |= uint64_t(key[i].unicode()) << (48 - 16 * (i % 4));
    return p;
}

// Keys of one shape, as dates and times are: of equal length, and at every position either a digit in all of
// them or one same character in all of them. Their digits read as one decimal number then order them as the
// texts would, and a sort of plain numbers is several times faster than one of texts.
bool digitsNumber(const std::vector<QStringView>& keys, std::vector<std::pair<uint64_t, qsizetype>>& numbers) {
    if (keys.empty())
        return false;
    const QStringView first = keys.front();
    int digits = 0;
    for (const QChar c : first)
        digits += c.isDigit() && c.unicode() < 128;
    if (digits == 0 || digits > 19)
        return false;
    numbers.clear();
    numbers.reserve(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const QStringView k = keys[i];
        if (k.size() != first.size())
            return false;
        uint64_t value = 0;
        for (qsizetype j = 0; j < k.size(); ++j) {
            const char16_t c = k[j].unicode();
            const bool digit = c >= u'0' && c <= u'9';
            const char16_t f = first[j].unicode();
            if (digit != (f >= u'0' && f <= u'9'))
                return false;
            if (digit)
                value = value * 10 + (c - u'0');
            else if (c != f)
                return false;
        }
        numbers.emplace_back(value, static_cast<qsizetype>(i));
    }
    return true;
}

// Below this many keys a comparison sort is as quick.
constexpr std::size_t kRadixMinimum = 4096;

// Sorts by number, later positions first among equal numbers: a stable sort by 16-bit digits, least
// significant first, of the positions taken in reverse. A million dates and times sort several times faster
// so than by comparisons.
void radixSortLaterFirst(std::vector<std::pair<uint64_t, qsizetype>>& numbers) {
    std::reverse(numbers.begin(), numbers.end());
    uint64_t highest = 0;
    for (const auto& n : numbers)
        highest = std::max(highest, n.first);
    std::vector<std::pair<uint64_t, qsizetype>> other(numbers.size());
    std::vector<std::size_t> starts(65536 + 1);
    for (int shift = 0; shift < 64 && (highest >> shift) != 0; shift += 16) {
        std::fill(starts.begin(), starts.end(), 0);
        for (const auto& n : numbers)
            ++starts[((n.first >> shift) & 0xFFFF) + 1];
        for (std::size_t d = 1; d < starts.size(); ++d)
            starts[d] += starts[d - 1];
        for (const auto& n : numbers)
            other[starts[(n.first >> shift) & 0xFFFF]++] = n;
        numbers.swap(other);
    }
}

} // namespace

std::vector<qsizetype> ListModel::sortedOrder(const std::vector<QStringView>& keys) {
    std::vector<std::pair<uint64_t, qsizetype>> numbers;
    if (digitsNumber(keys, numbers)) {
        // By key, then later arrivals first among equals.
        if (numbers.size() >= kRadixMinimum) {
            radixSortLaterFirst(numbers);
        } else {
            std::sort(numbers.begin(), numbers.end(), [](const auto& a, const auto& b) {
                return a.first < b.first || (a.first == b.first && a.second > b.second);
            });
        }
        std::vector<qsizetype> order;
        order.reserve(numbers.size());
        for (const auto& n : numbers)
            order.push_back(n.second);
        return order;
    }
    std::vector<PackedKey> packed;
    packed.reserve(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i)
        packed.push_back(pack(keys[i], static_cast<qsizetype>(i)));
    // By key, then later arrivals first among equals; texts beyond the packed length decide the rest.
    std::sort(packed.begin(), packed.end(), [&](const PackedKey& a, const PackedKey& b) {
        if (a.words != b.words)
            return a.words < b.words;
        const int c = keys[a.index].compare(keys[b.index]);
        return c < 0 || (c == 0 && a.index > b.index);
    });
    std::vector<qsizetype> order;
    order.reserve(packed.size());
    for (const PackedKey& p : packed)
        order.push_back(p.index);
    return order;
}

int ListModel::insertSortedBatch(QStringList newRows, const KeyOf& key, const std::vector<bool>& highlights) {
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
    std::vector<QStringView> keys;
    keys.reserve(newRows.size());
    for (const QString& row : newRows)
        keys.push_back(key(row));
    const std::vector<qsizetype> order = sortedOrder(keys);

    // Remember which old rows were highlighted and which was current.
    std::vector<bool> oldHighlight(m_rows.size());
    for (const QItemSelectionRange& range : m_selection.selection()) {
        for (int r = range.top(); r <= range.bottom(); ++r)
            oldHighlight[r] = true;
    }
    const int oldCurrent = currentIndex();

    QStringList merged;
    merged.reserve(m_rows.size() + newRows.size());
    std::vector<bool> mergedHighlight;
    mergedHighlight.reserve(m_rows.size() + newRows.size());
    int newCurrent = -1;
    int lastNewAt = -1;
    const qsizetype lastNew = newRows.size() - 1;
    qsizetype oldPos = 0;
    // The new rows are visited in key order, all over memory: each is fetched a few steps ahead of its turn.
    constexpr std::size_t kAhead = 8;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i + kAhead < order.size()) {
            __builtin_prefetch(newRows.constData() + order[i + kAhead]);
            __builtin_prefetch(keys.data() + order[i + kAhead]);
        }
        const qsizetype n = order[i];
        const QStringView k = keys[n];
        while (oldPos < m_rows.size() && key(m_rows[oldPos]) < k) {
            if (oldPos == oldCurrent)
                newCurrent = static_cast<int>(merged.size());
            merged.append(m_rows[oldPos]);
            mergedHighlight.push_back(oldHighlight[oldPos]);
            ++oldPos;
        }
        if (n == lastNew)
            lastNewAt = static_cast<int>(merged.size());
        // Moved, not copied: the key views stay valid, for the text itself does not move.
        merged.append(std::move(newRows[n]));
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
    // A row shows on one line: what lies past its first thousand characters never fits, and a message of
    // megabytes would hold up every paint. The row itself stays whole.
    if (role == Qt::DisplayRole)
        return m_rows.at(index.row()).left(kShownLength);
    if (role == Qt::EditRole)
        return m_rows.at(index.row());
    return {};
}
