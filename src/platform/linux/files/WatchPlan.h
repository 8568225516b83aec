#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>

namespace zelmo {

// What has to be watched on one folder that is really there.
struct PlannedWatch {
    // Whether everything in the folder counts, or only the names below.
    bool wholeFolder = false;
    // The entries of this folder that a requested path leads through.
    QSet<QByteArray> names;
};

// Works out which existing folders to watch so that nothing is missed in the requested ones: each
// of these, and every folder on the way to it, symbolic links included. A way that ends early is
// planned up to the last folder that is there. A value of one moment; made anew after every change.
class WatchPlan {
public:
    explicit WatchPlan(qsizetype limit) : m_limit(limit) {}

    // Adds an absolute path. False, with nothing added, when the plan would grow beyond the limit.
    bool add(const QByteArray& folder);

    // By physical path, without links in it.
    const QHash<QByteArray, PlannedWatch>& watches() const { return m_watches; }
    // The same paths, those of the folders added first in front.
    const QList<QByteArray>& order() const { return m_order; }

private:
    enum class StepKind {
        folder,
        link,
        blocked, // missing, not to be looked at, or no folder
    };
    struct Step {
        StepKind kind = StepKind::blocked;
        QByteArray target;
    };

    const Step& look(const QByteArray& path);

    qsizetype m_limit;
    QHash<QByteArray, PlannedWatch> m_watches;
    QList<QByteArray> m_order;
    QHash<QByteArray, Step> m_steps;
};

// The path of an entry in a folder; "/" has no second slash added.
QByteArray childPath(const QByteArray& folder, const QByteArray& name);

} // namespace zelmo
