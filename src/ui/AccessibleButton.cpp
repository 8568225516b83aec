#include "ui/AccessibleButton.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QQuickItem>
#include <QQuickWindow>

namespace zelmo {

namespace {

// What QML calls `Accessible`, which has no public type.
QObject* attachedTo(const QObject& item) {
    for (QObject* child : item.children()) {
        if (child->inherits("QQuickAccessibleAttached"))
            return child;
    }
    return nullptr;
}

void tellThatItChanged(QQuickItem* item) {
    QAccessible::State changed;
    changed.disabled = true;
    QAccessibleStateChangeEvent event(item, changed);
    QAccessible::updateAccessibility(&event);
}

// Lives as long as the item, in the toolkit's cache.
class AccessibleButton final : public QAccessibleObject, public QAccessibleActionInterface {
public:
    explicit AccessibleButton(QQuickItem* item) : QAccessibleObject(item) {
        QObject::connect(item, &QQuickItem::enabledChanged, item, [item] { tellThatItChanged(item); });
    }

    QAccessible::Role role() const override { return attached("role").value<QAccessible::Role>(); }

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return attached("name").toString();
        case QAccessible::Description:
            return attached("description").toString();
        default:
            return {};
        }
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!item())
            return state;
        state.disabled = !item()->isEnabled();
        state.focusable = attached("focusable").toBool();
        state.focused = item()->hasActiveFocus();
        state.pressed = attached("pressed").toBool();
        const QQuickWindow* const itsWindow = item()->window();
        state.invisible = !itsWindow || !itsWindow->isVisible() || !item()->isVisible() || item()->opacity() <= 0;
        state.offscreen = itsWindow && !itsWindow->geometry().intersects(rect());
        return state;
    }

    QRect rect() const override {
        const QQuickWindow* const itsWindow = item() ? item()->window() : nullptr;
        if (!itsWindow)
            return {};
        const QRect inWindow = item()->mapRectToScene(QRectF({}, item()->size())).toRect();
        return inWindow.translated(itsWindow->mapToGlobal(QPoint()));
    }

    QWindow* window() const override { return item() ? item()->window() : nullptr; }

    QAccessibleInterface* parent() const override {
        QQuickWindow* const itsWindow = item() ? item()->window() : nullptr;
        if (!itsWindow)
            return nullptr;
        for (QQuickItem* above = item()->parentItem(); above && above != itsWindow->contentItem();
             above = above->parentItem()) {
            if (QAccessibleInterface* const itsInterface = QAccessible::queryAccessibleInterface(above))
                return itsInterface;
        }
        return QAccessible::queryAccessibleInterface(itsWindow);
    }

    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList actionNames() const override {
        QStringList names{pressAction()};
        if (state().focusable)
            names.append(setFocusAction());
        return names;
    }

    void doAction(const QString& name) override {
        if (!item() || !item()->isEnabled())
            return;
        if (name == setFocusAction())
            item()->forceActiveFocus(Qt::OtherFocusReason);
        else if (name == pressAction())
            QMetaObject::invokeMethod(attachedTo(*item()), "pressAction");
    }

    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QQuickItem* item() const { return static_cast<QQuickItem*>(object()); }

    QVariant attached(const char* property) const {
        const QObject* const values = item() ? attachedTo(*item()) : nullptr;
        return values ? values->property(property) : QVariant();
    }
};

QAccessibleInterface* make(const QString&, QObject* object) {
    auto* const item = qobject_cast<QQuickItem*>(object);
    if (!item || item->metaObject()->indexOfProperty("tellsWhetherEnabled") < 0 || !attachedTo(*item))
        return nullptr;
    return new AccessibleButton(item);
}

} // namespace

void installAccessibleButtons() {
    QAccessible::installFactory(make);
}

} // namespace zelmo
