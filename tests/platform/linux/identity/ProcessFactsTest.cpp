#include "platform/linux/identity/ProcessFacts.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace zelmo;

namespace {

// A folder like /proc with one process, number 77.
class ProcessFolder {
public:
    ProcessFolder() { QDir(m_folder.path()).mkpath(QStringLiteral("77/root")); }

    void write(const char* name, const QByteArray& contents) const {
        QFile file(m_folder.path() + QStringLiteral("/77/") + QLatin1StringView(name));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(contents);
    }
    void link(const QByteArray& target) const {
        QVERIFY(QFile::link(QFile::decodeName(target), m_folder.path() + QStringLiteral("/77/exe")));
    }
    ProcessFacts read() const { return ProcessFacts::read(77, QFile::encodeName(m_folder.path())); }

private:
    QTemporaryDir m_folder;
};

QByteArray withZeros(QByteArray text) {
    return text.replace('|', '\0');
}

} // namespace

class ProcessFactsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aRealProcessShowsItsExecutableArgumentAndMark() {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("GIO_LAUNCHED_DESKTOP_FILE"), QStringLiteral("/a.desktop"));
        // The mark of a process that inherited it names another one.
        environment.insert(QStringLiteral("GIO_LAUNCHED_DESKTOP_FILE_PID"), QStringLiteral("1"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("echo; read line")});
        QVERIFY(process.waitForReadyRead());
        const ProcessFacts facts = ProcessFacts::read(process.processId());
        QCOMPARE(facts.executable, QFile::encodeName(QFileInfo(QStringLiteral("/bin/sh")).canonicalFilePath()));
        QCOMPARE(facts.launchedEntry, QByteArray());
        QCOMPARE(facts.sandboxEntryId, QByteArray());
        process.closeWriteChannel();
        process.waitForFinished();
    }

    void theMarkOfTheProcessItselfCounts() {
        const ProcessFolder folder;
        folder.write("environ",
                     withZeros("A=b|GIO_LAUNCHED_DESKTOP_FILE=/x/a.desktop|GIO_LAUNCHED_DESKTOP_FILE_PID=77|"));
        QCOMPARE(folder.read().launchedEntry, QByteArray("/x/a.desktop"));
        folder.write("environ", withZeros("GIO_LAUNCHED_DESKTOP_FILE=/x/a.desktop|GIO_LAUNCHED_DESKTOP_FILE_PID=7|"));
        QCOMPARE(folder.read().launchedEntry, QByteArray());
        folder.write("environ", withZeros("GIO_LAUNCHED_DESKTOP_FILE=/x/a.desktop|"));
        QCOMPARE(folder.read().launchedEntry, QByteArray());
    }

    void theScriptIsTheFirstArgumentWhenItIsAPath() {
        const ProcessFolder folder;
        folder.write("cmdline", withZeros("/bin/sh|/opt/x.app/run|more|"));
        QCOMPARE(folder.read().script, QByteArray("/opt/x.app/run"));
        folder.write("cmdline", withZeros("/bin/sh|-c|/opt/x|"));
        QCOMPARE(folder.read().script, QByteArray());
        folder.write("cmdline", "");
        QCOMPARE(folder.read().script, QByteArray());
    }

    void anExecutableThatWasReplacedKeepsItsName() {
        const ProcessFolder folder;
        folder.link("/usr/bin/viewer (deleted)");
        QCOMPARE(folder.read().executable, QByteArray("/usr/bin/viewer"));
    }

    void aSandboxNamesItsApplication_data() {
        QTest::addColumn<QByteArray>("information");
        QTest::addColumn<QByteArray>("groups");
        QTest::addColumn<QByteArray>("id");
        QTest::newRow("flatpak") << QByteArray("[Instance]\nname=x\n[Application]\nname=org.example.Maps\nruntime=r\n")
                                 << QByteArray() << QByteArray("org.example.Maps.desktop");
        QTest::newRow("snap") << QByteArray()
                              << QByteArray("0::/user.slice/user-1000.slice/snap.firefox.geckodriver.1b2c-3d.scope\n")
                              << QByteArray("firefox_geckodriver.desktop");
        QTest::newRow("old snap") << QByteArray() << QByteArray("3:cpu:/\n1:name=systemd:/a/snap.vlc.vlc.12.scope\n")
                                  << QByteArray("vlc_vlc.desktop");
        QTest::newRow("none") << QByteArray() << QByteArray("0::/user.slice/app-snap.scope\n") << QByteArray();
        QTest::newRow("rubbish") << QByteArray("\0\xff[", 3) << QByteArray("snap...\n::snap") << QByteArray();
    }
    void aSandboxNamesItsApplication() {
        QFETCH(QByteArray, information);
        QFETCH(QByteArray, groups);
        QFETCH(QByteArray, id);
        const ProcessFolder folder;
        if (!information.isEmpty())
            folder.write("root/.flatpak-info", information);
        folder.write("cgroup", groups);
        QCOMPARE(folder.read().sandboxEntryId, id);
    }

    void aProcessThatIsGoneTellsNothing() {
        const ProcessFacts facts = ProcessFacts::read(78, "/nonexistent");
        QVERIFY(facts.executable.isEmpty() && facts.script.isEmpty() && facts.launchedEntry.isEmpty() &&
                facts.sandboxEntryId.isEmpty());
    }
};

QTEST_GUILESS_MAIN(ProcessFactsTest)
#include "ProcessFactsTest.moc"
