#include "platform/linux/session/DBusProgramInstance.h"
#include "PrivateBus.h"
#include "RecordedRequests.h"

#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QTest>

#include <ctime>

using namespace zelmo;
using namespace zelmo::test;

namespace {

const QString busName = QString::fromLatin1(DBusProgramInstance::name);

// Calls a method of the desktop's interface for applications; the reply can be waited for while events are handled.
QDBusPendingCall call(const PrivateBus& bus, const char* method, const QVariantList& arguments) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(busName, QString::fromLatin1(DBusProgramInstance::objectPath),
                                       QStringLiteral("org.freedesktop.Application"), QString::fromLatin1(method));
    message.setArguments(arguments);
    return bus.services().asyncCall(message);
}

QVariant noParameters() {
    return QVariant(QVariantList());
}

} // namespace

class DBusProgramInstanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSecondStartHandsOverToTheFirst() {
        const PrivateBus bus;
        DBusProgramInstance first(bus.address());
        DBusProgramInstance second(bus.address());
        QCOMPARE(first.claim("ignored"), InstanceClaim::first);
        RecordedRequests requests;
        first.listen(requests.handler());
        QCOMPARE(answerOf(claimElsewhere(second, "a token_TIME42")), InstanceClaim::handedOver);
        QTRY_COMPARE(requests.list, QStringList{QStringLiteral("0 a token_TIME42")});
        QCOMPARE(answerOf(claimElsewhere(second)), InstanceClaim::handedOver);
        QTRY_COMPARE(requests.list.last(), QStringLiteral("0 "));
    }

    void whatIsAskedBeforeItListensIsNotLost() {
        const PrivateBus bus;
        DBusProgramInstance first(bus.address());
        QCOMPARE(first.claim({}), InstanceClaim::first);
        DBusProgramInstance second(bus.address());
        std::future<InstanceClaim> claim = claimElsewhere(second, "early");
        QTest::qWait(100);
        RecordedRequests requests;
        first.listen(requests.handler());
        QCOMPARE(answerOf(std::move(claim)), InstanceClaim::handedOver);
        QTRY_COMPARE(requests.list, QStringList{QStringLiteral("0 early")});
    }

    void theDesktopsMenusReachIt_data() {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("request");
        QTest::newRow("settings") << QStringLiteral("settings") << QStringLiteral("1 new");
        QTest::newRow("refresh") << QStringLiteral("refresh") << QStringLiteral("2 new");
        QTest::newRow("quit") << QStringLiteral("quit") << QStringLiteral("3 new");
    }
    void theDesktopsMenusReachIt() {
        QFETCH(QString, action);
        QFETCH(QString, request);
        const PrivateBus bus;
        DBusProgramInstance instance(bus.address());
        QCOMPARE(instance.claim({}), InstanceClaim::first);
        RecordedRequests requests;
        instance.listen(requests.handler());
        // The newer name of the token counts, wherever it stands; values of other types are passed over.
        QDBusPendingCall reply = call(bus, "ActivateAction",
                                      {action, noParameters(),
                                       QVariantMap{{QStringLiteral("activation-token"), QStringLiteral("new")},
                                                   {QStringLiteral("desktop-startup-id"), QStringLiteral("old")},
                                                   {QStringLiteral("z"), QVariantList{1, QStringLiteral("two")}}}});
        QTRY_VERIFY(reply.isFinished());
        QVERIFY(!reply.isError());
        QTRY_COMPARE(requests.list, QStringList{request});
    }

    void filesAndTheOlderTokenActivateIt() {
        const PrivateBus bus;
        DBusProgramInstance instance(bus.address());
        QCOMPARE(instance.claim({}), InstanceClaim::first);
        RecordedRequests requests;
        instance.listen(requests.handler());
        const QVariantMap token{{QStringLiteral("desktop-startup-id"), QStringLiteral("old")}};
        call(bus, "Open", {QStringList{QStringLiteral("file:///a"), QStringLiteral("file:///b")}, token});
        QTRY_COMPARE(requests.list, QStringList{QStringLiteral("0 old")});
        call(bus, "Activate", {QVariantMap{{QStringLiteral("activation-token"), 7}}});
        QTRY_COMPARE(requests.list.size(), 2);
        QCOMPARE(requests.list.last(), QStringLiteral("0 "));
    }

    void whatItDoesNotKnowIsRefused_data() {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QVariantList>("arguments");
        QTest::newRow("an action") << QByteArray("ActivateAction")
                                   << QVariantList{QStringLiteral("dance"), noParameters(), QVariantMap()};
        QTest::newRow("a method") << QByteArray("Dance") << QVariantList();
        QTest::newRow("arguments of another type") << QByteArray("Activate") << QVariantList{QStringLiteral("now")};
        QTest::newRow("too few arguments") << QByteArray("ActivateAction") << QVariantList{QStringLiteral("quit")};
    }
    void whatItDoesNotKnowIsRefused() {
        QFETCH(QByteArray, method);
        QFETCH(QVariantList, arguments);
        const PrivateBus bus;
        DBusProgramInstance instance(bus.address());
        QCOMPARE(instance.claim({}), InstanceClaim::first);
        RecordedRequests requests;
        instance.listen(requests.handler());
        QDBusPendingCall reply = call(bus, method.constData(), arguments);
        QTRY_VERIFY(reply.isFinished());
        QVERIFY(reply.isError());
        QVERIFY(requests.list.isEmpty());
    }

    void thePlaceIsFreeOnceTheFirstHasGone() {
        const PrivateBus bus;
        auto first = std::make_unique<DBusProgramInstance>(bus.address());
        QCOMPARE(first->claim({}), InstanceClaim::first);
        first.reset();
        DBusProgramInstance second(bus.address());
        QCOMPARE(second.claim({}), InstanceClaim::first);
    }

    // It goes while the second one waits for its answer.
    void thePlaceOfOneThatEndsWithoutAnAnswerIsTaken() {
        const PrivateBus bus;
        auto first = std::make_unique<DBusProgramInstance>(bus.address());
        QCOMPARE(first->claim({}), InstanceClaim::first);
        DBusProgramInstance second(bus.address());
        std::future<InstanceClaim> claim = claimElsewhere(second);
        QTest::qWait(100);
        first.reset();
        QCOMPARE(answerOf(std::move(claim)), InstanceClaim::first);
    }

    void oneThatDoesNotAnswerIsGivenUp() {
        const PrivateBus bus;
        DBusProgramInstance first(bus.address());
        QCOMPARE(first.claim({}), InstanceClaim::first);
        DBusProgramInstance second(bus.address());
        QCOMPARE(second.claim({}), InstanceClaim::unanswered);
    }

    void withoutABusThereIsNoPlace_data() {
        QTest::addColumn<QString>("address");
        QTest::newRow("none") << QString();
        QTest::newRow("one that has gone") << QStringLiteral("unix:path=/nonexistent/bus");
        QTest::newRow("nonsense") << QStringLiteral("what?");
    }
    void withoutABusThereIsNoPlace() {
        QFETCH(QString, address);
        DBusProgramInstance instance(address);
        QCOMPARE(instance.claim("token"), InstanceClaim::unavailable);
        instance.listen([](ApplicationRequest, const QByteArray&) {});
    }

    void aBusThatStandsStillIsNotWaitedForLong() {
        const PrivateBus bus;
        bus.setRunning(false);
        DBusProgramInstance instance(bus.address());
        QElapsedTimer time;
        time.start();
        QCOMPARE(instance.claim({}), InstanceClaim::unavailable);
        QVERIFY(time.elapsed() < 5'000);
        bus.setRunning(true);
    }

    void theEndOfTheBusIsSurvived() {
        PrivateBus bus;
        DBusProgramInstance instance(bus.address());
        QCOMPARE(instance.claim({}), InstanceClaim::first);
        RecordedRequests requests;
        instance.listen(requests.handler());
        call(bus, "Activate", {QVariantMap()});
        QTRY_COMPARE(requests.list.size(), 1);
        bus.kill();
        // Nothing spins on the closed connection: the loop comes to rest.
        QTest::qWait(100);
        const std::clock_t before = std::clock();
        QTest::qWait(200);
        QVERIFY(std::clock() - before < CLOCKS_PER_SEC / 10);
    }

    void aBusThatComesAgainReachesIt() {
        PrivateBus bus;
        DBusProgramInstance instance(bus.address());
        QCOMPARE(instance.claim({}), InstanceClaim::first);
        RecordedRequests requests;
        instance.listen(requests.handler());
        for (int end = 1; end <= 2; ++end) {
            bus.kill();
            bus.startAgain();
            QTRY_VERIFY_WITH_TIMEOUT(bus.services().interface()->isServiceRegistered(busName), 15'000);
            DBusProgramInstance second(bus.address());
            QCOMPARE(answerOf(claimElsewhere(second, "again")), InstanceClaim::handedOver);
            QTRY_COMPARE(requests.list.size(), end);
        }
    }

    void whoHasTheNameMeanwhileKeepsIt() {
        PrivateBus bus;
        DBusProgramInstance instance(bus.address());
        QCOMPARE(instance.claim({}), InstanceClaim::first);
        RecordedRequests requests;
        instance.listen(requests.handler());
        bus.kill();
        bus.startAgain();
        DBusProgramInstance other(bus.address());
        QCOMPARE(other.claim({}), InstanceClaim::first);
        RecordedRequests others;
        other.listen(others.handler());
        // Both are on the bus.
        QTRY_COMPARE_WITH_TIMEOUT(bus.services().interface()->registeredServiceNames().value().size(), 5, 15'000);
        call(bus, "Activate", {QVariantMap()});
        QTRY_COMPARE(others.list.size(), 1);
        QVERIFY(requests.list.isEmpty());
    }
};

QTEST_GUILESS_MAIN(DBusProgramInstanceTest)
#include "DBusProgramInstanceTest.moc"
