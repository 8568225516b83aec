#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

namespace zelmo {

// Gives a file new contents so that every reader, and every restart after a crash, finds either the
// old contents or the new ones, whole. Made on the stack for one replacement, on any thread; what has
// been prepared and not committed leaves no trace.
class FileReplacement {
public:
    // `target` must not be a symbolic link: it would be replaced itself. See `linkTarget`.
    explicit FileReplacement(QByteArray target);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    // Stores the contents beside the target, with the permissions of the file that it replaces, though its owner may
    // read it in any case, and waits until they are on disk. Missing folders are made for the owner alone.
    bool prepare(const QByteArray& contents);
    // Puts what was prepared in the target's place.
    bool commit();

    // Removes what a killed process prepared for the target and did not commit; what a living process
    // is preparing stays.
    static void removeAbandoned(const QByteArray& target);

private:
    QByteArray m_target;
    QByteArray m_prepared;
    int m_file = -1;
};

// The path and every one that its last component, being a symbolic link, leads to in turn. Only the
// path itself when the links lead in a circle.
QList<QByteArray> linkSteps(const QByteArray& path);

// Where a path leads when its last component is a symbolic link, or a link to one; the path itself
// otherwise, and when the links lead in a circle. The file at the end need not exist.
QByteArray linkTarget(const QByteArray& path);

// The folder that holds the file at an absolute path.
QByteArray parentFolder(const QByteArray& path);

// Renames what is at `path` to the first free name of "<path>.unreadable", "<path>.unreadable-2" and
// so on, in one step that never overwrites. Gives the new path.
std::optional<QByteArray> setFileAside(const QByteArray& path);

} // namespace zelmo
