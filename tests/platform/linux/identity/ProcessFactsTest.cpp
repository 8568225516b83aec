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
    QByteArray path(const char* name) const { return QFile::encodeName(m_folder.path()) + "/77/" + name; }
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

    void aScriptIsWhatItsInterpreterRuns_data() {
        QTest::addColumn<QByteArray>("contents");
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<bool>("isScript");
        const auto row = [](const char* name, const char* contents, const char* arguments, bool isScript) {
            QTest::newRow(name) << QByteArray(contents) << QByteArray(arguments) << isScript;
        };
        row("as the system calls it", "#!/bin/sh\nexit\n", "/bin/sh|SCRIPT|more|", true);
        row("by the search path", "#! /usr/bin/env python3 -u\n", "python3|SCRIPT|", true);
        row("by the executable's own name", "#!/usr/bin/viewer\n", "v|SCRIPT|", true);
        row("shown by a program that reads it", "#!/bin/sh\n", "/usr/bin/viewer|SCRIPT|", false);
        row("no script", "text\n", "/bin/sh|SCRIPT|", false);
        row("empty", "", "/bin/sh|SCRIPT|", false);
        row("an option first", "#!/bin/sh\n", "/bin/sh|-c|SCRIPT|", false);
        row("nothing", "#!/bin/sh\n", "", false);
    }
    void aScriptIsWhatItsInterpreterRuns() {
        QFETCH(QByteArray, contents);
        QFETCH(QByteArray, arguments);
        QFETCH(bool, isScript);
        const ProcessFolder folder;
        folder.link("/usr/bin/viewer");
        folder.write("script", contents);
        folder.write("cmdline", withZeros(arguments.replace("SCRIPT", folder.path("script"))));
        QCOMPARE(folder.read().script, isScript ? folder.path("script") : QByteArray());
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
