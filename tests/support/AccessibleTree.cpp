#include "support/AccessibleTree.h"

#include <atspi/atspi.h>

#include <functional>
#include <utility>

namespace zelmo::test {

namespace {

struct ObjectDeleter {
    void operator()(void* object) const { g_object_unref(object); }
};
using Object = std::unique_ptr<AtspiAccessible, ObjectDeleter>;

// Takes the text. What went away meanwhile has none.
QString taken(gchar* text) {
    const QString result = QString::fromUtf8(text);
    g_free(text);
    return result;
}

QStringList statesOf(AtspiAccessible* object) {
    constexpr std::pair<AtspiStateType, const char*> known[]{
        {ATSPI_STATE_CHECKED, "checked"},       {ATSPI_STATE_CHECKABLE, "checkable"},
        {ATSPI_STATE_ENABLED, "enabled"},       {ATSPI_STATE_FOCUSED, "focused"},
        {ATSPI_STATE_FOCUSABLE, "focusable"},   {ATSPI_STATE_SELECTED, "selected"},
        {ATSPI_STATE_SELECTABLE, "selectable"}, {ATSPI_STATE_SHOWING, "showing"},
        {ATSPI_STATE_EDITABLE, "editable"},
    };
    QStringList states;
    AtspiStateSet* set = atspi_accessible_get_state_set(object);
    for (const auto& [state, name] : known) {
        if (set && atspi_state_set_contains(set, state))
            states.append(QString::fromLatin1(name));
    }
    g_clear_object(&set);
    return states;
}

QStringList actionsOf(AtspiAccessible* object) {
    QStringList names;
    AtspiAction* action = atspi_accessible_get_action_iface(object);
    for (int i = 0; action && i < atspi_action_get_n_actions(action, nullptr); ++i)
        names.append(taken(atspi_action_get_action_name(action, i, nullptr)));
    g_clear_object(&action);
    return names;
}

std::optional<AccessibleValue> valueOf(AtspiAccessible* object) {
    AtspiValue* value = atspi_accessible_get_value_iface(object);
    if (!value)
        return std::nullopt;
    const AccessibleValue found{.current = atspi_value_get_current_value(value, nullptr),
                                .smallest = atspi_value_get_minimum_value(value, nullptr),
                                .largest = atspi_value_get_maximum_value(value, nullptr)};
    g_object_unref(value);
    return found;
}

AccessibleNode nodeOf(AtspiAccessible* object) {
    return {.role = taken(atspi_accessible_get_role_name(object, nullptr)),
            .name = taken(atspi_accessible_get_name(object, nullptr)),
            .description = taken(atspi_accessible_get_description(object, nullptr)),
            .states = statesOf(object),
            .actions = actionsOf(object),
            .value = valueOf(object)};
}

// Calls `visit` for each object below this one until it says that it has seen enough.
bool walk(AtspiAccessible* object, const std::function<bool(AtspiAccessible*)>& visit) {
    const int count = atspi_accessible_get_child_count(object, nullptr);
    for (int i = 0; i < count; ++i) {
        const Object child(atspi_accessible_get_child_at_index(object, i, nullptr));
        if (child && (visit(child.get()) || walk(child.get(), visit)))
            return true;
    }
    return false;
}

void visitProgram(const QString& program, const std::function<bool(AtspiAccessible*)>& visit) {
    const Object desktop(atspi_get_desktop(0));
    const int count = desktop ? atspi_accessible_get_child_count(desktop.get(), nullptr) : 0;
    for (int i = 0; i < count; ++i) {
        const Object application(atspi_accessible_get_child_at_index(desktop.get(), i, nullptr));
        // What the library remembers may be over.
        if (application)
            atspi_accessible_clear_cache(application.get());
        if (application && taken(atspi_accessible_get_name(application.get(), nullptr)) == program)
            walk(application.get(), visit);
    }
}

bool matches(const AccessibleNode& node, const QString& role, const QString& name) {
    return node.role == role && node.name == name && node.is("showing");
}

} // namespace

AccessibleTree::AccessibleTree(const QString& busAddress, const QString& display) {
    qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress.toLocal8Bit());
    qputenv("DISPLAY", display.toLocal8Bit());
    atspi_init();
    atspi_set_timeout(2000, 5000);
}

AccessibleTree::~AccessibleTree() {
    atspi_exit();
}

QList<AccessibleNode> AccessibleTree::nodes(const QString& program) const {
    QList<AccessibleNode> list;
    visitProgram(program, [&](AtspiAccessible* object) {
        list.append(nodeOf(object));
        return false;
    });
    return list;
}

std::optional<AccessibleNode> AccessibleTree::find(const QString& program, const QString& role,
                                                   const QString& name) const {
    std::optional<AccessibleNode> found;
    visitProgram(program, [&](AtspiAccessible* object) {
        AccessibleNode node = nodeOf(object);
        if (matches(node, role, name))
            found = std::move(node);
        return found.has_value();
    });
    return found;
}

bool AccessibleTree::act(const QString& program, const QString& role, const QString& name,
                         const QString& action) const {
    bool isDone = false;
    visitProgram(program, [&](AtspiAccessible* object) {
        const AccessibleNode node = nodeOf(object);
        if (!matches(node, role, name))
            return false;
        AtspiAction* interface = atspi_accessible_get_action_iface(object);
        const qsizetype index = node.actions.indexOf(action);
        isDone = interface && index >= 0 && atspi_action_do_action(interface, static_cast<gint>(index), nullptr);
        g_clear_object(&interface);
        return true;
    });
    return isDone;
}

bool AccessibleTree::setValue(const QString& program, const QString& role, const QString& name, double value) const {
    bool isDone = false;
    visitProgram(program, [&](AtspiAccessible* object) {
        if (!matches(nodeOf(object), role, name))
            return false;
        AtspiValue* interface = atspi_accessible_get_value_iface(object);
        isDone = interface && atspi_value_set_current_value(interface, value, nullptr);
        g_clear_object(&interface);
        return true;
    });
    return isDone;
}

struct AccessibleChanges::Listener {
    static void hear(AtspiEvent* event, void* listener) {
        const QString name = taken(atspi_accessible_get_name(event->source, nullptr));
        static_cast<Listener*>(listener)->changes.append(name + QLatin1StringView(event->detail1 ? " on" : " off"));
        g_boxed_free(ATSPI_TYPE_EVENT, event);
    }

    QByteArray kind;
    QStringList changes;
    AtspiEventListener* listener = nullptr;
};

AccessibleChanges::AccessibleChanges(const QString& state) : m_listener(std::make_unique<Listener>()) {
    m_listener->kind = "object:state-changed:" + state.toUtf8();
    m_listener->listener = atspi_event_listener_new(Listener::hear, m_listener.get(), nullptr);
    atspi_event_listener_register(m_listener->listener, m_listener->kind.constData(), nullptr);
}

AccessibleChanges::~AccessibleChanges() {
    atspi_event_listener_deregister(m_listener->listener, m_listener->kind.constData(), nullptr);
    g_object_unref(m_listener->listener);
}

QStringList AccessibleChanges::take() {
    return std::exchange(m_listener->changes, {});
}

} // namespace zelmo::test
