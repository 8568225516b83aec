#pragma once

#include "catalog/Trash.h"

#include <QByteArray>

namespace zelmo {

// The desktop's Trash by the rules that file managers share: what is moved here shows there with its original
// path and can be restored. Where the item's file system has a Trash, or is the home folder's, the move is one
// renaming, done by GIO. Everywhere else the item is copied into the home folder's Trash and then removed.
// Owned by the application; main thread only. The work has a thread of its own, and all events but the user's are
// handled meanwhile: a copy may take long, and the desktop must not wait for this program's answers.
//
// A crash at any moment leaves the original whole or a complete item in the Trash: the copy grows where no
// program looks for trashed items, is on the disk and in its place before the first file of the original goes.
class XdgTrash : public Trash {
public:
    TrashResult moveToTrash(const FileUrl& item) override;

private:
    static TrashResult move(const QByteArray& path);
    static TrashResult moveByCopying(const QByteArray& original, const QByteArray& trashFolder);
};

} // namespace zelmo
