#include "platform/linux/files/WatchPlan.h"

#include "platform/linux/files/FileReplacement.h"

#include <climits>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace zelmo {

namespace {

constexpr int maximumLinks = 40;

// The components in reverse, so that the next one is taken from the end.
QList<QByteArray> pendingComponents(const QByteArray& path) {
    QList<QByteArray> components = path.split('/');
    std::reverse(components.begin(), components.end());
    return components;
}

} // namespace

QByteArray childPath(const QByteArray& folder, const QByteArray& name) {
    return folder.endsWith('/') ? QByteArray(folder + name) : QByteArray(folder + "/" + name);
}

bool WatchPlan::add(const QByteArray& folder) {
    QList<std::pair<QByteArray, QByteArray>> trail;
    QByteArray current("/");
    QList<QByteArray> pending = pendingComponents(folder);
    bool complete = true;
    int links = 0;
    while (complete && !pending.isEmpty()) {
        const QByteArray name = pending.takeLast();
        if (name.isEmpty() || name == ".")
            continue;
        if (name == "..") {
            current = parentFolder(current);
            continue;
        }
        trail.append({current, name});
        const QByteArray path = childPath(current, name);
        const Step& step = look(path);
        if (step.kind == StepKind::folder) {
            current = path;
        } else if (step.kind == StepKind::link && ++links <= maximumLinks) {
            if (step.target.startsWith('/'))
                current = "/";
            pending += pendingComponents(step.target);
        } else {
            complete = false;
        }
    }

    QSet<QByteArray> fresh;
    for (const auto& [path, name] : trail) {
        if (!m_watches.contains(path))
            fresh.insert(path);
    }
    if (complete && !m_watches.contains(current))
        fresh.insert(current);
    if (m_watches.size() + fresh.size() > m_limit)
        return false;

    const auto watch = [&](const QByteArray& path) -> PlannedWatch& {
        if (!m_watches.contains(path))
            m_order.append(path);
        return m_watches[path];
    };
    for (const auto& [path, name] : trail)
        watch(path).names.insert(name);
    if (complete)
        watch(current).wholeFolder = true;
    return true;
}

const WatchPlan::Step& WatchPlan::look(const QByteArray& path) {
    const auto known = m_steps.constFind(path);
    if (known != m_steps.constEnd())
        return *known;
    Step step;
    struct stat status {};
    if (lstat(path.constData(), &status) == 0) {
        if (S_ISDIR(status.st_mode)) {
            step.kind = StepKind::folder;
        } else if (S_ISLNK(status.st_mode)) {
            QByteArray target(PATH_MAX, Qt::Uninitialized);
            const ssize_t length = readlink(path.constData(), target.data(), static_cast<std::size_t>(target.size()));
            if (length > 0) {
                step.kind = StepKind::link;
                step.target = target.left(static_cast<qsizetype>(length));
            }
        }
    }
    return *m_steps.insert(path, step);
}

} // namespace zelmo
