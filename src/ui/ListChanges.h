#pragma once

#include "catalog/LaunchableApp.h"

#include <QList>

#include <vector>

namespace zelmo {

// One step from an old list to a new one. Positions are those in the list as the steps before it left it.
struct ListChange {
    enum class Kind {
        remove, // `count` rows from `first` on
        insert, // `count` rows before `first`; they are the new list's rows at the same positions
        move,   // the row at `first` to before the row at `to`, as the list stands before the move
    };
    Kind kind;
    int first = 0;
    int count = 1;
    int to = 0;

    friend bool operator==(const ListChange&, const ListChange&) = default;
};

// The steps, at most this many: a list that differs in more places has the whole stretch between its
// first and its last difference removed and inserted, since a view takes longer over many small
// steps than over two large ones.
inline constexpr std::size_t mostListChanges = 64;

// An application is the same as long as its identity is, which may not stand twice in one list. Removals come first,
// then moves, then insertions.
std::vector<ListChange> listChanges(const QList<LaunchableApp>& from, const QList<LaunchableApp>& to);

} // namespace zelmo
