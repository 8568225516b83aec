#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariant>

namespace zelmo::test {

// Stands in for the desktop's watcher of status items, as long as it owns its name. Lives on the test's thread.
class FakeWatcher : public QDBusVirtualObject {
    Q_OBJECT

public:
    enum class Registering { accepted, refused };

    // `hasHost` is what it says when it is asked for a host.
    FakeWatcher(QDBusConnection bus, const QVariant& hasHost);
    ~FakeWatcher() override;

    // Says so from now on, by the signal of that name too.
    void tellHost(const QVariant& hasHost, const char* signal);
    void setRegistering(Registering registering) { m_registering = registering; }
    const QStringList& items() const { return m_items; }
    int questions() const { return m_questions; }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    QDBusConnection m_bus;
    QVariant m_hasHost;
    Registering m_registering = Registering::accepted;
    QStringList m_items; // that were registered
    int m_questions = 0;
};

} // namespace zelmo::test
