#pragma once

#include <QByteArray>
#include <QHash>

#include <sys/stat.h>

namespace zelmo {

// Remembers when folders and files had last changed as they were read, to tell later whether they
// must be read again. Owned by what was read from them; not guarded.
class FolderTimes {
public:
    // To be called with the status from before the reading; a null status means that nothing is there.
    void note(const QByteArray& path, const struct stat* status);
    bool holds(const QByteArray& path) const { return m_times.contains(path); }
    bool haveChanged() const;

private:
    QHash<QByteArray, qint64> m_times; // in nanoseconds
};

} // namespace zelmo
