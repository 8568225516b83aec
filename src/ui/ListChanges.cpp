#include "ui/ListChanges.h"

#include <QHash>

namespace zelmo {

namespace {

using Change = ListChange;

// Runs of consecutive positions for which `differs` holds, as removals or insertions.
template <typename Differs>
void appendRuns(std::vector<Change>& changes, Change::Kind kind, int first, int end, Differs differs) {
    for (int i = first; i < end;) {
        if (!differs(i)) {
            ++i;
            continue;
        }
        const int start = i;
        while (i < end && differs(i))
            ++i;
        changes.push_back({.kind = kind, .first = start, .count = i - start});
    }
}

// Which members of `values` belong to one longest increasing subsequence.
std::vector<bool> longestIncreasing(const std::vector<int>& values) {
    std::vector<std::size_t> tails;
    std::vector<std::size_t> previous(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto place = std::lower_bound(tails.begin(), tails.end(), values[i],
                                            [&](std::size_t tail, int value) { return values[tail] < value; });
        previous[i] = place == tails.begin() ? values.size() : *std::prev(place);
        if (place == tails.end())
            tails.push_back(i);
        else
            *place = i;
    }
    std::vector<bool> member(values.size());
    for (std::size_t i = tails.empty() ? values.size() : tails.back(); i < values.size(); i = previous[i])
        member[i] = true;
    return member;
}

// The moves that bring `kept`, the new positions in the old order, into ascending order. Stops after
// the first move too many. `offset` is the position of the first of them in the whole list.
std::vector<Change> movesToAscending(std::vector<int> kept, int offset) {
    const std::vector<bool> stays = longestIncreasing(kept);
    std::vector<int> movers;
    for (std::size_t i = 0; i < kept.size(); ++i) {
        if (!stays[i])
            movers.push_back(kept[i]);
    }
    std::sort(movers.begin(), movers.end());
    std::vector<int> order = kept;
    std::sort(order.begin(), order.end());

    std::vector<Change> moves;
    for (const int mover : movers) {
        if (moves.size() > mostListChanges)
            break;
        const auto from = std::find(kept.begin(), kept.end(), mover);
        const auto inOrder = std::lower_bound(order.begin(), order.end(), mover);
        const auto to = inOrder == order.begin() ? kept.begin()
                                                 : std::next(std::find(kept.begin(), kept.end(), *std::prev(inOrder)));
        if (to == from)
            continue;
        moves.push_back({.kind = Change::Kind::move,
                         .first = offset + static_cast<int>(from - kept.begin()),
                         .count = 1,
                         .to = offset + static_cast<int>(to - kept.begin())});
        if (to < from)
            std::rotate(to, from, std::next(from));
        else
            std::rotate(from, std::next(from), to);
    }
    return moves;
}

} // namespace

std::vector<ListChange> listChanges(const QList<FileUrl>& from, const QList<FileUrl>& to) {
    int start = 0;
    int fromEnd = static_cast<int>(from.size());
    int toEnd = static_cast<int>(to.size());
    while (start < std::min(fromEnd, toEnd) && from[start] == to[start])
        ++start;
    while (fromEnd > start && toEnd > start && from[fromEnd - 1] == to[toEnd - 1]) {
        --fromEnd;
        --toEnd;
    }

    QHash<FileUrl, int> target;
    target.reserve(toEnd - start);
    for (int i = start; i < toEnd; ++i)
        target.insert(to[i], i);
    std::vector<int> kept;
    std::vector<bool> inserted(static_cast<std::size_t>(toEnd), true);
    std::vector<bool> removed(static_cast<std::size_t>(fromEnd), true);
    for (int i = start; i < fromEnd; ++i) {
        const auto found = target.constFind(from[i]);
        if (found == target.constEnd())
            continue;
        kept.push_back(*found);
        removed[static_cast<std::size_t>(i)] = false;
        inserted[static_cast<std::size_t>(*found)] = false;
    }

    std::vector<Change> changes;
    appendRuns(changes, Change::Kind::remove, start, fromEnd,
               [&](int i) { return removed[static_cast<std::size_t>(i)]; });
    // The last first, so that the positions of those before it still hold.
    std::reverse(changes.begin(), changes.end());
    if (changes.size() <= mostListChanges) {
        const std::vector<Change> moves = movesToAscending(std::move(kept), start);
        changes.insert(changes.end(), moves.begin(), moves.end());
        appendRuns(changes, Change::Kind::insert, start, toEnd,
                   [&](int i) { return inserted[static_cast<std::size_t>(i)]; });
    }
    if (changes.size() > mostListChanges) {
        changes.clear();
        if (fromEnd > start)
            changes.push_back({.kind = Change::Kind::remove, .first = start, .count = fromEnd - start});
        if (toEnd > start)
            changes.push_back({.kind = Change::Kind::insert, .first = start, .count = toEnd - start});
    }
    return changes;
}

} // namespace zelmo
