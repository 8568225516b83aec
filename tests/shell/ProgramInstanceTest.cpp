#include "shell/ProgramInstance.h"

#include <QStringList>
#include <QTest>

#include <array>

using namespace zelmo;

namespace {

class FakePlace : public ProgramInstance {
public:
    FakePlace(QStringList& log, const char* name, InstanceClaim answer)
        : m_log(log), m_name(QString::fromLatin1(name)), m_answer(answer) {}

    InstanceClaim claim(const QByteArray& activationToken) override {
        m_log.append(m_name + u' ' + QString::fromLatin1(activationToken));
        return m_answer;
    }
    void listen(RequestHandler) override {}

private:
    QStringList& m_log;
    QString m_name;
    InstanceClaim m_answer;
};

} // namespace

class ProgramInstanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void placesAreClaimedUntilSomebodyElseHasOne_data() {
        QTest::addColumn<InstanceClaim>("bus");
        QTest::addColumn<InstanceClaim>("lock");
        QTest::addColumn<InstanceClaim>("result");
        QTest::addColumn<int>("asked");
        using enum InstanceClaim;
        QTest::newRow("both are free") << first << first << first << 2;
        QTest::newRow("no bus") << unavailable << first << first << 2;
        QTest::newRow("no folder") << first << unavailable << first << 2;
        QTest::newRow("neither") << unavailable << unavailable << unavailable << 2;
        QTest::newRow("the bus has one") << handedOver << first << handedOver << 1;
        QTest::newRow("only the lock has one") << first << handedOver << handedOver << 2;
        QTest::newRow("one that is stuck") << unanswered << first << unanswered << 1;
        QTest::newRow("no bus, and one that is stuck") << unavailable << unanswered << unanswered << 2;
    }
    void placesAreClaimedUntilSomebodyElseHasOne() {
        QFETCH(InstanceClaim, bus);
        QFETCH(InstanceClaim, lock);
        QFETCH(int, asked);
        QStringList log;
        const std::array<std::unique_ptr<ProgramInstance>, 2> places{std::make_unique<FakePlace>(log, "bus", bus),
                                                                     std::make_unique<FakePlace>(log, "lock", lock)};
        const InstanceClaim claimed = claimAll(places, "token");
        QTEST(claimed, "result");
        QCOMPARE(log, QStringList({QStringLiteral("bus token"), QStringLiteral("lock token")}).first(asked));
    }
};

QTEST_GUILESS_MAIN(ProgramInstanceTest)
#include "ProgramInstanceTest.moc"
