#pragma once

#include "settings/SettingsFixture.h"
#include "settings/SettingsWindow.h"

#include <QAccessible>
#include <QQuickItem>
#include <QtQml/qqmlextensionplugin.h>

// For each program that includes this, once.
Q_IMPORT_QML_PLUGIN(Zelmo_UiPlugin)

namespace zelmo::test {

// The settings window on fakes, as it is found by screen readers.
class SettingsOnView : public SettingsFixture {
public:
    explicit SettingsOnView(const PreferenceValues& values = {}, QSize size = {560, 1700}) : SettingsFixture(values) {
        controller.showSettingsWindow();
        window().resize(size);
    }

    SettingsWindow& window() const { return *controller.window(); }
    bool waitUntilShown() const { return QTest::qWaitForWindowActive(&window()); }

    // Those in sight, as they stand in the tree.
    QList<QAccessibleInterface*> controls() const {
        QList<QAccessibleInterface*> list;
        collect(QAccessible::queryAccessibleInterface(&window()), list);
        return list;
    }
    QAccessibleInterface* control(QAccessible::Role role, const QString& name) const {
        for (QAccessibleInterface* candidate : controls()) {
            if (candidate->role() == role && candidate->text(QAccessible::Name) == name)
                return candidate;
        }
        return nullptr;
    }
    QQuickItem* item(QAccessible::Role role, const char* name) const {
        QAccessibleInterface* found = control(role, QString::fromLatin1(name));
        if (!found)
            qWarning("There is no %s in sight.", name);
        return found ? qobject_cast<QQuickItem*>(found->object()) : nullptr;
    }
    static QRectF place(const QQuickItem& item) {
        return item.mapRectToScene(QRectF(0, 0, item.width(), item.height()));
    }

    bool click(QAccessible::Role role, const char* name) const {
        const QQuickItem* found = item(role, name);
        if (!found)
            return false;
        QTest::mouseClick(&window(), Qt::LeftButton, {}, place(*found).center().toPoint());
        return true;
    }
    // As by the Tab key.
    bool focus(QAccessible::Role role, const char* name) const {
        QQuickItem* found = item(role, name);
        if (!found)
            return false;
        found->forceActiveFocus(Qt::TabFocusReason);
        return found->hasActiveFocus();
    }
    void type(const QList<Qt::Key>& keys) const {
        for (const Qt::Key key : keys)
            QTest::keyClick(&window(), key);
    }

    // Texts in sight, also those that screen readers get from their controls.
    QList<QQuickItem*> texts(const QString& text) const {
        QList<QQuickItem*> list;
        collect(*window().contentItem(), "QQuickText", list);
        list.removeIf([&](const QQuickItem* item) { return item->property("text").toString() != text; });
        return list;
    }
    QList<QQuickItem*> items(const char* type) const {
        QList<QQuickItem*> list;
        collect(*window().contentItem(), type, list);
        return list;
    }

    AppSettingsWindowController controller{services(), windowServices()};

private:
    static void collect(QAccessibleInterface* parent, QList<QAccessibleInterface*>& list) {
        for (int i = 0; i < parent->childCount(); ++i) {
            QAccessibleInterface* child = parent->child(i);
            if (child->state().invisible)
                continue;
            list.append(child);
            collect(child, list);
        }
    }
    static void collect(QQuickItem& item, const char* type, QList<QQuickItem*>& list) {
        if (!item.isVisible())
            return;
        if (item.inherits(type))
            list.append(&item);
        for (QQuickItem* child : item.childItems())
            collect(*child, type, list);
    }
};

} // namespace zelmo::test
