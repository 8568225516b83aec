#pragma once

#include "hotkey/LauncherKeyboardShortcut.h"
#include "preferences/Preferences.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

class LauncherHotKeyController;

// The section of the shortcut that summons the wall. Each change is stored first and then taken at once, which rewrites
// the status. Owned by the form; main thread.
class ShortcutSettings : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the form")
    Q_PROPERTY(QString title READ title NOTIFY shortcutChanged)
    Q_PROPERTY(bool isControlSpace READ isControlSpace NOTIFY shortcutChanged)
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)
    Q_PROPERTY(bool statusIsFailure READ statusIsFailure NOTIFY statusChanged)

public:
    // Both outlive it.
    ShortcutSettings(Preferences& preferences, LauncherHotKeyController& hotKeyController, QObject* parent);

    QString title() const;
    bool isControlSpace() const;
    QString status() const;
    bool statusIsFailure() const;

    // The one after the last is the first.
    Q_INVOKABLE void stepToNext();
    Q_INVOKABLE void useControlSpace();

Q_SIGNALS:
    void shortcutChanged();
    void statusChanged();

private:
    LauncherKeyboardShortcut shortcut() const;
    void take(LauncherKeyboardShortcut shortcut);

    Preferences& m_preferences;
    LauncherHotKeyController& m_hotKeyController;
};

} // namespace zelmo
