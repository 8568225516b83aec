#pragma once

#include <QByteArray>

namespace zelmo {

// Moving a file, a link or a folder with all that is in it to where no renaming leads: by a copy, and by removing
// what was copied. Links are never followed. Paths are absolute. May be called on any thread.

// Deeper folders than this are left alone: no application has them, and each level holds descriptors open.
constexpr int maximumTreeDepth = 128;

// Whether this process may remove the item and everything in it: each folder on the way lets it, and nothing is
// a mount point, protected from changes or, in a shared folder, someone else's. Changes nothing.
bool isTreeRemovable(const QByteArray& path);

enum class CopyScope {
    everything,
    whatIsMissing, // what exists at the target and is not older stays as it is
};

// Copies with modes, times, extended attributes, hard links and holes, and with owners where the user may give
// files away. False when anything could not be copied; what has been copied by then stays.
bool copyTree(const QByteArray& from, const QByteArray& to, CopyScope scope);

enum class RemovalResult {
    removed,
    untouched, // nothing is gone
    begun,     // it failed later: parts of the original are gone
};

// Removes the original when the copy has all of it, every file as it is now, and of the original nothing but what the
// copy has: it stops at a folder that something is added to meanwhile.
RemovalResult removeCopiedTree(const QByteArray& original, const QByteArray& copy);

} // namespace zelmo
