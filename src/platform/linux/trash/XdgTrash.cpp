#include "platform/linux/trash/XdgTrash.h"

#include "platform/linux/trash/CopiedTree.h"
#include "platform/linux/trash/IncomingItem.h"

#include <QEventLoop>
#include <QThread>

#include <memory>

#include <gio/gio.h>

namespace zelmo {

namespace {

struct ObjectDeleter {
    void operator()(void* object) const { g_object_unref(object); }
};

// Whether the reason lies with the file systems and not with the item: the item's has no Trash and can't be given
// one, it can't be moved from there by renaming, or its name has no room for what the Trash adds to it.
bool canBeCopiedInstead(const GError* error) {
    return g_error_matches(error, G_IO_ERROR, G_IO_ERROR_NOT_SUPPORTED) ||
           g_error_matches(error, G_IO_ERROR, G_IO_ERROR_FILENAME_TOO_LONG);
}

} // namespace

TrashResult XdgTrash::moveToTrash(const FileUrl& item) {
    TrashResult result = TrashResult::refused;
    const std::unique_ptr<QThread> worker(
        QThread::create([&result, path = item.nativePath()] { result = move(path); }));
    QEventLoop loop;
    QObject::connect(worker.get(), &QThread::finished, &loop, &QEventLoop::quit);
    worker->start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    // The loop may have ended with the program; what was begun is brought to its end.
    worker->wait();
    return result;
}

TrashResult XdgTrash::move(const QByteArray& path) {
    // What follows a zero byte would be left out on the way to the system, which would then move something else.
    if (!path.startsWith('/') || path.contains('\0'))
        return TrashResult::refused;
    // The local file system itself: no other service is asked, and none is waited for.
    const std::unique_ptr<GFile, ObjectDeleter> file(g_vfs_get_file_for_path(g_vfs_get_local(), path.constData()));
    const QByteArray trashFolder = QByteArray(g_get_user_data_dir()) + "/Trash";
    IncomingItem::removeAbandoned(trashFolder);

    GError* error = nullptr;
    if (g_file_trash(file.get(), nullptr, &error))
        return TrashResult::moved;
    const bool copies = canBeCopiedInstead(error);
    g_error_free(error);
    // GIO's spelling of the path, which has no slash at the end: that would lead through a link.
    return copies ? moveByCopying(g_file_peek_path(file.get()), trashFolder) : TrashResult::refused;
}

// Everything that can refuse comes before the removal. If that fails all the same, because something was changed
// meanwhile or the disk fails, what is gone is put back and the Trash is left as it was; only when even that fails
// the copy stays in the Trash, so that nothing is lost.
TrashResult XdgTrash::moveByCopying(const QByteArray& original, const QByteArray& trashFolder) {
    if (!isTreeRemovable(original))
        return TrashResult::refused;
    IncomingItem incoming(trashFolder);
    if (!incoming.prepare() || !copyTree(original, incoming.path(), CopyScope::everything) ||
        !incoming.publish(original))
        return TrashResult::refused;
    switch (removeCopiedTree(original, incoming.path())) {
    case RemovalResult::removed:
        return TrashResult::moved;
    case RemovalResult::untouched:
        incoming.withdraw();
        return TrashResult::refused;
    case RemovalResult::begun:
        if (copyTree(incoming.path(), original, CopyScope::whatIsMissing))
            incoming.withdraw();
        return TrashResult::refused;
    }
    return TrashResult::refused;
}

} // namespace zelmo
