#include "platform/linux/session/DBusSessionPresence.h"
#include "FakeService.h"
#include "PrivateBus.h"

#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QTest>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace zelmo;
using namespace zelmo::test;

namespace {

const QString loginName = QStringLiteral("org.freedesktop.login1");
const QString managerPath = QStringLiteral("/org/freedesktop/login1");
const QString managerInterface = QStringLiteral("org.freedesktop.login1.Manager");
const QString sessionPath = QStringLiteral("/org/freedesktop/login1/session/_31");
const QString sessionInterface = QStringLiteral("org.freedesktop.login1.Session");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

QString screenSaverName(const char* vendor) {
    return QStringLiteral("org.%1.ScreenSaver").arg(QString::fromLatin1(vendor));
}
QString screenSaverPath(const char* vendor) {
    return QStringLiteral("/org/%1/ScreenSaver").arg(QString::fromLatin1(vendor));
}

// A screen saver of that vendor, which answers as long as nobody says otherwise.
class FakeScreenSaver {
public:
    FakeScreenSaver(const PrivateBus& bus, const char* vendor, const QVariant& active)
        : m_vendor(vendor), m_service(bus.services(), screenSaverName(vendor)) {
        setAnswer(active);
    }

    void setAnswer(const QVariant& active) {
        m_service.answer(screenSaverPath(m_vendor) + QStringLiteral(":GetActive"), active);
    }
    void announce(const QVariantList& values, const QString& path = {}) const {
        m_service.send(path.isEmpty() ? screenSaverPath(m_vendor) : path, screenSaverName(m_vendor),
                       QStringLiteral("ActiveChanged"), values);
    }
    int questions() const { return m_service.calls(screenSaverPath(m_vendor) + QStringLiteral(":GetActive")); }

private:
    const char* m_vendor;
    FakeService m_service;
};

// The login service with one session.
class FakeLogin {
public:
    explicit FakeLogin(const PrivateBus& bus) : m_service(bus.services(), loginName) {
        m_service.answer(managerPath + QStringLiteral(":GetSessionByPID"),
                         QVariant::fromValue(QDBusObjectPath(sessionPath)));
        setProperties({{QStringLiteral("Active"), true}, {QStringLiteral("LockedHint"), false}});
    }

    void setProperties(const QVariantMap& values) { m_service.answer(sessionPath + QStringLiteral(":GetAll"), values); }
    void change(const QVariantMap& values) {
        setProperties(values);
        announce(sessionInterface, values);
    }
    void announce(const QString& interface, const QVariantMap& values) const {
        m_service.send(sessionPath, properties, QStringLiteral("PropertiesChanged"),
                       {interface, values, QStringList()});
    }
    void prepareForSleep(const QVariantList& values) const {
        m_service.send(managerPath, managerInterface, QStringLiteral("PrepareForSleep"), values);
    }
    int questions() const { return m_service.calls(sessionPath + QStringLiteral(":GetAll")); }
    FakeService& service() { return m_service; }

private:
    FakeService m_service;
};

// Takes connections and says nothing.
class MuteServer {
public:
    explicit MuteServer(const QString& path)
        : m_path(path), m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray name = path.toUtf8();
        std::copy(name.cbegin(), name.cend(), address.sun_path);
        if (bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
            listen(m_socket, 1) != 0)
            qFatal("%s can't be listened to", name.constData());
    }
    ~MuteServer() { close(m_socket); }
    MuteServer(const MuteServer&) = delete;
    MuteServer& operator=(const MuteServer&) = delete;

    const QString& path() const { return m_path; }
    // Whether someone has called; hangs up on whoever did.
    bool wasCalled() {
        const int caller = accept(m_socket, nullptr, nullptr);
        if (caller >= 0)
            close(caller);
        m_called = m_called || caller >= 0;
        return m_called;
    }

private:
    QString m_path;
    int m_socket;
    bool m_called = false;
};

class Observed {
public:
    explicit Observed(const BusAddresses& addresses) : presence(addresses) {
        presence.setChangeHandler([this] { changes.append(presence.isPresent()); });
        presence.start();
    }

    DBusSessionPresence presence;
    QList<bool> changes;
};

} // namespace

class DBusSessionPresenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        qunsetenv("XDG_SESSION_ID");
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
        qunsetenv("XDG_RUNTIME_DIR");
        m_session = std::make_unique<PrivateBus>();
        m_system = std::make_unique<PrivateBus>();
    }
    void cleanup() {
        m_session.reset();
        m_system.reset();
    }

    void aScreenSaverIsHeard_data() {
        QTest::addColumn<QByteArray>("vendor");
        for (const char* vendor : {"freedesktop", "gnome", "cinnamon", "mate", "xfce"})
            QTest::newRow(vendor) << QByteArray(vendor);
    }
    void aScreenSaverIsHeard() {
        QFETCH(const QByteArray, vendor);
        const FakeScreenSaver screenSaver(*m_session, vendor.constData(), false);
        const Observed observed(addresses());
        QVERIFY(observed.presence.isPresent());
        QTRY_COMPARE(screenSaver.questions(), 1);
        screenSaver.announce({true});
        QTRY_VERIFY(!observed.presence.isPresent());
        screenSaver.announce({false}, QStringLiteral("/ScreenSaver"));
        QTRY_VERIFY(observed.presence.isPresent());
        QCOMPARE(observed.changes, (QList<bool>{false, true}));
    }

    void aScreenSaverThatIsActiveAtTheStartCounts() {
        const FakeScreenSaver screenSaver(*m_session, "gnome", true);
        const Observed observed(addresses());
        QTRY_VERIFY(!observed.presence.isPresent());
    }

    void aScreenSaverThatComesLaterIsAsked() {
        const FakeScreenSaver first(*m_session, "gnome", false);
        const Observed observed(addresses());
        QTRY_COMPARE(first.questions(), 1);
        const QDBusConnection other = QDBusConnection::connectToBus(m_session->address(), QStringLiteral("other"));
        {
            FakeService second(other, screenSaverName("mate"));
            second.answer(screenSaverPath("mate") + QStringLiteral(":GetActive"), true);
            QTRY_VERIFY(!observed.presence.isPresent());
        }
        // Whoever vanishes can't say that it is over.
        QTRY_VERIFY(observed.presence.isPresent());
        QDBusConnection::disconnectFromBus(QStringLiteral("other"));
    }

    void nobodyElseSpeaksForAScreenSaver() {
        const FakeScreenSaver screenSaver(*m_session, "gnome", false);
        const Observed observed(addresses());
        QTRY_COMPARE(screenSaver.questions(), 1);
        {
            QDBusConnection other = QDBusConnection::connectToBus(m_session->address(), QStringLiteral("other"));
            QDBusMessage signal = QDBusMessage::createSignal(screenSaverPath("gnome"), screenSaverName("gnome"),
                                                             QStringLiteral("ActiveChanged"));
            signal << true;
            other.send(signal);
            // The bus has passed it on when it answers this one.
            other.call(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                                      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
        }
        screenSaver.announce({false});
        screenSaver.announce({true});
        waitUntilHeard();
        QCOMPARE(observed.changes, QList<bool>{false});
        QDBusConnection::disconnectFromBus(QStringLiteral("other"));
    }

    void anAnswerInAnotherFormMeansNothing_data() {
        QTest::addColumn<QVariant>("answer");
        QTest::newRow("text") << QVariant(QStringLiteral("true"));
        QTest::newRow("number") << QVariant(1U);
        QTest::newRow("list") << QVariant(QStringList{QStringLiteral("true")});
        QTest::newRow("map") << QVariant(QVariantMap{{QStringLiteral("Active"), true}});
    }
    void anAnswerInAnotherFormMeansNothing() {
        QFETCH(const QVariant, answer);
        const FakeScreenSaver screenSaver(*m_session, "gnome", answer);
        FakeLogin login(*m_system);
        login.setProperties({{QStringLiteral("Active"),
                              answer.typeId() == QMetaType::QString ? QVariant(QStringLiteral("false")) : QVariant(0U)},
                             {QStringLiteral("LockedHint"), answer}});
        const Observed observed(addresses());
        QTRY_COMPARE(screenSaver.questions(), 1);
        QTRY_COMPARE(login.questions(), 1);
        screenSaver.announce({answer});
        screenSaver.announce({true, true});
        screenSaver.announce({});
        login.prepareForSleep({answer});
        login.prepareForSleep({});
        login.announce(QStringLiteral("org.example.Other"), {{QStringLiteral("LockedHint"), true}});
        login.service().send(sessionPath, properties, QStringLiteral("PropertiesChanged"), {answer});
        login.announce(sessionInterface, {{QStringLiteral("LockedHint"), answer}});
        // It listens on; had any of these been taken for a yes, one of the following would be news.
        login.prepareForSleep({false});
        login.change({{QStringLiteral("LockedHint"), false}, {QStringLiteral("Active"), true}});
        QTRY_COMPARE(login.questions(), 3);
        screenSaver.announce({false});
        screenSaver.announce({true});
        waitUntilHeard();
        QCOMPARE(observed.changes, QList<bool>{false});
    }

    void anOldAnswerDoesNotOverruleTheNews() {
        // It answers only what it is asked after this.
        FakeService service(m_session->services(), screenSaverName("gnome"), FakeService::Unknown::staysUnanswered);
        const QString question = screenSaverPath("gnome") + QStringLiteral(":GetActive");
        const Observed observed(addresses());
        QTRY_COMPARE(service.calls(question), 1);
        service.send(screenSaverPath("gnome"), screenSaverName("gnome"), QStringLiteral("ActiveChanged"), {true});
        QTRY_VERIFY(!observed.presence.isPresent());
        service.answerLast(question, false);
        service.send(screenSaverPath("gnome"), screenSaverName("gnome"), QStringLiteral("ActiveChanged"), {true});
        service.send(screenSaverPath("gnome"), screenSaverName("gnome"), QStringLiteral("ActiveChanged"), {false});
        QTRY_VERIFY(observed.presence.isPresent());
        QCOMPARE(observed.changes, (QList<bool>{false, true}));
    }

    void aLockedSessionIsAway() {
        FakeLogin login(*m_system);
        const Observed observed(addresses());
        QTRY_COMPARE(login.questions(), 1);
        // The number that stands for whoever asks.
        QCOMPARE(login.service().lastArguments(managerPath + QStringLiteral(":GetSessionByPID")), QVariantList{0U});
        login.change({{QStringLiteral("LockedHint"), true}});
        QTRY_VERIFY(!observed.presence.isPresent());
        login.change({{QStringLiteral("LockedHint"), false}});
        QTRY_VERIFY(observed.presence.isPresent());
        QCOMPARE(observed.changes, (QList<bool>{false, true}));
    }

    void aSessionBehindAnotherIsAway() {
        FakeLogin login(*m_system);
        login.setProperties({{QStringLiteral("Active"), false}, {QStringLiteral("LockedHint"), false}});
        const Observed observed(addresses());
        QTRY_VERIFY(!observed.presence.isPresent());
        login.change({{QStringLiteral("Active"), true}});
        QTRY_VERIFY(observed.presence.isPresent());
    }

    void whatAChangeOnlyHintsAtIsAskedFor() {
        FakeLogin login(*m_system);
        const Observed observed(addresses());
        QTRY_COMPARE(login.questions(), 1);
        login.setProperties({{QStringLiteral("LockedHint"), true}});
        login.service().send(sessionPath, properties, QStringLiteral("PropertiesChanged"),
                             {sessionInterface, QVariantMap(), QStringList{QStringLiteral("LockedHint")}});
        QTRY_VERIFY(!observed.presence.isPresent());
    }

    void aMachineThatSleepsIsAway() {
        FakeLogin login(*m_system);
        const Observed observed(addresses());
        QTRY_COMPARE(login.questions(), 1);
        login.prepareForSleep({true});
        QTRY_VERIFY(!observed.presence.isPresent());
        login.prepareForSleep({false});
        QTRY_VERIFY(observed.presence.isPresent());
    }

    void theEnvironmentNamesTheSessionOfAService() {
        qputenv("XDG_SESSION_ID", "31");
        FakeService login(m_system->services(), loginName);
        login.answer(managerPath + QStringLiteral(":GetSession"), QVariant::fromValue(QDBusObjectPath(sessionPath)));
        login.answer(sessionPath + QStringLiteral(":GetAll"), QVariantMap{{QStringLiteral("LockedHint"), true}});
        const Observed observed(addresses());
        QTRY_VERIFY(!observed.presence.isPresent());
        QCOMPARE(login.lastArguments(managerPath + QStringLiteral(":GetSession")), QVariantList{QStringLiteral("31")});
    }

    void aLoginServiceThatVanishesKeepsNobodyAway() {
        auto login = std::make_unique<FakeLogin>(*m_system);
        login->setProperties({{QStringLiteral("LockedHint"), true}});
        const Observed observed(addresses());
        QTRY_VERIFY(!observed.presence.isPresent());
        login.reset();
        QTRY_VERIFY(observed.presence.isPresent());
        login = std::make_unique<FakeLogin>(*m_system);
        login->setProperties({{QStringLiteral("Active"), false}});
        QTRY_VERIFY(!observed.presence.isPresent());
    }

    void everyReasonHasToGo() {
        const FakeScreenSaver screenSaver(*m_session, "freedesktop", true);
        FakeLogin login(*m_system);
        login.setProperties({{QStringLiteral("LockedHint"), true}, {QStringLiteral("Active"), true}});
        const Observed observed(addresses());
        QTRY_COMPARE(login.questions(), 1);
        QTRY_COMPARE(screenSaver.questions(), 1);
        QTRY_VERIFY(!observed.presence.isPresent());
        // Each of the others is the last one that is left for a while.
        login.prepareForSleep({true});
        login.change({{QStringLiteral("LockedHint"), false}});
        login.prepareForSleep({false});
        login.change({{QStringLiteral("LockedHint"), true}});
        QTRY_COMPARE(login.questions(), 3);
        screenSaver.announce({false});
        screenSaver.announce({true});
        screenSaver.announce({false});
        login.change({{QStringLiteral("LockedHint"), true}});
        QTRY_COMPARE(login.questions(), 4);
        QCOMPARE(observed.changes, QList<bool>{false});
        login.change({{QStringLiteral("LockedHint"), false}});
        QTRY_VERIFY(observed.presence.isPresent());
        QCOMPARE(observed.changes, (QList<bool>{false, true}));
    }

    void aBusThatVanishesKeepsNobodyAway_data() {
        QTest::addColumn<bool>("session");
        QTest::newRow("session bus") << true;
        QTest::newRow("system bus") << false;
    }
    void aBusThatVanishesKeepsNobodyAway() {
        QFETCH(const bool, session);
        const FakeScreenSaver screenSaver(*m_session, "freedesktop", session);
        FakeLogin login(*m_system);
        login.setProperties({{QStringLiteral("LockedHint"), !session}});
        const Observed observed(addresses());
        QTRY_VERIFY(!observed.presence.isPresent());
        (session ? m_session : m_system)->kill();
        QTRY_VERIFY(observed.presence.isPresent());
    }

    void aBusThatComesAgainIsHeard_data() { aBusThatVanishesKeepsNobodyAway_data(); }
    void aBusThatComesAgainIsHeard() {
        QFETCH(const bool, session);
        PrivateBus& bus = session ? *m_session : *m_system;
        const Observed observed(addresses());
        for (int end = 0; end < 3; ++end) {
            std::optional<FakeScreenSaver> screenSaver;
            std::optional<FakeLogin> login;
            if (session) {
                screenSaver.emplace(bus, "freedesktop", true);
            } else {
                login.emplace(bus);
                login->setProperties({{QStringLiteral("LockedHint"), true}});
            }
            QTRY_VERIFY_WITH_TIMEOUT(!observed.presence.isPresent(), 15'000);
            bus.kill();
            QTRY_VERIFY(observed.presence.isPresent());
            bus.startAgain();
        }
    }

    void oneBusIsEnough_data() { aBusThatVanishesKeepsNobodyAway_data(); }
    void oneBusIsEnough() {
        QFETCH(const bool, session);
        const FakeScreenSaver screenSaver(*m_session, "freedesktop", true);
        FakeLogin login(*m_system);
        login.setProperties({{QStringLiteral("LockedHint"), true}});
        const QString missing = QStringLiteral("unix:path=/no/such/bus");
        const Observed observed(session ? BusAddresses{.session = m_session->address(), .system = missing}
                                        : BusAddresses{.session = {}, .system = m_system->address()});
        QTRY_VERIFY(!observed.presence.isPresent());
    }

    void withoutBusesSomeoneIsPresent() {
        {
            Observed observed({.session = {}, .system = QStringLiteral("unix:path=/no/such/bus")});
            QVERIFY(observed.presence.isPresent());
        }
        // And it ends at once.
        Observed other({.session = QStringLiteral("nonsense"), .system = QStringLiteral("unix:")});
        QVERIFY(other.presence.isPresent());
    }

    void aServiceThatNeverAnswersStopsNothing() {
        const FakeService silent(m_session->services(), screenSaverName("freedesktop"),
                                 FakeService::Unknown::staysUnanswered);
        const QDBusConnection other = QDBusConnection::connectToBus(m_session->address(), QStringLiteral("other"));
        FakeService talking(other, screenSaverName("gnome"));
        talking.answer(screenSaverPath("gnome") + QStringLiteral(":GetActive"), true);
        FakeLogin login(*m_system);
        {
            const Observed observed(addresses());
            QTRY_COMPARE(silent.calls(screenSaverPath("freedesktop") + QStringLiteral(":GetActive")), 1);
            QTRY_VERIFY(!observed.presence.isPresent());
        }
        QDBusConnection::disconnectFromBus(QStringLiteral("other"));
    }

    void startingWaitsForNoBus() {
        // It takes the connection and says nothing.
        const QTemporaryDir folder;
        MuteServer mute(folder.filePath(QStringLiteral("bus")));
        QElapsedTimer timer;
        {
            DBusSessionPresence presence({.session = QStringLiteral("unix:path=") + mute.path(), .system = {}});
            timer.start();
            presence.start();
            QVERIFY2(timer.elapsed() < 1000, "starting waited for the bus");
            QTRY_VERIFY(mute.wasCalled());
            QVERIFY(presence.isPresent());
        }
    }

    void noServiceIsStarted() {
        for (const char* vendor : {"freedesktop", "gnome", "cinnamon", "mate"})
            m_session->makeStartable(screenSaverName(vendor));
        m_system->makeStartable(loginName);
        const FakeScreenSaver screenSaver(*m_session, "xfce", true);
        const FakeService login(m_system->services(), QStringLiteral("org.example.Other"));
        const Observed observed(addresses());
        QTRY_VERIFY(!observed.presence.isPresent());
        // Asked last, the xfce one has answered: what the others would have done has begun.
        for (const char* vendor : {"freedesktop", "gnome", "cinnamon", "mate"})
            QVERIFY2(!m_session->wasStarted(screenSaverName(vendor)), vendor);
        QVERIFY(!m_system->wasStarted(loginName));
    }

    void nothingIsConnectedBeforeTheStart() {
        const FakeScreenSaver screenSaver(*m_session, "gnome", true);
        const QTemporaryDir folder;
        MuteServer mute(folder.filePath(QStringLiteral("bus")));
        DBusSessionPresence waiting({.session = QStringLiteral("unix:path=") + mute.path(), .system = {}});
        const Observed started(addresses());
        QTRY_VERIFY(!started.presence.isPresent());
        QVERIFY(!mute.wasCalled());
        waiting.start();
        QTRY_VERIFY(mute.wasCalled());
    }

    void theEnvironmentTellsWhereTheBusesAre() {
        QCOMPARE(BusAddresses::fromEnvironment().session, QString());
        QVERIFY(BusAddresses::fromEnvironment().system.startsWith(QStringLiteral("unix:path=/")));
        qputenv("DBUS_SESSION_BUS_ADDRESS", "autolaunch:");
        QCOMPARE(BusAddresses::fromEnvironment().session, QString());
        const QTemporaryDir folder;
        qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
        QCOMPARE(BusAddresses::fromEnvironment().session, QString());
        QFile socket(folder.filePath(QStringLiteral("bus")));
        QVERIFY(socket.open(QFile::WriteOnly));
        QCOMPARE(BusAddresses::fromEnvironment().session,
                 QString(QStringLiteral("unix:path=") + folder.path() + QStringLiteral("/bus")));
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_session->address().toUtf8());
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", m_system->address().toUtf8());
        QCOMPARE(BusAddresses::fromEnvironment().session, m_session->address());
        QCOMPARE(BusAddresses::fromEnvironment().system, m_system->address());
    }

private:
    // A service that comes now is asked only after all that was said on the session bus before has been heard.
    void waitUntilHeard() const {
        const QString name = QStringLiteral("marker");
        {
            const FakeService marker(QDBusConnection::connectToBus(m_session->address(), name),
                                     screenSaverName("cinnamon"));
            QTRY_COMPARE(marker.calls(screenSaverPath("cinnamon") + QStringLiteral(":GetActive")), 1);
        }
        QDBusConnection::disconnectFromBus(name);
    }

    BusAddresses addresses() const { return {.session = m_session->address(), .system = m_system->address()}; }

    std::unique_ptr<PrivateBus> m_session;
    std::unique_ptr<PrivateBus> m_system;
};

QTEST_GUILESS_MAIN(DBusSessionPresenceTest)
#include "DBusSessionPresenceTest.moc"
