#include "platform/linux/identity/ApplicationIndex.h"

#include <limits>

namespace zelmo {

namespace {

constexpr std::size_t ambiguous = std::numeric_limits<std::size_t>::max();

void insertFirst(QHash<QByteArray, std::size_t>& positions, const QByteArray& key, std::size_t position) {
    const QByteArray folded = key.toLower();
    if (!folded.isEmpty() && !positions.contains(folded))
        positions.insert(folded, position);
}

} // namespace

ApplicationIndex::ApplicationIndex(std::vector<IndexedApplication> applications)
    : m_applications(std::move(applications)) {
    for (std::size_t i = 0; i < m_applications.size(); ++i) {
        const IndexedApplication& application = m_applications[i];
        insertFirst(m_byEntryId, application.entryId, i);
        insertFirst(m_byStartupClass, application.startupClass, i);
        m_byPath.insert(application.url.path(), i);
        if (application.program.isEmpty())
            continue;
        const QByteArray program = application.program.toLower();
        m_byProgram.insert(program, m_byProgram.contains(program) ? ambiguous : i);
    }
}

const IndexedApplication* ApplicationIndex::withEntryId(const QByteArray& entryId) const {
    return at(m_byEntryId, entryId);
}

const IndexedApplication* ApplicationIndex::withStartupClass(const QByteArray& windowClass) const {
    return at(m_byStartupClass, windowClass);
}

const IndexedApplication* ApplicationIndex::withPath(const QString& path) const {
    const auto found = m_byPath.constFind(path);
    return found == m_byPath.constEnd() ? nullptr : &m_applications[*found];
}

const IndexedApplication* ApplicationIndex::withProgram(const QByteArray& program) const {
    return at(m_byProgram, program);
}

const IndexedApplication* ApplicationIndex::at(const Positions& positions, const QByteArray& key) const {
    const auto found = positions.constFind(key.toLower());
    return found == positions.constEnd() || *found == ambiguous ? nullptr : &m_applications[*found];
}

} // namespace zelmo
