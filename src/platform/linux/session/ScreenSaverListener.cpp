#include "platform/linux/session/ScreenSaverListener.h"

#include "platform/linux/session/BusQuestion.h"

namespace zelmo {

QList<ScreenSaverService> screenSaverServices() {
    QList<ScreenSaverService> services;
    for (const char* vendor : {"freedesktop", "gnome", "cinnamon", "mate", "xfce"}) {
        const QString word = QString::fromLatin1(vendor);
        services.append({.name = QStringLiteral("org.") + word + QStringLiteral(".ScreenSaver"),
                         .path = QStringLiteral("/org/") + word + QStringLiteral("/ScreenSaver")});
    }
    return services;
}

ScreenSaverListener::ScreenSaverListener(const QDBusConnection& bus, ScreenSaverService service)
    : m_bus(bus), m_service(std::move(service)),
      m_watcher(m_service.name, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
                ++m_news;
                setActive(false);
                if (!owner.isEmpty())
                    ask();
            });
    // From any of its paths: some have a second one, older than the name.
    m_bus.connect(m_service.name, QString(), m_service.name, QStringLiteral("ActiveChanged"), this,
                  SLOT(hearActiveChanged(QDBusMessage)));
    ask();
}

void ScreenSaverListener::hearActiveChanged(const QDBusMessage& message) {
    if (message.signature() != QLatin1StringView("b"))
        return;
    ++m_news;
    setActive(message.arguments().constFirst().toBool());
}

void ScreenSaverListener::ask() {
    const int news = m_news;
    askBus(m_bus,
           QDBusMessage::createMethodCall(m_service.name, m_service.path, m_service.name, QStringLiteral("GetActive")),
           QLatin1StringView("b"), this, [this, news](const QVariant& answer) {
               if (answer.isValid() && news == m_news)
                   setActive(answer.toBool());
           });
}

void ScreenSaverListener::setActive(bool active) {
    if (active == m_active)
        return;
    m_active = active;
    Q_EMIT changed();
}

} // namespace zelmo
