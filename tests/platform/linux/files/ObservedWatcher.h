#pragma once

#include "TemporaryFolder.h"
#include "platform/linux/files/InotifyFolderWatcher.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>

#include <functional>

namespace zelmo {

// A watcher that counts its calls. Before a change is made, what is still on its way from earlier ones
// is let through, up to and with a change in a folder of its own that tells that nothing came before.
class ObservedWatcher {
public:
    explicit ObservedWatcher(const QList<FileUrl>& folders, qsizetype limit = InotifyFolderWatcher::standardLimit)
        : watcher(limit) {
        watcher.setChangeHandler([this] { ++calls; });
        watcher.setFolders(folders);
    }

    // Whether the change is told of.
    bool sees(const std::function<void()>& change) {
        settle();
        calls = 0;
        change();
        return QTest::qWaitFor([this] { return calls > 0; }, 2000);
    }

    // Whether the change is kept quiet: a second watcher, asked after the first, has told of a later one.
    bool ignores(const std::function<void()>& change) {
        settle();
        calls = 0;
        change();
        settle();
        return calls == 0;
    }

    InotifyFolderWatcher watcher;
    int calls = 0;

private:
    void settle() {
        bool reached = false;
        InotifyFolderWatcher probe;
        const TemporaryFolder folder;
        probe.setChangeHandler([&] { reached = true; });
        probe.setFolders({FileUrl::fromNativePath(folder.path())});
        folder.writeFile("probe", "x");
        if (!QTest::qWaitFor([&] { return reached; }, 2000))
            qFatal("No change is told of at all");
        // Every notifier that was due in the same round of the event loop has been served after one more.
        QCoreApplication::processEvents();
    }
};

inline void removeFolder(const QByteArray& path) {
    QDir(QString::fromUtf8(path)).removeRecursively();
}

} // namespace zelmo
