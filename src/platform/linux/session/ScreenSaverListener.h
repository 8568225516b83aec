#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QList>
#include <QObject>

namespace zelmo {

// The name of a screen saver's service; its interface has the same.
struct ScreenSaverService {
    QString name;
    QString path;
};

// Every desktop has its own name for the same interface.
QList<ScreenSaverService> screenSaverServices();

// Follows whether one screen saver is active. A service that is not there, does not answer or says something else than
// yes or no is not active. Owned by PresenceListener, on its thread.
class ScreenSaverListener : public QObject {
    Q_OBJECT

public:
    ScreenSaverListener(const QDBusConnection& bus, ScreenSaverService service);

    bool isActive() const { return m_active; }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void hearActiveChanged(const QDBusMessage& message);

private:
    void ask();
    void setActive(bool active);

    QDBusConnection m_bus;
    ScreenSaverService m_service;
    QDBusServiceWatcher m_watcher;
    bool m_active = false;
    int m_news = 0; // grows with all that makes an answer to an earlier question old
};

} // namespace zelmo
