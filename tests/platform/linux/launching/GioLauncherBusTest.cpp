#include "LaunchFixture.h"
#include "platform/linux/session/FakeService.h"
#include "platform/linux/session/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QTest>

using namespace zelmo::test;

namespace {

const QString managerName = QStringLiteral("org.freedesktop.systemd1");
const QString startScope = QStringLiteral("/org/freedesktop/systemd1:StartTransientUnit");
const QString applicationName = QStringLiteral("org.example.Activatable");
const QString activate = QStringLiteral("/org/example/Activatable:Activate");
const QByteArray activatableEntry = "org.example.Activatable.desktop";

QVariantMap properties(const QVariant& argument) {
    QVariantMap map;
    const auto list = argument.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        QDBusVariant value;
        list.beginStructure();
        list >> name >> value;
        list.endStructure();
        map.insert(name, value.variant());
    }
    list.endArray();
    return map;
}

} // namespace

class GioLauncherBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        m_bus = std::make_unique<PrivateBus>();
        m_fixture = std::make_unique<LaunchFixture>();
        m_fixture->setVariable("DBUS_SESSION_BUS_ADDRESS", m_bus->address().toUtf8());
    }
    void cleanup() {
        m_fixture.reset();
        m_bus.reset();
    }

    void anActivatableEntryIsActivated_data() {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QString>("token");
        QTest::newRow("notifies") << QByteArray("StartupNotify=true") << QStringLiteral("announced-token");
        QTest::newRow("does not") << QByteArray("StartupNotify=false") << QString();
    }
    void anActivatableEntryIsActivated() {
        QFETCH(const QByteArray, lines);
        QFETCH(const QString, token);
        FakeService application(m_bus->services(), applicationName);
        application.answer(activate, QString());
        QVERIFY(m_fixture->launchesNothing(
            m_fixture->writeRecordingEntry(activatableEntry, {}, "DBusActivatable=true\n" + lines)));
        QTRY_COMPARE(application.calls(activate), 1);
        const QVariantList arguments = application.lastArguments(activate);
        QCOMPARE(arguments.size(), 1);
        const auto platformData = qdbus_cast<QVariantMap>(arguments[0]);
        QCOMPARE(platformData.value(QStringLiteral("desktop-startup-id")).toString(), token);
        QVERIFY(m_fixture->launchedProcesses().isEmpty());
    }

    void anApplicationThatRefusesIsCancelled() {
        const FakeService application(m_bus->services(), applicationName);
        QVERIFY(m_fixture->open(
            m_fixture->writeRecordingEntry(activatableEntry, {}, "DBusActivatable=true\nStartupNotify=true")));
        QTRY_COMPARE(application.calls(activate), 1);
        QTRY_VERIFY(m_fixture->notifications().contains("cancelled announced-token"));
    }

    void withoutABusAnActivatableEntryStartsItsProgram_data() {
        QTest::addColumn<QByteArray>("address");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("gone") << QByteArray("unix:path=/no/such/bus");
    }
    void withoutABusAnActivatableEntryStartsItsProgram() {
        QFETCH(const QByteArray, address);
        m_fixture = std::make_unique<LaunchFixture>();
        if (!address.isEmpty())
            m_fixture->setVariable("DBUS_SESSION_BUS_ADDRESS", address);
        const auto record =
            m_fixture->launch(m_fixture->writeRecordingEntry(activatableEntry, "a", "DBusActivatable=true"));
        QVERIFY(record);
        QCOMPARE(record->arguments, QList<QByteArray>{"a"});
    }

    void theProgramGetsAControlGroupOfItsOwn_data() {
        QTest::addColumn<QByteArray>("application");
        QTest::addColumn<QString>("unit");
        QTest::newRow("entry") << QByteArray("org.example.a-b c.desktop")
                               << QStringLiteral("app-zelmo-org.example.a\\x2db\\x20c-%1.scope");
        QTest::newRow("bundle") << QByteArray("Näme_1@.app")
                                << QStringLiteral("app-zelmo-N\\xc3\\xa4me_1\\x40-%1.scope");
    }
    void theProgramGetsAControlGroupOfItsOwn() {
        QFETCH(const QByteArray, application);
        QFETCH(const QString, unit);
        FakeService manager(m_bus->services(), managerName);
        manager.answer(startScope, QVariant::fromValue(QDBusObjectPath(QStringLiteral("/job/1"))));
        const auto record = m_fixture->launch(write(application));
        QVERIFY(record);
        QTRY_COMPARE(manager.calls(startScope), 1);
        const QVariantList arguments = manager.lastArguments(startScope);
        QCOMPARE(arguments.size(), 4);
        QCOMPARE(arguments[0].toString(), unit.arg(record->process));
        QCOMPARE(arguments[1].toString(), QStringLiteral("fail"));
        const QVariantMap scope = properties(arguments[2]);
        const auto processes = qdbus_cast<QList<uint>>(scope.value(QStringLiteral("PIDs")));
        QCOMPARE(processes, QList<uint>{static_cast<uint>(record->process)});
    }

    void aControlGroupIsNotNecessary_data() {
        QTest::addColumn<bool>("isThere");
        QTest::newRow("no manager") << false;
        QTest::newRow("a manager that refuses") << true;
    }
    void aControlGroupIsNotNecessary() {
        QFETCH(const bool, isThere);
        const FakeService manager(m_bus->services(), isThere ? managerName : QStringLiteral("org.example.Other"));
        QVERIFY(m_fixture->launch(write("a.desktop")));
        QTRY_COMPARE(manager.calls(startScope), isThere ? 1 : 0);
        QVERIFY(m_fixture->launch(write("b.desktop")));
        QVERIFY(m_fixture->launch(write("c.app")));
    }

    void noManagerIsStarted() {
        m_bus->makeStartable(managerName);
        QVERIFY(m_fixture->launch(write("a.desktop")));
        // The bus takes one message after the other.
        const FakeService application(m_bus->services(), applicationName);
        QVERIFY(m_fixture->open(
            m_fixture->writeRecordingEntry(activatableEntry, {}, "DBusActivatable=true\nStartupNotify=true")));
        QTRY_COMPARE(application.calls(activate), 1);
        QVERIFY(!m_bus->wasStarted(managerName));
    }

    void theBusMayGoAway_data() {
        QTest::addColumn<QByteArray>("application");
        QTest::addColumn<QString>("service");
        QTest::addColumn<QString>("question");
        QTest::newRow("entry") << QByteArray("a.desktop") << managerName << startScope;
        QTest::newRow("bundle") << QByteArray("a.app") << managerName << startScope;
        QTest::newRow("activation") << activatableEntry << applicationName << activate;
    }
    void theBusMayGoAway() {
        QFETCH(const QByteArray, application);
        QFETCH(const QString, service);
        QFETCH(const QString, question);
        {
            // While an answer is waited for, the connection is in use.
            const FakeService silent(m_bus->services(), service, FakeService::Unknown::staysUnanswered);
            QVERIFY(m_fixture->open(write(application)));
            QTRY_COMPARE(silent.calls(question), 1);
            m_bus->kill();
        }
        // Whatever the connection's end does to the program, it does it before a second one is launched.
        for (const QByteArray& other : {QByteArray("b.desktop"), QByteArray("c.app"), QByteArray("d.desktop")})
            QVERIFY(m_fixture->launch(write(other)));
        QCOMPARE(m_fixture->launchingProgram().state(), QProcess::Running);
    }

private:
    QByteArray write(const QByteArray& application) const {
        if (application == activatableEntry)
            return m_fixture->writeRecordingEntry(application, {}, "DBusActivatable=true");
        if (application.endsWith(".desktop"))
            return m_fixture->writeRecordingEntry(application);
        m_fixture->writeExecutable(application + "/Contents/Linux/" + application.chopped(4));
        return m_fixture->folder().path(application);
    }

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<LaunchFixture> m_fixture;
};

QTEST_GUILESS_MAIN(GioLauncherBusTest)
#include "GioLauncherBusTest.moc"
