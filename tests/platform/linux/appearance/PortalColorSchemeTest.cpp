#include "platform/linux/appearance/PortalColorScheme.h"
#include "session/FakeService.h"
#include "session/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

using Namespaces = QMap<QString, QVariantMap>;

namespace {

const QString serviceName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString question = path + QStringLiteral(":ReadAll");

// Three shares of a colour, as the portal sends them.
struct Shares {
    double red = 0;
    double green = 0;
    double blue = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Shares& shares) {
    argument.beginStructure();
    argument << shares.red << shares.green << shares.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Shares& shares) {
    argument.beginStructure();
    argument >> shares.red >> shares.green >> shares.blue;
    argument.endStructure();
    return argument;
}

QVariant scheme(uint value) {
    return QVariant::fromValue(value);
}

} // namespace

Q_DECLARE_METATYPE(Shares)

namespace {

class FakePortal {
public:
    explicit FakePortal(const PrivateBus& bus) : service(bus.services(), serviceName) {}

    void answer(const QVariantMap& settings, const QString& space = appearance) {
        service.answer(question, QVariant::fromValue(Namespaces{
                                     {QStringLiteral("org.example"), {{QStringLiteral("color-scheme"), scheme(1)}}},
                                     {space, settings},
                                     {QStringLiteral("zz.last"), {}}}));
    }
    void announce(const QString& name, const QVariant& value, const QString& space = appearance) const {
        service.send(path, interface, QStringLiteral("SettingChanged"),
                     {space, name, QVariant::fromValue(QDBusVariant(value))});
    }

    FakeService service;
};

class Observed {
public:
    explicit Observed(const QString& address) : colors(address) {
        colors.setChangeHandler([this] { ++changes; });
        colors.start();
    }
    bool waitForChange() {
        const int before = std::exchange(m_seen, m_seen + 1);
        return QTest::qWaitFor([&] { return changes > before; });
    }

    int changes = 0;
    PortalColorScheme colors;

private:
    int m_seen = 0;
};

} // namespace

class PortalColorSchemeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        qDBusRegisterMetaType<Shares>();
        qDBusRegisterMetaType<Namespaces>();
    }

    void itSaysWhatThePortalSays_data() {
        QTest::addColumn<QVariantMap>("settings");
        QTest::addColumn<SchemeWish>("wish");
        QTest::addColumn<QColor>("accent");
        const QString name = QStringLiteral("color-scheme");
        const QString accent = QStringLiteral("accent-color");
        const auto row = [](const char* title, const QVariantMap& settings, SchemeWish wish,
                            const QColor& color = QColor()) { QTest::newRow(title) << settings << wish << color; };
        row("dark", {{name, scheme(1)}}, SchemeWish::dark);
        row("light", {{name, scheme(2)}}, SchemeWish::light);
        row("no wish", {{name, scheme(0)}}, SchemeWish::unknown);
        row("a wish of later times", {{name, scheme(7)}}, SchemeWish::unknown);
        row("nothing", {}, SchemeWish::unknown);
        row("another type", {{name, QStringLiteral("dark")}}, SchemeWish::unknown);
        const auto color = [](double red, double green, double blue) {
            return QVariant::fromValue(Shares{red, green, blue});
        };
        row("accent", {{accent, color(1, 0.5, 0)}, {name, scheme(1)}}, SchemeWish::dark, QColor::fromRgbF(1, 0.5F, 0));
        row("no accent", {{accent, color(-1, -1, -1)}}, SchemeWish::unknown);
        row("too much of a colour", {{accent, color(0, 2, 0)}}, SchemeWish::unknown);
        row("no number", {{accent, color(0, qQNaN(), 0)}}, SchemeWish::unknown);
        row("accent of another type", {{accent, QStringLiteral("red")}, {name, scheme(2)}}, SchemeWish::light);
        row("others among them",
            {{QStringLiteral("a"), QVariantList{1, 2}}, {name, scheme(1)}, {QStringLiteral("z"), 1}}, SchemeWish::dark);
    }
    void itSaysWhatThePortalSays() {
        QFETCH(QVariantMap, settings);
        QFETCH(SchemeWish, wish);
        QFETCH(QColor, accent);
        const PrivateBus bus;
        FakePortal portal(bus);
        portal.answer(settings);
        Observed observed(bus.address());
        QCOMPARE(observed.colors.wish(), SchemeWish::unknown);
        QVERIFY(observed.waitForChange());
        QCOMPARE(observed.colors.wish(), wish);
        QCOMPARE(observed.colors.accent(), accent.isValid() ? std::optional(accent) : std::nullopt);
    }

    void changesAreFollowed() {
        const PrivateBus bus;
        FakePortal portal(bus);
        portal.answer({{QStringLiteral("color-scheme"), scheme(2)}});
        Observed observed(bus.address());
        QVERIFY(observed.waitForChange());
        portal.announce(QStringLiteral("color-scheme"), scheme(1), QStringLiteral("org.example"));
        portal.announce(QStringLiteral("color-scheme"), scheme(1));
        QVERIFY(observed.waitForChange());
        QCOMPARE(observed.colors.wish(), SchemeWish::dark);
        portal.announce(QStringLiteral("accent-color"), QVariant::fromValue(Shares{0, 0, 1}));
        QVERIFY(observed.waitForChange());
        QCOMPARE(observed.colors.accent(), std::optional(QColor::fromRgbF(0, 0, 1)));
        QCOMPARE(observed.colors.wish(), SchemeWish::dark);
        QCOMPARE(observed.changes, 3);
    }

    void aPortalThatTakesThePlaceOfAnotherIsAsked() {
        const PrivateBus bus;
        std::optional<FakePortal> portal(bus);
        portal->answer({{QStringLiteral("color-scheme"), scheme(2)}});
        Observed observed(bus.address());
        QVERIFY(observed.waitForChange());
        QCOMPARE(observed.colors.wish(), SchemeWish::light);
        portal.reset();
        portal.emplace(bus);
        portal->answer({{QStringLiteral("color-scheme"), scheme(1)}});
        QVERIFY(observed.waitForChange());
        QCOMPARE(observed.colors.wish(), SchemeWish::dark);
    }

    void aPortalThatComesLaterIsAsked() {
        const PrivateBus bus;
        bus.makeStartable(serviceName);
        Observed observed(bus.address());
        const auto isOnBus = [&] {
            const QStringList names = bus.services().interface()->registeredServiceNames();
            return std::count_if(names.cbegin(), names.cend(),
                                 [](const QString& name) { return name.startsWith(u':'); }) > 1;
        };
        QVERIFY(QTest::qWaitFor(isOnBus));
        // Once greeted it asks in the same turn, and nobody is there to answer.
        QTest::qWait(0);
        QVERIFY(isOnBus());
        FakePortal portal(bus);
        portal.answer({{QStringLiteral("color-scheme"), scheme(1)}});
        QVERIFY(observed.waitForChange());
        QCOMPARE(observed.colors.wish(), SchemeWish::dark);
        // It was not started for it.
        QVERIFY(!bus.wasStarted(serviceName));
    }

    void aPortalWithoutSettingsLeavesItUnknown() {
        const PrivateBus bus;
        FakePortal portal(bus);
        Observed observed(bus.address());
        QVERIFY(QTest::qWaitFor([&] { return portal.service.calls(question) == 1; }));
        // An answer to a later question tells that the refusal has come.
        portal.announce(QStringLiteral("color-scheme"), scheme(0));
        QVERIFY(observed.waitForChange());
        QCOMPARE(observed.colors.wish(), SchemeWish::unknown);
    }

    void whatWasKnownStaysWhenTheBusGoes() {
        PrivateBus bus;
        FakePortal portal(bus);
        portal.answer({{QStringLiteral("color-scheme"), scheme(1)}});
        Observed observed(bus.address());
        QVERIFY(observed.waitForChange());
        bus.kill();
        QTest::qWait(0);
        QCOMPARE(observed.colors.wish(), SchemeWish::dark);
    }

    void theBusThatComesAgainIsAsked() {
        PrivateBus bus;
        std::optional<FakePortal> portal(bus);
        portal->answer({{QStringLiteral("color-scheme"), scheme(1)}});
        Observed observed(bus.address());
        QVERIFY(observed.waitForChange());
        for (const uint value : {2U, 1U}) {
            bus.kill();
            portal.reset();
            bus.startAgain();
            portal.emplace(bus);
            portal->answer({{QStringLiteral("color-scheme"), scheme(value)}});
            QVERIFY(observed.waitForChange());
            QCOMPARE(observed.colors.wish(), value == 1 ? SchemeWish::dark : SchemeWish::light);
        }
        // And heard.
        portal->announce(QStringLiteral("color-scheme"), scheme(2));
        QVERIFY(observed.waitForChange());
        QCOMPARE(observed.colors.wish(), SchemeWish::light);
    }

    void withoutABusNothingIsKnown_data() {
        QTest::addColumn<QString>("address");
        QTest::newRow("none") << QString();
        QTest::newRow("nobody there") << QStringLiteral("unix:path=/nowhere");
        QTest::newRow("nonsense") << QStringLiteral("nonsense");
    }
    void withoutABusNothingIsKnown() {
        QFETCH(QString, address);
        Observed observed(address);
        observed.colors.start();
        QTest::qWait(0);
        QCOMPARE(observed.changes, 0);
        QCOMPARE(observed.colors.wish(), SchemeWish::unknown);
        QVERIFY(!observed.colors.accent());
    }

    void aBusThatStandsStillIsNotWaitedFor() {
        const PrivateBus bus;
        FakePortal portal(bus);
        portal.answer({{QStringLiteral("color-scheme"), scheme(1)}});
        bus.setRunning(false);
        // Would not come back otherwise.
        Observed observed(bus.address());
        QCOMPARE(observed.colors.wish(), SchemeWish::unknown);
        bus.setRunning(true);
        QVERIFY(observed.waitForChange());
        QCOMPARE(observed.colors.wish(), SchemeWish::dark);
    }
};

QTEST_GUILESS_MAIN(PortalColorSchemeTest)
#include "PortalColorSchemeTest.moc"
