#include "platform/linux/launching/LaunchContext.h"

namespace zelmo {

namespace {

struct LaunchContext {
    GAppLaunchContext parent;
    StartupNotifier* notifier;
    StartupDescription* program;
};

struct LaunchContextClass {
    GAppLaunchContextClass parent;
};

gpointer parentClass = nullptr;

LaunchContext& toLaunchContext(void* context) {
    return *static_cast<LaunchContext*>(context);
}

// Asked for programs that tell the desktop when their window is there.
char* startupNotifyId(GAppLaunchContext* context, GAppInfo*, GList*) {
    const LaunchContext& self = toLaunchContext(context);
    const QByteArray token = self.notifier->announcedToken(*self.program);
    return token.isEmpty() ? nullptr : g_strdup(token.constData());
}

void launchFailed(GAppLaunchContext* context, const char* token) {
    toLaunchContext(context).notifier->cancel(token);
}

void finalize(GObject* context) {
    delete toLaunchContext(context).program;
    G_OBJECT_CLASS(parentClass)->finalize(context);
}

void initializeClass(gpointer type, gpointer) {
    parentClass = g_type_class_peek_parent(type);
    static_cast<GObjectClass*>(type)->finalize = finalize;
    auto* context = static_cast<GAppLaunchContextClass*>(type);
    context->get_startup_notify_id = startupNotifyId;
    context->launch_failed = launchFailed;
}

GType launchContextType() {
    static const GType type =
        g_type_register_static_simple(G_TYPE_APP_LAUNCH_CONTEXT, "ZelmoLaunchContext", sizeof(LaunchContextClass),
                                      initializeClass, sizeof(LaunchContext), nullptr, G_TYPE_FLAG_NONE);
    return type;
}

} // namespace

GObjectPointer<GAppLaunchContext> makeLaunchContext(StartupNotifier& notifier, const StartupDescription& program,
                                                    const QList<QByteArray>& privateVariables) {
    GObjectPointer<GAppLaunchContext> context(
        static_cast<GAppLaunchContext*>(g_object_new(launchContextType(), nullptr)));
    toLaunchContext(context.get()).notifier = &notifier;
    toLaunchContext(context.get()).program = new StartupDescription(program);
    for (const QByteArray& variable : privateVariables)
        g_app_launch_context_unsetenv(context.get(), variable.constData());
    return context;
}

} // namespace zelmo
