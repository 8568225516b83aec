#pragma once

#include <QByteArray>

#include <functional>

namespace zelmo {

// A file whose name ends in ".desktop", as a walk comes upon it.
struct EntryFileVisit {
    int folder = -1;       // a descriptor of the folder it is in
    const char* name = ""; // its name there
    QByteArray path;       // the folder's path, without the name
    QByteArray entryId;    // the sub-folders' names and its own, with dashes between them
};

using EntryFileVisitor = std::function<void(const EntryFileVisit&)>;
using EntryFolderVisitor = std::function<void(const QByteArray& path)>;

// Goes through an application folder and all folders below it, those before the ones they hold. Links
// to folders are followed after everything else and no folder is entered twice, so that a loop ends
// and an entry has the ID of its real place. What can't be opened is passed over. `atFolder` is told of
// every folder in turn, also of a `root` that does not exist. Blocks on nothing but the disk; any thread.
void walkEntryFolders(const QByteArray& root, const EntryFolderVisitor& atFolder, const EntryFileVisitor& atFile);

} // namespace zelmo
