#include "soak/ResourceUse.h"
#include "soak/SoakDesktop.h"
#include "soak/SoakLength.h"
#include "soak/StoredUsage.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr qint64 referenceEpoch = 978307200; // 2001-01-01T00:00:00Z
constexpr qint64 hour = 3600;
constexpr qint64 day = 24 * hour;

// The library that tells a program another time of day than the machine's.
QString clockLibrary() {
    for (const QString& folder : QDir(QStringLiteral("/usr/lib")).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString path = QStringLiteral("/usr/lib/%1/faketime/libfaketimeMT.so.1").arg(folder);
        if (QFile::exists(path))
            return path;
    }
    return {};
}

// The program with a clock that can be set, and a calculator in front of it.
class ClockDesktop {
public:
    ClockDesktop() {
        session().writeFile(QStringLiteral(".local/share/applications/calculator.desktop"),
                            "[Desktop Entry]\nType=Application\nName=Calculator\nExec=true\nStartupWMClass=XCalc\n");
        setClock(0);
        QProcessEnvironment& environment = session().environment();
        environment.insert(QStringLiteral("FAKETIME_TIMESTAMP_FILE"), clockPath());
        environment.insert(QStringLiteral("FAKETIME_NO_CACHE"), QStringLiteral("1"));
        // What stands still while the machine sleeps is not set by anybody.
        environment.insert(QStringLiteral("FAKETIME_DONT_FAKE_MONOTONIC"), QStringLiteral("1"));
        environment.insert(QStringLiteral("LD_PRELOAD"), clockLibrary());
        desktop.startProgram();
        environment.remove(QStringLiteral("LD_PRELOAD"));
    }

    // Seconds before or after the machine's, from one moment to the next.
    void setClock(qint64 offset) const {
        session().writeFile(QStringLiteral("clock.next"), (offset < 0 ? "" : "+") + QByteArray::number(offset) + '\n');
        std::rename(QFile::encodeName(clockPath() + QStringLiteral(".next")).constData(),
                    QFile::encodeName(clockPath()).constData());
    }
    bool bringToFront(const char* program, const char* windowClass) const {
        session().startProgram(QLatin1StringView(program), QStringLiteral("-geometry 300x300+400+200").split(u' '));
        return waitForActive(windowClass);
    }
    bool waitForActive(const char* windowClass) const {
        return DesktopSession::waitFor(
            [&] { return session().display().activeClass() == QLatin1StringView(windowClass); });
    }
    double activeSeconds() const { return usage().activeSeconds; }
    AppUsageRecord usage() const {
        return storedUsage(session().home(), QStringLiteral("calculator.desktop")).value_or(AppUsageRecord());
    }
    DesktopSession& session() const { return *desktop.session; }

    SoakDesktop desktop;

private:
    QString clockPath() const { return session().home() + QStringLiteral("/clock"); }
};

} // namespace

// Somebody sets the clock while the program runs.
class ClockSoakTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (clockLibrary().isEmpty())
            QSKIP("nothing here can tell a program another time");
    }

    void timeInFrontIsWhatHasPassed_data() {
        QTest::addColumn<qint64>("offset");
        QTest::newRow("hours on") << 5 * hour;
        if (isLong())
            QTest::newRow("hours back") << -5 * hour;
        if (isLong())
            QTest::newRow("days on") << 40 * day;
        QTest::newRow("days back") << -40 * day;
    }
    void timeInFrontIsWhatHasPassed() {
        QFETCH(qint64, offset);
        ClockDesktop clock;
        QVERIFY(clock.desktop.wall->waitUntilShown());
        QVERIFY(clock.desktop.hide());
        QElapsedTimer sinceItCame;
        sinceItCame.start();
        QVERIFY(clock.bringToFront("xcalc", "XCalc"));
        QElapsedTimer sinceItIsThere;
        sinceItIsThere.start();
        FlatRounds rounds(clock.desktop.process(), soakCount(1, 20));
        for (int round = 0; round < rounds.count(); ++round) {
            clock.setClock(offset);
            waitFor(sinceItIsThere, 1500 + 3000 * round);
            clock.setClock(0);
            waitFor(sinceItIsThere, 3000 + 3000 * round);
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
        clock.setClock(offset);
        const double least = static_cast<double>(sinceItIsThere.elapsed()) / 1000 - 1;
        QVERIFY(clock.bringToFront("xlogo", "XLogo"));
        // What has been in front is added when something else comes there.
        QVERIFY2(DesktopSession::waitFor([&] { return clock.activeSeconds() >= least; }),
                 qPrintable(QString::number(clock.activeSeconds())));
        const double seconds = clock.activeSeconds();
        const double most = static_cast<double>(sinceItCame.elapsed()) / 1000;
        QVERIFY2(seconds <= most, qPrintable(QStringLiteral("%1 of %2").arg(seconds).arg(most)));
        // That of day is what the clock says.
        clock.desktop.wall->pressShortcut(altKey);
        QVERIFY(clock.desktop.wall->waitForCards(1));
        clock.session().display().click(cardCenter(clock.session(), 0));
        QVERIFY(DesktopSession::waitFor([&] { return clock.usage().launchCount == 1; }));
        const auto now = static_cast<double>(QDateTime::currentSecsSinceEpoch() - referenceEpoch);
        QVERIFY(std::abs(clock.usage().lastLaunchedAt - now - static_cast<double>(offset)) < 60);
        QVERIFY(clock.activeSeconds() >= seconds);
        QVERIFY(clock.desktop.isRunning());
    }

    void itStaysAtRestWhenTheClockIsSet() {
        ClockDesktop clock;
        QVERIFY(clock.desktop.wall->waitUntilShown());
        QVERIFY(clock.desktop.hide());
        QVERIFY(clock.bringToFront("xcalc", "XCalc"));
        const auto spent = [&] { return ResourceUse::of(clock.desktop.process()).processorMilliseconds; };
        // What there was to do is done.
        double last = -1;
        QVERIFY(DesktopSession::waitFor([&] {
            QTest::qWait(300);
            return std::exchange(last, spent()) == last;
        }));
        QElapsedTimer time;
        time.start();
        for (const qint64 offset : {5 * hour, -5 * hour, 40 * day, -40 * day, qint64(0)}) {
            clock.setClock(offset);
            waitFor(time, time.elapsed() + 500);
        }
        const double milliseconds = spent() - last;
        QVERIFY2(milliseconds < 100, qPrintable(QString::number(milliseconds)));
        QVERIFY(clock.desktop.show());
    }

private:
    static void waitFor(const QElapsedTimer& timer, qint64 milliseconds) {
        DesktopSession::waitFor([&] { return timer.hasExpired(milliseconds); });
    }
};

QTEST_GUILESS_MAIN(ClockSoakTest)
#include "ClockSoakTest.moc"
