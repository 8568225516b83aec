#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

namespace zelmo {

// Tells whether a program is installed, and remembers the answers: hundreds of entries name the same
// few programs. Lives for one pass over the entries, so that a new program is seen by the next. Used
// by one thread at a time.
class ProgramFinder {
public:
    // `searchPath` as in PATH: folders with colons between them, an empty one for the current folder.
    explicit ProgramFinder(const QByteArray& searchPath);

    // `program` is the name of a file in one of the folders, or a path when there is a slash in it.
    bool exists(const QByteArray& program);

private:
    bool search(const QByteArray& program) const;

    QList<QByteArray> m_folders; // each ends in a slash, or is empty
    QHash<QByteArray, bool> m_answers;
};

} // namespace zelmo
