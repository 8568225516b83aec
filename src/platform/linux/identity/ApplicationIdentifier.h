#pragma once

#include "platform/linux/identity/ApplicationIndex.h"
#include "platform/linux/identity/ProcessFacts.h"

#include <QMutex>
#include <QObject>

#include <memory>
#include <optional>

namespace zelmo {

// What a window says about itself; all of it may be empty.
struct WindowFacts {
    QByteArray instanceName; // the two parts of WM_CLASS
    QByteArray className;
    // Names or paths of desktop entries, without or with their ending, which toolkits set from an application's ID.
    QList<QByteArray> applicationIds;
};

// Tells which application a window belongs to: the listed bundle around its executable, else a listed desktop entry,
// by one piece of evidence after the other, the strongest first, else whatever bundle is around its executable. The
// list of entries may be replaced on any thread; everything else is for the main thread.
class ApplicationIdentifier : public QObject {
    Q_OBJECT

public:
    // In these folders the bundles are that the program lists; a path in one of them is given as it is listed, also
    // when the folder is reached through a link.
    explicit ApplicationIdentifier(QList<FileUrl> bundleFolders = {});

    void setIndex(ApplicationIndex index);

    std::optional<FileUrl> identify(const WindowFacts& window, const ProcessFacts& process) const;

Q_SIGNALS:
    // Comes on the thread that replaced the list.
    void indexChanged();

private:
    std::shared_ptr<const ApplicationIndex> index() const;

    std::optional<FileUrl> listedBundle(const FileUrl& bundle) const;

    QList<FileUrl> m_bundleFolders;
    mutable QMutex m_lock;
    std::shared_ptr<const ApplicationIndex> m_index = std::make_shared<const ApplicationIndex>();
};

} // namespace zelmo
