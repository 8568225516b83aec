#pragma once

#include "catalog/FileUrl.h"

#include <QList>

#include <functional>

namespace zelmo {

// Tells when something in a set of folders was made, changed, moved or removed, also in folders that
// are made later, or removed and made again. Lives on the main thread.
class FolderWatcher {
public:
    virtual ~FolderWatcher() = default;

    // Watches these folders and no others from now on. Where the system allows fewer, the first ones are watched.
    virtual void setFolders(const QList<FileUrl>& folders) = 0;

    // Called on the main thread for each burst of changes, without a delay.
    virtual void setChangeHandler(std::function<void()> handler) = 0;
};

} // namespace zelmo
