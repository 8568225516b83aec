#include "platform/linux/freedesktop/ProgramFinder.h"

#include <sys/stat.h>
#include <unistd.h>

namespace zelmo {

namespace {

bool isExecutable(const QByteArray& path) {
    struct stat status {};
    if (access(path.constData(), X_OK) != 0 || stat(path.constData(), &status) != 0)
        return false;
    // The administrator may access what no one can run.
    return !S_ISDIR(status.st_mode) && (status.st_mode & (S_IXUSR | S_IXGRP | S_IXOTH)) != 0;
}

} // namespace

ProgramFinder::ProgramFinder(const QByteArray& searchPath) {
    for (const QByteArray& folder : searchPath.split(':'))
        m_folders.append(folder.isEmpty() || folder.endsWith('/') ? folder : folder + '/');
}

bool ProgramFinder::exists(const QByteArray& program) {
    const auto known = m_answers.constFind(program);
    if (known != m_answers.cend())
        return *known;
    const bool answer = search(program);
    m_answers.insert(program, answer);
    return answer;
}

bool ProgramFinder::search(const QByteArray& program) const {
    if (program.isEmpty())
        return false;
    if (program.contains('/'))
        return isExecutable(program);
    return std::any_of(m_folders.cbegin(), m_folders.cend(),
                       [&](const QByteArray& folder) { return isExecutable(folder + program); });
}

} // namespace zelmo
