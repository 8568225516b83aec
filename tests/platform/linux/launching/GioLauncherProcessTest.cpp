#include "LaunchFixture.h"

#include <QTest>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

using namespace zelmo::test;

class GioLauncherProcessTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<LaunchFixture>(); }
    void cleanup() { m_fixture.reset(); }

    // An entry's and a bundle's program are started in two ways.
    void theProgramLeadsASessionOfItsOwn_data() { kinds(); }
    void theProgramLeadsASessionOfItsOwn() {
        const auto record = launch();
        QVERIFY(record);
        QCOMPARE(record->session, record->process);
        QVERIFY(record->session != getsid(static_cast<pid_t>(m_fixture->launchingProgram().processId())));
    }

    void theProgramInheritsNoOpenFiles_data() { kinds(); }
    void theProgramInheritsNoOpenFiles() {
        QVERIFY(m_fixture->tell("open files"));
        const auto record = launch();
        QVERIFY(record);
        QCOMPARE(record->openFiles, (QList<QByteArray>{"0 /dev/null", "1 /dev/null", "2 /dev/null"}));
    }

    void theProgramInheritsTheEnvironment_data() { kinds(); }
    void theProgramInheritsTheEnvironment() {
        m_fixture->setVariable("SOME_VARIABLE", "some = value\n");
        m_fixture->setVariable("LANG", "tlh");
        m_fixture->setVariable("EMPTY_VARIABLE", "");
        const auto record = launch();
        QVERIFY(record);
        QCOMPARE(record->environment.value("SOME_VARIABLE"), QByteArray("some = value\n"));
        QCOMPARE(record->environment.value("LANG"), QByteArray("tlh"));
        QVERIFY(record->environment.contains("EMPTY_VARIABLE"));
        for (const char* name : {"HOME", "PATH", "XDG_RUNTIME_DIR", "XDG_DATA_HOME", "XDG_DATA_DIRS", "LC_ALL"})
            QVERIFY2(record->environment.contains(name), name);
    }

    void privateVariablesStayHere_data() {
        QTest::addColumn<bool>("isBundle");
        QTest::addColumn<QByteArray>("name");
        for (const bool isBundle : {false, true}) {
            for (const char* name : {"XDG_ACTIVATION_TOKEN", "INVOCATION_ID", "JOURNAL_STREAM", "NOTIFY_SOCKET",
                                     "LISTEN_PID", "LISTEN_FDS", "LISTEN_FDNAMES", "SYSTEMD_EXEC_PID", "WATCHDOG_PID",
                                     "WATCHDOG_USEC", "ZELMO_TEST_PRIVATE", "DESKTOP_STARTUP_ID"})
                QTest::addRow("%s %s", isBundle ? "bundle" : "entry", name) << isBundle << QByteArray(name);
        }
    }
    void privateVariablesStayHere() {
        QFETCH(const QByteArray, name);
        m_fixture->setVariable(name, "private");
        QVERIFY(m_fixture->tell("no tokens"));
        const auto record = launch();
        QVERIFY(record);
        QVERIFY(!record->environment.contains(name));
    }

    void aBundleIsNotTakenForTheEntryThatStartedUs() {
        m_fixture->setVariable("GIO_LAUNCHED_DESKTOP_FILE", "/ours.desktop");
        m_fixture->setVariable("GIO_LAUNCHED_DESKTOP_FILE_PID", "1");
        const auto record = m_fixture->launch(bundle());
        QVERIFY(record);
        QVERIFY(!record->environment.contains("GIO_LAUNCHED_DESKTOP_FILE"));
        QVERIFY(!record->environment.contains("GIO_LAUNCHED_DESKTOP_FILE_PID"));
    }

    void anEntrysProgramIsToldItsOwnEntry() {
        m_fixture->setVariable("GIO_LAUNCHED_DESKTOP_FILE", "/ours.desktop");
        m_fixture->setVariable("GIO_LAUNCHED_DESKTOP_FILE_PID", "1");
        const QByteArray entry = m_fixture->writeRecordingEntry("a.desktop");
        const auto record = m_fixture->launch(entry);
        QVERIFY(record);
        QCOMPARE(record->environment.value("GIO_LAUNCHED_DESKTOP_FILE"), entry);
        QCOMPARE(record->environment.value("GIO_LAUNCHED_DESKTOP_FILE_PID"),
                 QByteArray::number(static_cast<qint64>(record->process)));
    }

    void aProgramThatNotifiesGetsTheAnnouncedToken() {
        const auto record = m_fixture->launch(m_fixture->writeRecordingEntry(
            "org.example.a.desktop", {}, "Name=Näme\nStartupNotify=true\nStartupWMClass=Class"));
        QVERIFY(record);
        QCOMPARE(record->environment.value("DESKTOP_STARTUP_ID"), QByteArray("announced-token"));
        QVERIFY(m_fixture->notifications().contains("announced Näme|org.example.a.desktop|Class"));
        QVERIFY(!m_fixture->notifications().contains("cancelled announced-token"));
    }

    void anotherProgramGetsTheQuietToken_data() { kinds(); }
    void anotherProgramGetsTheQuietToken() {
        const auto record = launch();
        QVERIFY(record);
        QCOMPARE(record->environment.value("DESKTOP_STARTUP_ID"), QByteArray("quiet-token"));
        QFETCH(const bool, isBundle);
        QCOMPARE(m_fixture->notifications(),
                 QList<QByteArray>{isBundle ? "quiet Some bundle||" : "quiet Plain|a.desktop|"});
    }

    void noTokenIsNoVariable_data() {
        QTest::addColumn<QByteArray>("lines");
        QTest::newRow("notifies") << QByteArray("StartupNotify=true");
        QTest::newRow("does not") << QByteArray("StartupNotify=false");
    }
    void noTokenIsNoVariable() {
        QFETCH(const QByteArray, lines);
        QVERIFY(m_fixture->tell("no tokens"));
        const auto record = m_fixture->launch(m_fixture->writeRecordingEntry("a.desktop", {}, lines));
        QVERIFY(record);
        QVERIFY(!record->environment.contains("DESKTOP_STARTUP_ID"));
    }

    void anAnnouncedProgramThatDoesNotStartIsCancelled() {
        QVERIFY(m_fixture->launchesNothing(
            m_fixture->writeRecordingEntry("a.desktop", {}, "StartupNotify=true\nPath=/no/such/folder")));
        QVERIFY(m_fixture->notifications().contains("announced Plain|a.desktop|"));
        QCOMPARE(m_fixture->notifications().last(), QByteArray("cancelled announced-token"));
    }

    void theProgramIsNobodysChild_data() { kinds(); }
    void theProgramIsNobodysChild() {
        m_fixture->setVariable("ZELMO_TEST_STAY", "1");
        const auto record = launch();
        QVERIFY(record);
        const auto launching = static_cast<pid_t>(m_fixture->launchingProgram().processId());
        QVERIFY(record->parent != launching);
        // The test stands in for the system, to which orphans come.
        QCOMPARE(stateOf(record->process)->parent, getpid());
        kill(record->process, SIGKILL);
        QCOMPARE(waitpid(record->process, nullptr, 0), record->process);
        // Neither of itself nor of what was in between has anything stayed behind.
        QVERIFY(m_fixture->launchedProcesses().isEmpty());
    }

    void theProgramOutlivesUs_data() {
        QTest::addColumn<bool>("isBundle");
        QTest::addColumn<bool>("isKilled");
        QTest::newRow("entry, end") << false << false;
        QTest::newRow("entry, kill") << false << true;
        QTest::newRow("bundle, end") << true << false;
        QTest::newRow("bundle, kill") << true << true;
    }
    void theProgramOutlivesUs() {
        QFETCH(const bool, isKilled);
        m_fixture->setVariable("ZELMO_TEST_STAY", "1");
        QVERIFY(m_fixture->open(application()));
        if (isKilled)
            m_fixture->launchingProgram().kill();
        else
            m_fixture->launchingProgram().closeWriteChannel();
        QVERIFY(m_fixture->launchingProgram().waitForFinished());
        // Written even when it was not yet at that.
        const auto record = m_fixture->waitForRecord();
        QVERIFY(record);
        // A signal that can't be delivered any more would have been before this one.
        QCOMPARE(kill(record->process, SIGTERM), 0);
        int status = 0;
        QCOMPARE(waitpid(record->process, &status, 0), record->process);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), SIGTERM);
    }

    void hangingUpDoesNotReachTheProgram_data() { kinds(); }
    void hangingUpDoesNotReachTheProgram() {
        m_fixture->setVariable("ZELMO_TEST_STAY", "1");
        const auto record = launch();
        QVERIFY(record);
        // As a terminal does to all that it began.
        const auto launching = static_cast<pid_t>(m_fixture->launchingProgram().processId());
        QVERIFY(getpgid(record->process) != getpgid(launching));
        QCOMPARE(getpgid(record->process), record->process);
    }

private:
    static void kinds() {
        QTest::addColumn<bool>("isBundle");
        QTest::newRow("entry") << false;
        QTest::newRow("bundle") << true;
    }

    QByteArray bundle() const {
        m_fixture->writeExecutable("Some bundle.app/Contents/Linux/Some bundle");
        return m_fixture->folder().path("Some bundle.app");
    }
    QByteArray application() const {
        QFETCH(const bool, isBundle);
        return isBundle ? bundle() : m_fixture->writeRecordingEntry("a.desktop");
    }
    std::optional<LaunchRecord> launch() { return m_fixture->launch(application()); }

    std::unique_ptr<LaunchFixture> m_fixture;
};

QTEST_GUILESS_MAIN(GioLauncherProcessTest)
#include "GioLauncherProcessTest.moc"
