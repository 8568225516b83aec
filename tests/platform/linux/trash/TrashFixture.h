#pragma once

#include "TemporaryFolder.h"
#include "TreePicture.h"

#include <QList>
#include <QProcessEnvironment>

#include <memory>
#include <optional>

namespace zelmo::test {

// What stands in the Trash about one item.
struct TrashedItem {
    QByteArray name;
    QByteArray originalPath;
    QByteArray deletionDate;

    friend auto operator<=>(const TrashedItem& left, const TrashedItem& right) {
        return std::tie(left.name, left.originalPath) <=> std::tie(right.name, right.originalPath);
    }
    friend bool operator==(const TrashedItem&, const TrashedItem&) = default;
};

enum class Place { homeFileSystem, otherFileSystem };

inline void setMode(const QByteArray& path, mode_t mode) {
    if (chmod(path.constData(), mode) != 0)
        qFatal("%s can't be given another mode", path.constData());
}

// A home folder with a Trash, and a folder of applications on the same file system or on another one. The moving is
// done by a process that sees nothing but these.
class TrashFixture {
public:
    explicit TrashFixture(Place place = Place::homeFileSystem);

    // False when the machine lacks another file system to try with; a test skips then.
    bool isPossible() const { return m_possible; }

    const TemporaryFolder& applications() const { return *m_applications; }
    const TemporaryFolder& homeFolder() const { return m_home; }
    const QByteArray& home() const { return m_home.path(); }
    QByteArray trashFolder() const { return m_home.path("data/Trash"); }
    QProcessEnvironment& environment() { return m_environment; }
    const QProcessEnvironment& environment() const { return m_environment; }

    // A bundle with a program, a link, a dangling link, two names of one file, a file with a hole and odd modes.
    QByteArray makeBundle(const QByteArray& name) const;

    // What becomes of the paths, as a user without root's rights who owns everything here: "moved" or "refused" for
    // each. Nothing when the process died.
    QList<QByteArray> move(const QList<QByteArray>& paths) const;
    QByteArray move(const QByteArray& path) const { return move(QList{path}).value(0); }
    // The same without handing the files over to that user.
    QList<QByteArray> moveAsItIs(const QList<QByteArray>& paths) const;
    // Runs a program in the same environment and gives what it prints, or nothing if it fails.
    std::optional<QByteArray> run(const QStringList& command, const QByteArray& input = {}) const;

    void handOver() const;

    // Every item that the Trash lists and holds, by name.
    QList<TrashedItem> items() const;
    // The names in the Trash that no whole item accounts for: one part without the other, or what is being prepared.
    QList<QByteArray> leftovers() const;
    QByteArray trashed(const QByteArray& name) const { return trashFolder() + "/files/" + name; }

private:
    TemporaryFolder m_home;
    std::unique_ptr<TemporaryFolder> m_applications;
    QProcessEnvironment m_environment;
    bool m_possible = true;
};

} // namespace zelmo::test
