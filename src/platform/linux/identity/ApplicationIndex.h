#pragma once

#include "catalog/FileUrl.h"

#include <QByteArray>
#include <QHash>

#include <vector>

namespace zelmo {

// What one listed desktop entry says about how its running program can be told.
struct IndexedApplication {
    QByteArray entryId; // such as "org.gnome.Maps.desktop"
    FileUrl url;
    QByteArray startupClass; // StartupWMClass, empty when there is none
    QByteArray program;      // the file name of what it runs; empty when its windows are another program's

    friend bool operator==(const IndexedApplication&, const IndexedApplication&) = default;
};

// The listed desktop entries by what can be seen of a running program. A value that never changes.
class ApplicationIndex {
public:
    ApplicationIndex() = default;
    // Those that come first win where two say the same.
    explicit ApplicationIndex(std::vector<IndexedApplication> applications);

    // All are null when there is none. Letters count as the same in both cases but for paths.
    const IndexedApplication* withEntryId(const QByteArray& entryId) const;
    const IndexedApplication* withStartupClass(const QByteArray& windowClass) const;
    const IndexedApplication* withPath(const QString& path) const;
    // Null also when two or more entries run a program of this name.
    const IndexedApplication* withProgram(const QByteArray& program) const;

private:
    using Positions = QHash<QByteArray, std::size_t>;

    const IndexedApplication* at(const Positions& positions, const QByteArray& key) const;

    std::vector<IndexedApplication> m_applications;
    Positions m_byEntryId;
    Positions m_byStartupClass;
    Positions m_byProgram;
    QHash<QString, std::size_t> m_byPath;
};

} // namespace zelmo
