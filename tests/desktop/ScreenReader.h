#pragma once

#include "support/AccessibleTree.h"
#include "support/DesktopSession.h"

namespace zelmo::test {

// Reads and works what the program shows on a desktop, where it is to be started after this. One for each process.
class ScreenReader {
public:
    explicit ScreenReader(DesktopSession& session)
        : m_tree(session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), session.displayName()) {
        session.environment().insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    }

    // Everything that is to be seen, in the order of the tree.
    QList<AccessibleNode> shown() const {
        QList<AccessibleNode> nodes = m_tree.nodes(program());
        nodes.removeIf([](const AccessibleNode& node) { return !node.is("showing"); });
        return nodes;
    }
    std::optional<AccessibleNode> find(const char* role, const char* name) const {
        return m_tree.find(program(), QString::fromUtf8(role), QString::fromUtf8(name));
    }
    // Until it is to be seen and is as wanted.
    template <typename Predicate>
    bool waitFor(const char* role, const char* name, Predicate isWanted) const {
        return DesktopSession::waitFor([&] {
            const auto node = find(role, name);
            return node && isWanted(*node);
        });
    }
    bool waitFor(const char* role, const char* name, const char* state = "showing") const {
        return waitFor(role, name, [state](const AccessibleNode& node) { return node.is(state); });
    }
    bool waitForNone(const char* role, const char* name) const {
        return DesktopSession::waitFor([&] { return !find(role, name); });
    }
    bool waitForDescription(const char* role, const char* name, const char* description) const {
        return waitFor(role, name, [description](const AccessibleNode& node) {
            return node.description == QLatin1StringView(description);
        });
    }
    bool waitForNumber(const char* name, double number) const {
        return waitFor("slider", name,
                       [number](const AccessibleNode& node) { return node.value && node.value->current == number; });
    }
    // As soon as it is to be seen.
    bool act(const char* role, const char* name, const char* action = "Press") const {
        return waitFor(role, name) &&
               m_tree.act(program(), QString::fromUtf8(role), QString::fromUtf8(name), QString::fromUtf8(action));
    }
    bool setNumber(const char* name, double number) const {
        return m_tree.setValue(program(), QStringLiteral("slider"), QString::fromUtf8(name), number);
    }

private:
    static QString program() { return QStringLiteral("zelmo"); }

    AccessibleTree m_tree;
};

} // namespace zelmo::test
