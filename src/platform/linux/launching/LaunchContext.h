#pragma once

#include "platform/linux/launching/StartupNotifier.h"

#include <QList>

#include <memory>

#include <gio/gio.h>

namespace zelmo {

struct GObjectDeleter {
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object>
using GObjectPointer = std::unique_ptr<Object, GObjectDeleter>;

// What GIO asks while it starts a program: the environment without the variables that are this program's own, and
// the token for the desktop. The notifier outlives the context.
GObjectPointer<GAppLaunchContext> makeLaunchContext(StartupNotifier& notifier, const StartupDescription& program,
                                                    const QList<QByteArray>& privateVariables);

} // namespace zelmo
