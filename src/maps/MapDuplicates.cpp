#include "maps/MapDuplicates.h"

#include "maps/MapCatalogue.h"

#include <QHash>

#include <vector>

namespace torvik::mapeditor {
namespace {

// A list as the duplicate check sees it: rows past the end read as empty
// text, and removing a row that isn't there is an error. The upper-cased
// names are kept beside the rows so that each comparison doesn't make two.
class CheckedList {
public:
    explicit CheckedList(QStringList& rows)
        : rows_(rows)
    {
        upper_.reserve(rows.size());
        for (const QString& r : rows)
            upper_ << r.toUpper();
    }
    qsizetype last() const { return rows_.size() - 1; }
    QString upperRow(qsizetype i) const { return i >= 0 && i < upper_.size() ? upper_[i] : QString(); }
    bool remove(qsizetype i)
    {
        if (i < 0 || i >= rows_.size())
            return false;
        rows_.removeAt(i);
        upper_.removeAt(i);
        return true;
    }

private:
    QStringList& rows_;
    QStringList upper_;
};

// Drops the rows of `list` equal to `name`, except the one at index x, which
// is skipped whichever list x came from. The bound is taken once, so removals
// let the last rounds read past the end.
bool dropCopies(CheckedList& list, qsizetype x, const QString& upperName)
{
    const qsizetype last = list.last();
    for (qsizetype y = 0; y <= last; ++y) {
        if (y != x && list.upperRow(y) == upperName && !list.remove(y))
            return false;
    }
    return true;
}

} // namespace

bool checkMapsByScan(QStringList& List1, QStringList& List2, QStringList& List3)
{
    CheckedList one(List1);
    CheckedList two(List2);
    CheckedList three(List3);

    const qsizetype last1 = one.last();
    for (qsizetype x = 0; x <= last1; ++x) {
        QString name = one.upperRow(x);
        // After a stock map goes, the scan starts over at row 0 but keeps its
        // old bound.
        while (isBuiltInMap(name)) {
            if (!one.remove(x))
                return false;
            x = 0;
            name = one.upperRow(x);
        }
        if (!dropCopies(one, x, name) || !dropCopies(two, x, name) || !dropCopies(three, x, name))
            return false;
    }
    const qsizetype last2 = two.last();
    for (qsizetype x = 0; x <= last2; ++x) {
        if (!dropCopies(three, x, two.upperRow(x)))
            return false;
    }
    return true;
}

namespace {

// The rows of one list as the indexed check sees them: each original row is
// there or gone, the rows still there are linked in order, and a Fenwick tree
// counts them, so that a row's live number and the row at a live number take
// a few steps each instead of a shift of everything behind a removal.
class IndexedList {
public:
    explicit IndexedList(const QStringList& rows)
        : upper_(size_t(rows.size())), there_(size_t(rows.size()), 1), next_(size_t(rows.size())),
          tree_(size_t(rows.size()) + 1, 0), left_(int(rows.size()))
    {
        const int n = int(rows.size());
        for (int i = 0; i < n; ++i) {
            upper_[size_t(i)] = rows[i].toUpper();
            next_[size_t(i)] = i + 1;
            byName_[upper_[size_t(i)]].push_back(i);
            // Each node counts the rows of its span: all of them are there.
            const int j = i + 1;
            tree_[size_t(j)] += 1;
            if (const int parent = j + (j & -j); parent <= n)
                tree_[size_t(parent)] += tree_[size_t(j)];
        }
        while (step_ * 2 <= n)
            step_ *= 2;
    }

    int left() const { return left_; }
    const QString& upper(int row) const { return upper_[size_t(row)]; }

    // The original row at live number k, or -1 past the end.
    int rowAt(int k) const
    {
        if (k < 0 || k >= left_)
            return -1;
        int at = 0;
        for (int step = step_; step > 0; step /= 2) {
            if (at + step < int(tree_.size()) && tree_[size_t(at + step)] <= k) {
                at += step;
                k -= tree_[size_t(at)];
            }
        }
        return at;
    }

    // The live number of an original row that is there.
    int liveNumber(int row) const
    {
        int count = 0;
        for (int j = row; j > 0; j -= j & -j)
            count += tree_[size_t(j)];
        return count;
    }

    void remove(int row)
    {
        there_[size_t(row)] = 0;
        --left_;
        for (int j = row + 1; j < int(tree_.size()); j += j & -j)
            tree_[size_t(j)] -= 1;
    }

    // The first row after this one that is still there; past the end, the row count.
    int nextThere(int row)
    {
        int n = next_[size_t(row)];
        while (n < int(there_.size()) && !there_[size_t(n)])
            n = next_[size_t(n)];
        // Shorten the way for the next walk past the same removed rows.
        for (int at = row; at != n;) {
            const int after = next_[size_t(at)];
            next_[size_t(at)] = n;
            at = after;
        }
        return n;
    }

    // What the scan did to a list for one name: down the list from the top,
    // every row of that name goes but the one at live number x, and the row
    // behind each removal is passed over, as the removal moved it up into the
    // place just read.
    void dropCopies(int x, const QString& name)
    {
        const auto found = byName_.find(name);
        if (found == byName_.end())
            return;
        std::vector<int>& rows = found.value();
        std::vector<int> kept;
        int passedOver = -1;
        for (int row : rows) {
            if (!there_[size_t(row)])
                continue;
            if (row == passedOver || liveNumber(row) == x) {
                kept.push_back(row);
                continue;
            }
            passedOver = nextThere(row);
            remove(row);
        }
        rows.swap(kept);
    }

    QStringList rowsThere(const QStringList& rows) const
    {
        QStringList out;
        out.reserve(left_);
        for (size_t i = 0; i < there_.size(); ++i)
            if (there_[i])
                out << rows[qsizetype(i)];
        return out;
    }

private:
    std::vector<QString> upper_;
    std::vector<char> there_;
    // Followed lazily past removed rows.
    std::vector<int> next_;
    std::vector<int> tree_;
    QHash<QString, std::vector<int>> byName_;
    int left_;
    int step_ = 1;
};

} // namespace

// Without empty names no row read past the end can match, so every removal
// finds its row and the check always succeeds.
bool checkMapsIndexed(QStringList& List1, QStringList& List2, QStringList& List3)
{
    IndexedList one(List1);
    IndexedList two(List2);
    IndexedList three(List3);
    auto nameAt = [](const IndexedList& list, int k) {
        const int row = list.rowAt(k);
        return row < 0 ? QString() : list.upper(row);
    };

    const int last1 = one.left() - 1;
    for (int x = 0; x <= last1; ++x) {
        QString name = nameAt(one, x);
        // After a stock map goes, the scan starts over at row 0 but keeps its
        // old bound.
        while (isBuiltInMap(name)) {
            one.remove(one.rowAt(x));
            x = 0;
            name = nameAt(one, x);
        }
        if (name.isEmpty())
            continue;
        one.dropCopies(x, name);
        two.dropCopies(x, name);
        three.dropCopies(x, name);
    }
    const int last2 = two.left() - 1;
    for (int x = 0; x <= last2; ++x) {
        const QString name = nameAt(two, x);
        if (!name.isEmpty())
            three.dropCopies(x, name);
    }
    List1 = one.rowsThere(List1);
    List2 = two.rowsThere(List2);
    List3 = three.rowsThere(List3);
    return true;
}

} // namespace torvik::mapeditor
