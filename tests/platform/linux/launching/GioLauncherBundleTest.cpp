#include "LaunchFixture.h"

#include <QTest>

using namespace zelmo::test;

class GioLauncherBundleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<LaunchFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void thePropertyListNamesTheExecutable() {
        const QByteArray named = m_fixture->writeExecutable("A.app/Contents/MacOS/named one");
        m_fixture->writeExecutable("A.app/Contents/MacOS/A");
        writeInformation("A.app", "named one");
        const auto record = m_fixture->launch(m_fixture->folder().path("A.app"));
        QVERIFY(record);
        QCOMPARE(record->program, named);
        QCOMPARE(record->arguments, QList<QByteArray>());
        QCOMPARE(record->folder, m_fixture->folder().path("home"));
    }

    void withoutAPropertyListTheBundlesNameCounts() {
        const QByteArray executable = m_fixture->writeExecutable("Some. One.app/Contents/MacOS/Some. One");
        const auto record = m_fixture->launch(m_fixture->folder().path("Some. One.app"));
        QVERIFY(record);
        QCOMPARE(record->program, executable);
    }

    void withoutAnExecutableInThePropertyListTheBundlesNameCounts() {
        const QByteArray executable = m_fixture->writeExecutable("A.app/Contents/MacOS/A");
        m_fixture->folder().writeFile("A.app/Contents/Info.plist", "<plist version=\"1.0\"><dict/></plist>");
        const auto record = m_fixture->launch(m_fixture->folder().path("A.app"));
        QVERIFY(record);
        QCOMPARE(record->program, executable);
    }

    void theSystemsOwnExecutableComesFirst() {
        const QByteArray executable = m_fixture->writeExecutable("A.app/Contents/Linux/A");
        m_fixture->writeExecutable("A.app/Contents/MacOS/A");
        const auto record = m_fixture->launch(m_fixture->folder().path("A.app"));
        QVERIFY(record);
        QCOMPARE(record->program, executable);
    }

    void anExecutableOutsideIsNotStarted_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("upwards") << QByteArray("../../../outside");
        QTest::newRow("the folder beside") << QByteArray("../../../A.apparently/outside");
        QTest::newRow("absolute") << QByteArray("%1/outside");
        QTest::newRow("link") << QByteArray("link");
        QTest::newRow("linked folder") << QByteArray("linked/outside");
    }
    void anExecutableOutsideIsNotStarted() {
        QFETCH(const QByteArray, name);
        const QByteArray outside = m_fixture->writeExecutable("outside");
        m_fixture->writeExecutable("A.apparently/outside");
        m_fixture->writeExecutable("A.app/Contents/MacOS/A");
        m_fixture->folder().link("A.app/Contents/MacOS/link", outside);
        m_fixture->folder().link("A.app/Contents/MacOS/linked", m_fixture->folder().path());
        writeInformation("A.app", QByteArray(name).replace("%1", m_fixture->folder().path()));
        QVERIFY(m_fixture->launchesNothing(m_fixture->folder().path("A.app")));
        writeInformation("A.app", "A");
        QVERIFY(m_fixture->launch(m_fixture->folder().path("A.app")));
    }

    void aLinkedBundleAndALinkInsideAreFollowed() {
        const QByteArray executable = m_fixture->writeExecutable("A.app/Contents/Resources/real");
        m_fixture->folder().makeFolders("A.app/Contents/Linux");
        m_fixture->folder().link("A.app/Contents/Linux/A", "../Resources/real");
        m_fixture->folder().makeFolders("elsewhere");
        const auto record = m_fixture->launch(m_fixture->folder().link("elsewhere/A.app", "../A.app"));
        QVERIFY(record);
        QCOMPARE(record->program, executable);
    }

    void whatCannotBeExecutedIsNotStarted() {
        const QByteArray executable = m_fixture->writeExecutable("A.app/Contents/Linux/A");
        chmod(executable.constData(), 0644);
        QVERIFY(m_fixture->launchesNothing(m_fixture->folder().path("A.app")));
        // The other place has one that can.
        const QByteArray other = m_fixture->writeExecutable("A.app/Contents/MacOS/A");
        const auto record = m_fixture->launch(m_fixture->folder().path("A.app"));
        QVERIFY(record);
        QCOMPARE(record->program, other);
    }

    void whatIsNoFileIsNotStarted_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("folder") << QByteArray("folder");
        QTest::newRow("the bundle") << QByteArray("../..");
        QTest::newRow("missing") << QByteArray("missing");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("broken link") << QByteArray("broken");
        QTest::newRow("circle") << QByteArray("circle");
    }
    void whatIsNoFileIsNotStarted() {
        QFETCH(const QByteArray, name);
        m_fixture->folder().makeFolders("A.app/Contents/Linux/folder");
        m_fixture->folder().link("A.app/Contents/Linux/broken", "missing");
        m_fixture->folder().link("A.app/Contents/Linux/circle", "circle");
        writeInformation("A.app", name);
        QVERIFY(m_fixture->launchesNothing(m_fixture->folder().path("A.app")));
        m_fixture->writeExecutable("A.app/Contents/Linux/A");
        writeInformation("A.app", "A");
        QVERIFY(m_fixture->launch(m_fixture->folder().path("A.app")));
    }

    void aFolderInTheFirstPlaceDoesNotHideTheSecond() {
        m_fixture->folder().makeFolders("A.app/Contents/Linux/A");
        const QByteArray executable = m_fixture->writeExecutable("A.app/Contents/MacOS/A");
        const auto record = m_fixture->launch(m_fixture->folder().path("A.app"));
        QVERIFY(record);
        QCOMPARE(record->program, executable);
    }

    void aBundleWithANameThatIsNotUnicodeStarts() {
        const QByteArray executable = m_fixture->writeExecutable("\xe9\xff.app/Contents/Linux/\xe9\xff");
        const auto record = m_fixture->launch(m_fixture->folder().path("\xe9\xff.app"));
        QVERIFY(record);
        QCOMPARE(record->program, executable);
    }

    void aMissingBundleStartsNothing() {
        QVERIFY(m_fixture->launchesNothing(m_fixture->folder().path("Missing.app")));
        m_fixture->folder().writeFile("File.app", "no folder");
        QVERIFY(m_fixture->launchesNothing(m_fixture->folder().path("File.app")));
        m_fixture->folder().makeFolders("Empty.app");
        QVERIFY(m_fixture->launchesNothing(m_fixture->folder().path("Empty.app")));
    }

    void aFileThatIsNoProgramStartsNothing() {
        const QByteArray text = m_fixture->folder().writeFile("A.app/Contents/Linux/A", "#!/no/such/interpreter\n");
        chmod(text.constData(), 0755);
        QVERIFY(m_fixture->launchesNothing(m_fixture->folder().path("A.app")));
        m_fixture->writeExecutable("A.app/Contents/Linux/A");
        QVERIFY(m_fixture->launch(m_fixture->folder().path("A.app")));
    }

private:
    void writeInformation(const QByteArray& bundle, const QByteArray& executable) const {
        m_fixture->folder().writeFile(bundle + "/Contents/Info.plist",
                                      "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>" +
                                          executable + "</string></dict></plist>");
    }

    std::unique_ptr<LaunchFixture> m_fixture;
};

QTEST_GUILESS_MAIN(GioLauncherBundleTest)
#include "GioLauncherBundleTest.moc"
