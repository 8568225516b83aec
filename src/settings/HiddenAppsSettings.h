#pragma once

#include "preferences/Preferences.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

class LauncherStore;

// The section of the applications that the user has hidden. Owned by the form; main thread.
class HiddenAppsSettings : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the form")
    Q_PROPERTY(QString sentence READ sentence NOTIFY changed)

public:
    // Both outlive it.
    HiddenAppsSettings(const Preferences& preferences, LauncherStore& store, QObject* parent);

    QString sentence() const;
    Q_INVOKABLE void restore();

Q_SIGNALS:
    void changed();

private:
    const Preferences& m_preferences;
    LauncherStore& m_store;
};

} // namespace zelmo
