#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace zelmo::test {

// The number of a control that has one.
struct AccessibleValue {
    double current;
    double smallest;
    double largest;
};

// One control as a screen reader knows it.
struct AccessibleNode {
    QString role;
    QString name;
    QString description;
    QStringList states; // such as "checked"
    QStringList actions;
    std::optional<AccessibleValue> value;

    bool is(const char* state) const { return states.contains(QLatin1StringView(state)); }
};

// The programs of one session as a screen reader sees them. One for each process, for the library is: the first
// session that it is made for is the one.
class AccessibleTree {
public:
    // The address of the session's bus, and its display.
    AccessibleTree(const QString& busAddress, const QString& display);
    ~AccessibleTree();
    AccessibleTree(const AccessibleTree&) = delete;
    AccessibleTree& operator=(const AccessibleTree&) = delete;

    // Everything in the windows of the program of this name, in the order of the tree.
    QList<AccessibleNode> nodes(const QString& program) const;
    // The first control of this role and name that is to be seen; nothing when there is none.
    std::optional<AccessibleNode> find(const QString& program, const QString& role, const QString& name) const;
    // Does the first action of it that has this name. False when there is none.
    bool act(const QString& program, const QString& role, const QString& name, const QString& action) const;
    // Gives it another number. False when it has none.
    bool setValue(const QString& program, const QString& role, const QString& name, double value) const;
};

// What programs say by themselves of the states of their controls. While there is a tree, and only one at a time; it
// hears in the event loop.
class AccessibleChanges {
public:
    // Of one state, such as "enabled".
    explicit AccessibleChanges(const QString& state);
    ~AccessibleChanges();
    AccessibleChanges(const AccessibleChanges&) = delete;
    AccessibleChanges& operator=(const AccessibleChanges&) = delete;

    // The names of the controls that changed, each with "on" or "off" behind it, since the last call.
    QStringList take();

private:
    struct Listener;
    std::unique_ptr<Listener> m_listener;
};

} // namespace zelmo::test
