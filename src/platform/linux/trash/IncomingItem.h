#pragma once

#include "platform/linux/files/FileDescriptor.h"

#include <QByteArray>

namespace zelmo {

// One item on its way into the home folder's Trash. Its copy is made in a private folder beside "files" and
// "info", where no program looks for trashed items, and gets its name there in one step when it is complete.
// Made on the stack for one item; what is not published, or is withdrawn, leaves no trace.
class IncomingItem {
public:
    explicit IncomingItem(QByteArray trashFolder);
    ~IncomingItem();
    IncomingItem(const IncomingItem&) = delete;
    IncomingItem& operator=(const IncomingItem&) = delete;

    // Makes the private folder, and the Trash if there is none.
    bool prepare();
    // Where the copy is to be made and, once it is published, where it is.
    const QByteArray& path() const { return m_path; }

    // Lists the copy in the Trash under a free name, as what was at `original` until now, and waits until all of it is
    // on the disk.
    bool publish(const QByteArray& original);
    // Takes the copy out of the Trash again.
    void withdraw();

    // Removes what a killed process left of items that it did not publish; what a living process is preparing stays.
    static void removeAbandoned(const QByteArray& trashFolder);

private:
    enum class Attempt { published, nameTaken, failed };

    Attempt publishAs(const QByteArray& name, const QByteArray& information);

    QByteArray m_trashFolder;
    QByteArray m_folder; // the private one
    FileDescriptor m_lock{-1};
    QByteArray m_path;
    QByteArray m_information; // the file that lists the copy, once it is published
};

} // namespace zelmo
