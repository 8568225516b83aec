#include "ui/ListChanges.h"

#include <QHash>

#include <optional>

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
    if (std::is_sorted(kept.begin(), kept.end()))
        return {};
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

// The rows from `first` to before `end` of a list.
struct Stretch {
    const QList<LaunchableApp>& apps;
    int first;
    int end;
};

constexpr int nowhere = -1;

// Where each row of the longer list stands in the shorter one, if that one has the same rows in the same order and some
// less, as while a search is narrowed.
std::optional<std::vector<int>> placesInPart(const Stretch& whole, const Stretch& part) {
    std::vector<int> places(static_cast<std::size_t>(whole.end - whole.first), nowhere);
    int next = part.first;
    for (int i = whole.first; i < whole.end && next < part.end; ++i) {
        if (whole.apps[i].id == part.apps[next].id)
            places[static_cast<std::size_t>(i - whole.first)] = next++;
    }
    if (next < part.end)
        return std::nullopt;
    return places;
}

// Where each row of `from` stands in `to`.
std::vector<int> placesIn(const Stretch& from, const Stretch& to) {
    std::vector<int> places(static_cast<std::size_t>(from.end - from.first), nowhere);
    if (to.end - to.first <= from.end - from.first) {
        if (auto inPart = placesInPart(from, to))
            return *std::move(inPart);
    } else if (const auto reverse = placesInPart(to, from)) {
        for (int i = to.first; i < to.end; ++i) {
            if (const int place = (*reverse)[static_cast<std::size_t>(i - to.first)]; place != nowhere)
                places[static_cast<std::size_t>(place - from.first)] = i;
        }
        return places;
    }
    QHash<FileUrl, int> target;
    target.reserve(to.end - to.first);
    for (int i = to.first; i < to.end; ++i)
        target.insert(to.apps[i].id, i);
    for (int i = from.first; i < from.end; ++i)
        places[static_cast<std::size_t>(i - from.first)] = target.value(from.apps[i].id, nowhere);
    return places;
}

} // namespace

std::vector<ListChange> listChanges(const QList<LaunchableApp>& from, const QList<LaunchableApp>& to) {
    int start = 0;
    int fromEnd = static_cast<int>(from.size());
    int toEnd = static_cast<int>(to.size());
    while (start < std::min(fromEnd, toEnd) && from[start].id == to[start].id)
        ++start;
    while (fromEnd > start && toEnd > start && from[fromEnd - 1].id == to[toEnd - 1].id) {
        --fromEnd;
        --toEnd;
    }

    const std::vector<int> places = placesIn({from, start, fromEnd}, {to, start, toEnd});
    std::vector<int> kept;
    std::vector<bool> inserted(static_cast<std::size_t>(toEnd), true);
    for (const int place : places) {
        if (place == nowhere)
            continue;
        kept.push_back(place);
        inserted[static_cast<std::size_t>(place)] = false;
    }

    std::vector<Change> changes;
    appendRuns(changes, Change::Kind::remove, start, fromEnd,
               [&](int i) { return places[static_cast<std::size_t>(i - start)] == nowhere; });
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
