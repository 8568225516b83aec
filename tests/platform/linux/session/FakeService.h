#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <QHash>

namespace zelmo::test {

// Stands in for a service: answers the methods it was given answers for, leaves others unanswered or fails them, and
// sends signals. Lives on the test's thread, as long as it owns its name.
class FakeService : public QDBusVirtualObject {
    Q_OBJECT

public:
    enum class Unknown { fails, staysUnanswered };

    FakeService(QDBusConnection bus, const QString& name, Unknown unknown = Unknown::fails);
    ~FakeService() override;

    // `key` is the path and the method's name, joined by a colon.
    void answer(const QString& key, const QVariant& value) { m_answers.insert(key, value); }
    // Answers the last call of a method that has stayed unanswered.
    void answerLast(const QString& key, const QVariant& value) const;
    // How often the method was called.
    int calls(const QString& key) const { return m_calls.value(key); }
    QVariantList lastArguments(const QString& key) const { return m_questions.value(key).arguments(); }

    void send(const QString& path, const QString& interface, const QString& name, const QVariantList& values) const;

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    QDBusConnection m_bus;
    QString m_name;
    Unknown m_unknown;
    QHash<QString, QVariant> m_answers;
    QHash<QString, int> m_calls;
    QHash<QString, QDBusMessage> m_questions;
};

} // namespace zelmo::test
